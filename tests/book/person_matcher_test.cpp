#include <gtest/gtest.h>

#include <OVAddressBookSDK/person_matcher.h>

#include "person_lists.h"
#include "support/fakes/fake_platform.h"

namespace {

class PersonMatcher : public testing::Test {
 protected:
  static bool finds(const OVString& typed, const ListedPerson& person) {
    return OVPersonMatcher(typed).matches(*person);
  }
  static bool isWithin(const OVString& typed, const OVString& before) {
    return OVPersonMatcher(typed).isWithin(OVPersonMatcher(before));
  }

  const FakePlatform platform_;
  const ListedPerson person_ = ListedPerson("1")
                                   .name("J\u00fcrgen", "Karl", "Gr\u00f6\u00dfling")
                                   .text(OVProPertyNickname, "Wattwurm")
                                   .text(OVProPertyCompany, "Institut f\u00fcr Gezeiten")
                                   .phone("+44 (55) 50-23")
                                   .email("jg@tide.example");
};

}  // namespace

TEST_F(PersonMatcher, FindsPartsOfNames) {
  for (const char* typed : {"j", "J\u00dcR", "jurgen", "gross", "karl", "watt", "gezeit", "fur"}) {
    EXPECT_TRUE(finds(typed, person_)) << typed;
  }
  EXPECT_FALSE(finds("jurgens", person_));
}

TEST_F(PersonMatcher, FindsDigitsOfPhones) {
  for (const char* typed : {"5550", "445550", "(55) 50", "+44 55 50", "023"}) {
    EXPECT_TRUE(finds(typed, person_)) << typed;
  }
  EXPECT_FALSE(finds("5551", person_));
  EXPECT_FALSE(finds("55502x", person_));
}

TEST_F(PersonMatcher, FindsEmailAddresses) { EXPECT_TRUE(finds("JG@Tide", person_)); }

TEST_F(PersonMatcher, NeedsEveryWord) {
  EXPECT_TRUE(finds("  gross jurgen ", person_));
  EXPECT_TRUE(finds("jurgen 5550", person_));
  EXPECT_FALSE(finds("gross mira", person_));
}

TEST_F(PersonMatcher, OfBlanksFindsEverybody) {
  EXPECT_TRUE(OVPersonMatcher(" \t").matchesAll());
  EXPECT_TRUE(finds(nullptr, ListedPerson("2")));
  EXPECT_FALSE(finds("a", ListedPerson("2")));
}

TEST_F(PersonMatcher, FindsNamesThatAreWrittenTogether) {
  const auto person = ListedPerson("1").name("\uc11c\uc5f0", nullptr, "\uae40");
  EXPECT_TRUE(finds("\uae40\uc11c\uc5f0", person));
}

TEST_F(PersonMatcher, LooksIntoNothingElse) {
  EXPECT_FALSE(finds("secret", ListedPerson("1").text(OVProPertyNote, "secret")));
}

TEST_F(PersonMatcher, ReadsValuesOfTheWrongShape) {
  EXPECT_FALSE(finds("x", ListedPerson("1").text(OVProPertyPhone, "x")));
  EXPECT_TRUE(finds("x", ListedPerson("1").text(OVProPertyCompany, "x")));
}

TEST_F(PersonMatcher, KnowsWhatTypingOnFinds) {
  EXPECT_TRUE(isWithin("jur", "ju"));
  EXPECT_TRUE(isWithin("ju k", "ju"));
  EXPECT_TRUE(isWithin("anything", ""));
  EXPECT_TRUE(isWithin("555", "55"));
  EXPECT_FALSE(isWithin("ju", "jur"));
  EXPECT_TRUE(isWithin("5x", "5"));
  EXPECT_FALSE(isWithin("+4", "+"));
  // One number or two words: "2 3" finds "2-3", "2 " and "3 " are wider.
  EXPECT_TRUE(isWithin("2 3", "2"));
  EXPECT_FALSE(isWithin("2 34", "2 3"));
}
