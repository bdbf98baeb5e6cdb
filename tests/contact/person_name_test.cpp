#include <OVAddressBookSDK/person_name.h>

#include <gtest/gtest.h>

#include "support/printers.h"

namespace {

OVRef<OVObjectPersonName> nameOf(const OVString& first, const OVString& middle,
                                 const OVString& last) {
  return OVObjectPersonName::initWithFirstMiddleLast(first, middle, last);
}

TEST(PersonName, KeepsItsParts) {
  const auto name = nameOf("John", "Paul", "Smith");
  EXPECT_EQ(name->first(), "John");
  EXPECT_EQ(name->middle(), "Paul");
  EXPECT_EQ(name->last(), "Smith");
}

TEST(PersonName, ThreeNullsAreRefused) { EXPECT_EQ(nameOf(nullptr, nullptr, nullptr), nullptr); }

TEST(PersonName, EmptyTextsAreRefusedLikeNulls) {
  EXPECT_EQ(nameOf("", "", nullptr), nullptr);
  EXPECT_EQ(nameOf("", "", ""), nullptr);
  EXPECT_EQ(nameOf(nullptr, "", nullptr), nullptr);
}

TEST(PersonName, OnePartOfAnyKindIsEnough) {
  EXPECT_EQ(nameOf("a", nullptr, nullptr)->first(), "a");
  EXPECT_EQ(nameOf(nullptr, "b", nullptr)->middle(), "b");
  EXPECT_EQ(nameOf(nullptr, nullptr, "c")->last(), "c");
}

TEST(PersonName, EmptyPartBecomesNull) {
  const auto name = nameOf("John", "", "");
  EXPECT_EQ(name->middle(), nullptr);
  EXPECT_EQ(name->last(), nullptr);
}

TEST(PersonName, LineBreaksInsideAPartAreDropped) {
  const auto name = nameOf("Jo\r\nhn", "\u0085Pa\u0085ul\u0085", "\nSmi\rth\n");
  EXPECT_EQ(name->first(), "John");
  EXPECT_EQ(name->middle(), "Paul");
  EXPECT_EQ(name->last(), "Smith");
}

TEST(PersonName, SpacesAreKept) {
  EXPECT_EQ(nameOf("  Ann  ", nullptr, nullptr)->first(), "  Ann  ");
}

TEST(PersonName, PartsOfLineBreaksOnlyCountAsGivenAndBecomeNull) {
  const auto name = nameOf("\n", nullptr, nullptr);
  ASSERT_NE(name, nullptr);
  EXPECT_EQ(name->first(), nullptr);
  EXPECT_EQ(name->middle(), nullptr);
  EXPECT_EQ(name->last(), nullptr);
  EXPECT_EQ(name->displayString(), "");
  EXPECT_NE(nameOf(nullptr, "\r", ""), nullptr);
  EXPECT_NE(nameOf("", nullptr, "\u0085"), nullptr);
}

TEST(PersonName, NamesAreComparedByIdentity) {
  EXPECT_NE(nameOf("a", nullptr, nullptr), nameOf("a", nullptr, nullptr));
}

class StandString : public testing::Test {
 protected:
  OVString stand(const OVString& text) const { return name_->standString(text); }

 private:
  const OVRef<OVObjectPersonName> name_ = nameOf("any", nullptr, nullptr);
};

TEST_F(StandString, OfNullIsNull) { EXPECT_EQ(stand(nullptr), nullptr); }

TEST_F(StandString, OfNothingIsNull) {
  EXPECT_EQ(stand(""), nullptr);
  EXPECT_EQ(stand("\n\r\u0085\n"), nullptr);
}

TEST_F(StandString, DropsTheThreeLineBreaks) {
  EXPECT_EQ(stand("a\nb"), "ab");
  EXPECT_EQ(stand("a\rb"), "ab");
  EXPECT_EQ(stand("a\u0085b"), "ab");
}

TEST_F(StandString, KeepsEverythingElse) {
  for (const OVString text : {" \t ", "\u2028", "\u2029", "\v\f", "\u00A0", "\u0084\u0086", "ą",
                              "\U0001F600", "a b", "\u5085"}) {
    EXPECT_EQ(stand(text), text);
  }
}

TEST_F(StandString, KeepsCharactersThatShareBytesWithNextLine) {
  EXPECT_EQ(stand("\u00C5\u0105\u0145"), "\u00C5\u0105\u0145");
  EXPECT_EQ(stand("\U00010085\n"), "\U00010085");
}

TEST_F(StandString, KeepsNulCharacters) {
  const std::string text("a\0b\n", 4);
  EXPECT_EQ(stand(text), std::string("a\0b", 3));
}

TEST_F(StandString, TextWithoutLineBreaksKeepsItsIdentity) {
  const OVString text = "John";
  EXPECT_TRUE(stand(text).isSame(text));
}

}  // namespace
