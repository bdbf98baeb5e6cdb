#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include <OVAddressBookSDK/locale.h>

#include "support/printers.h"

namespace {

std::vector<OVString> sortedIn(const char* identifier, std::vector<OVString> texts) {
  const auto locale = OVLocale::withIdentifier(identifier);
  std::ranges::sort(texts, {}, [&](const OVString& text) { return locale->sortKey(text); });
  return texts;
}

}  // namespace

TEST(SortKey, OrdersLettersAndNotCodes) {
  EXPECT_EQ(sortedIn("en_US", {"Zoe", "emil", "\u00c9mile", "Ann"}),
            (std::vector<OVString>{"Ann", "emil", "\u00c9mile", "Zoe"}));
}

TEST(SortKey, DependsOnTheLocale) {
  const std::vector<OVString> names{"Zorn", "\u00d6berg", "Olsen"};
  EXPECT_EQ(sortedIn("de_DE", names), (std::vector<OVString>{"\u00d6berg", "Olsen", "Zorn"}));
  EXPECT_EQ(sortedIn("sv_SE", names), (std::vector<OVString>{"Olsen", "Zorn", "\u00d6berg"}));
}

TEST(SortKey, WithoutALocaleIsThatOfMostLanguages) {
  EXPECT_EQ(sortedIn("en_US_POSIX", {"b", "A", "B", "a"}),
            (std::vector<OVString>{"a", "A", "b", "B"}));
}

TEST(SortKey, OrdersPartsOneAfterTheOther) {
  // "Li Bo" comes before "Lian An": the whole last name counts first.
  EXPECT_EQ(sortedIn("en_US", {"Lian\uFFFEAn", "Li\uFFFEBo"}),
            (std::vector<OVString>{"Li\uFFFEBo", "Lian\uFFFEAn"}));
}

TEST(SortKey, OfALongTextIsWhole) {
  const auto locale = OVLocale::withIdentifier("en_US");
  const std::string many(1000, 'x');
  EXPECT_LT(locale->sortKey(many + "a"), locale->sortKey(many + "b"));
}

TEST(SortKey, OfNullIsEmpty) { EXPECT_EQ(OVLocale::withIdentifier("en_US")->sortKey(nullptr), ""); }
