#include <OVAddressBookSDK/data.h>

#include <cstddef>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/text.h>

namespace {

TEST(Data, CopiesTheBytes) {
  std::string source("a\0\xFF", 3);
  const auto data = OVData::dataWithText(source);
  source.assign("xyz");
  EXPECT_EQ(data->text(), std::string_view("a\0\xFF", 3));
  EXPECT_EQ(data->size(), 3U);
  EXPECT_EQ(data->bytes()[2], std::byte{0xFF});
}

TEST(Data, MayBeEmpty) {
  EXPECT_EQ(OVData::dataWithText("")->size(), 0U);
  EXPECT_EQ(OVData::dataWithBytes({})->text(), "");
  EXPECT_EQ(OVData::dataWithVector({})->size(), 0U);
}

TEST(Data, TakesAVectorOverWithoutCopying) {
  std::vector<std::byte> bytes(1000, std::byte{7});
  const std::byte* place = bytes.data();
  const auto data = OVData::dataWithVector(std::move(bytes));
  EXPECT_EQ(data->bytes().data(), place);
  EXPECT_EQ(data->size(), 1000U);
}

TEST(Data, KeepsTheOwnerOfItsBytes) {
  auto owner = std::make_shared<const std::string>("owned elsewhere");
  const std::weak_ptr<const std::string> watched = owner;
  const auto bytes = std::as_bytes(std::span(*owner));
  auto data = OVData::dataWithBytesNoCopy(bytes, std::move(owner));
  EXPECT_EQ(data->bytes().data(), bytes.data());
  EXPECT_FALSE(watched.expired());
  data.reset();
  EXPECT_TRUE(watched.expired());
}

TEST(Data, ItsTextAndBytesOutliveIt) {
  auto data = OVData::dataWithText("abc");
  const auto text = data->text();
  const auto bytes = data->bytes();
  data.reset();
  EXPECT_EQ(text, "abc");
  std::string walked;
  for (const std::byte byte : bytes) walked.push_back(static_cast<char>(byte));
  EXPECT_EQ(walked, "abc");
  for (const char c : OVData::dataWithText("de")->text()) walked.push_back(c);
  EXPECT_EQ(walked, "abcde");
}

TEST(Data, TextIsWrittenAndComparedAsOneExpects) {
  std::ostringstream stream;
  stream << OVData::dataWithText("a\n")->text() << OVData::dataWithText("")->text() << 'b';
  EXPECT_EQ(stream.str(), "a\nb");
  EXPECT_TRUE(OVData::dataWithText("a")->text() == OVData::dataWithText("a")->text());
  EXPECT_TRUE(OVData::dataWithText("a")->text() != OVData::dataWithText("b")->text());
  EXPECT_TRUE(OVString("a") == OVData::dataWithText("a")->text());
  EXPECT_EQ(std::string(OVData::dataWithText("a")->text()), "a");
  EXPECT_TRUE(OVData::dataWithText("")->text().empty());
  EXPECT_EQ(OVData::dataWithText("ab")->bytes().size(), 2U);
}

TEST(Data, EqualBytesMadeApartAreTwoObjects) {
  EXPECT_NE(OVData::dataWithText("same"), OVData::dataWithText("same"));
}

}  // namespace
