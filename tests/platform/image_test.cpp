#include <OVAddressBookSDK/image.h>

#include <gtest/gtest.h>

#include "support/archive/archived_fields.h"

namespace {

TEST(Image, IsNullForNullData) { EXPECT_EQ(OVImage::imageWithData(nullptr), nullptr); }

TEST(Image, HoldsTheVeryDataItWasMadeOf) {
  const auto data = OVData::dataWithText("no image at all");
  EXPECT_EQ(OVImage::imageWithData(data)->data(), data);
}

TEST(Image, MayBeOfEmptyData) {
  EXPECT_EQ(OVImage::imageWithData(OVData::dataWithText(""))->data()->size(), 0U);
}

TEST(Image, KeepsWhatAnArchiveHeldInPlaceOfItsData) {
  const auto read = restored<OVImage>(archivedAs("OVImage", {{"data", OVString("text")}}));
  ASSERT_NE(read, nullptr);
  EXPECT_EQ(read->data(), nullptr);
  EXPECT_EQ(ov::cast<OVString>(ArchivedForm(read).object("data")), "text");
}

}  // namespace
