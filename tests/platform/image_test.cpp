#include <OVAddressBookSDK/image.h>

#include <gtest/gtest.h>

namespace {

TEST(Image, IsNullForNullData) { EXPECT_EQ(OVImage::imageWithData(nullptr), nullptr); }

TEST(Image, HoldsTheVeryDataItWasMadeOf) {
  const auto data = OVData::dataWithText("no image at all");
  EXPECT_EQ(OVImage::imageWithData(data)->data(), data);
}

TEST(Image, MayBeOfEmptyData) {
  EXPECT_EQ(OVImage::imageWithData(OVData::dataWithText(""))->data()->size(), 0U);
}

}  // namespace
