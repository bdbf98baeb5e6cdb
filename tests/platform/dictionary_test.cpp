#include <concepts>
#include <iterator>
#include <ranges>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/dictionary.h>

#include "support/printers.h"

using testing::ElementsAre;
using testing::Pair;

namespace {

using Texts = OVDictionary<OVString>;
using Dates = OVDictionary<OVDate>;

static_assert(std::forward_iterator<Texts::const_iterator>);
static_assert(std::ranges::forward_range<const Texts&>);
static_assert(!std::convertible_to<OVDictionary<const OVString>, Texts>);

template <class Dictionary>
concept CanGrow = requires(Dictionary dictionary) {
  dictionary.set("key", "x");
};
static_assert(CanGrow<Texts> && !CanGrow<OVDictionary<const OVString>>);
static_assert(!std::convertible_to<OVDictionary<const OVString>, OVRef<OVObject>>);

std::vector<std::pair<OVString, OVString>> entriesOf(const Texts& dictionary) {
  return {dictionary.begin(), dictionary.end()};
}

TEST(Dictionary, IsNewAndEmptyOrOfTheGivenEntries) {
  EXPECT_TRUE(Texts::dictionary().empty());
  const auto empty = Texts::dictionary();
  EXPECT_EQ(empty.begin(), empty.end());
  EXPECT_NE(Texts::dictionary(), Texts::dictionary());
  EXPECT_THAT(entriesOf(Texts::dictionary({{"b", "2"}, {"a", "1"}})),
              ElementsAre(Pair("b", "2"), Pair("a", "1")));
}

TEST(Dictionary, FindsByTheCharactersOfTheKey) {
  const auto date = OVDate::dateWithTimeIntervalSinceReferenceDate(0);
  const auto dictionary = Dates::dictionary({{"Zoë", date}, {"", date}});
  EXPECT_EQ(dictionary["Zoë"], date);
  EXPECT_EQ(dictionary[std::string("Zo\xC3\xAB")], date);
  EXPECT_EQ(dictionary["Zoe"], nullptr);
  EXPECT_TRUE(dictionary.contains(""));
  EXPECT_EQ((*dictionary.find("Zoë")).first, "Zoë");
  EXPECT_EQ(dictionary.find("zoë"), dictionary.end());
}

TEST(Dictionary, ANullKeyIsNeverThere) {
  const auto dictionary = Texts::dictionary({{"", "empty"}});
  EXPECT_TRUE(dictionary[nullptr].isNull());
  EXPECT_FALSE(dictionary.contains(nullptr));
  EXPECT_EQ(dictionary.find(OVString()), dictionary.end());
  EXPECT_FALSE(dictionary.erase(nullptr));
  EXPECT_EQ(dictionary.size(), 1U);
}

TEST(Dictionary, TakesNeitherANullKeyNorANullValue) {
  const auto dictionary = Texts::dictionary({{"a", "1"}});
  EXPECT_THROW(dictionary.set(nullptr, "x"), std::invalid_argument);
  EXPECT_THROW(dictionary.set("a", nullptr), std::invalid_argument);
  EXPECT_THROW(dictionary.set("b", nullptr), std::invalid_argument);
  EXPECT_THROW(Dates::dictionary().set("a", nullptr), std::invalid_argument);
  EXPECT_THAT(entriesOf(dictionary), ElementsAre(Pair("a", "1")));
}

TEST(Dictionary, TheMessageOfARefusalNamesTheKey) {
  try {
    Texts::dictionary().set("Birthday", nullptr);
    FAIL();
  } catch (const std::invalid_argument& error) {
    EXPECT_THAT(error.what(), testing::HasSubstr("\"Birthday\""));
  }
}

TEST(Dictionary, SettingAgainReplacesInTheSamePlace) {
  const auto dictionary = Texts::dictionary({{"a", "1"}, {"b", "2"}, {"c", "3"}});
  dictionary.set("a", "one");
  EXPECT_THAT(entriesOf(dictionary), ElementsAre(Pair("a", "one"), Pair("b", "2"), Pair("c", "3")));
}

TEST(Dictionary, AddingAgainAfterErasingGoesToTheEnd) {
  const auto dictionary = Texts::dictionary({{"a", "1"}, {"b", "2"}, {"c", "3"}});
  EXPECT_TRUE(dictionary.erase("a"));
  EXPECT_FALSE(dictionary.erase("a"));
  EXPECT_FALSE(dictionary.contains("a"));
  EXPECT_EQ(dictionary.size(), 2U);
  dictionary.set("a", "again");
  EXPECT_THAT(entriesOf(dictionary),
              ElementsAre(Pair("b", "2"), Pair("c", "3"), Pair("a", "again")));
}

TEST(Dictionary, ErasingTheLastEntryLeavesItEmpty) {
  const auto dictionary = Texts::dictionary({{"a", "1"}});
  dictionary.erase("a");
  EXPECT_TRUE(dictionary.empty());
  EXPECT_EQ(dictionary.begin(), dictionary.end());
}

TEST(Dictionary, ClearsAndFillsAgain) {
  const auto dictionary = Texts::dictionary();
  for (int i = 0; i < 20; ++i) dictionary.set(std::to_string(i), "x");
  dictionary.clear();
  EXPECT_TRUE(dictionary.empty());
  EXPECT_FALSE(dictionary.contains("3"));
  dictionary.set("3", "again");
  EXPECT_THAT(entriesOf(dictionary), ElementsAre(Pair("3", "again")));
}

TEST(Dictionary, AChangeThroughOneReferenceShowsInAll) {
  const auto dictionary = Texts::dictionary();
  const Texts other = dictionary;
  other.set("a", "1");
  EXPECT_EQ(dictionary["a"], "1");
}

TEST(Dictionary, ALoopMayTakeEntriesByReference) {
  std::vector<OVString> seen;
  for (auto& [key, value] : Texts::dictionary({{"a", "1"}, {"b", "2"}})) seen.push_back(value);
  EXPECT_THAT(seen, ElementsAre("1", "2"));
}

TEST(Dictionary, AddingOrRemovingWhileWalkingIsRaised) {
  const auto dictionary = Texts::dictionary({{"a", "1"}, {"b", "2"}});
  const auto add = [&dictionary] {
    for (const auto& [key, value] : dictionary) dictionary.set(key.str() + "'", value);
  };
  const auto remove = [&dictionary] {
    for (const auto& [key, value] : dictionary) dictionary.erase(key);
  };
  EXPECT_THROW(add(), std::logic_error);
  EXPECT_THROW(remove(), std::logic_error);
  EXPECT_THAT(entriesOf(dictionary), ElementsAre(Pair("b", "2"), Pair("a'", "1")));
}

TEST(Dictionary, ReplacingValuesWhileWalkingIsNoChangeOfItsEntries) {
  const auto dictionary = Texts::dictionary({{"a", "1"}, {"b", "2"}});
  for (const auto& [key, value] : dictionary) dictionary.set(key, value.str() + "!");
  EXPECT_THAT(entriesOf(dictionary), ElementsAre(Pair("a", "1!"), Pair("b", "2!")));
}

TEST(Dictionary, RaisesPastItsEndAndAtNothing) {
  const auto dictionary = Texts::dictionary({{"a", "1"}});
  EXPECT_THROW(static_cast<void>(*dictionary.end()), std::out_of_range);
  EXPECT_THROW(static_cast<void>(*dictionary.find("b")), std::out_of_range);
  Texts::const_iterator nothing;
  EXPECT_THROW(static_cast<void>(*nothing), std::out_of_range);
  EXPECT_THROW(static_cast<void>(*++nothing), std::out_of_range);
}

TEST(Dictionary, ItsIteratorsKeepItAlive) {
  const auto found = Texts::dictionary({{"a", "1"}}).find("a");
  EXPECT_EQ(found->second, "1");
  auto dictionary = Texts::dictionary({{"a", "1"}, {"b", "2"}});
  std::vector<OVString> seen;
  for (const auto& [key, value] : dictionary) {
    dictionary = nullptr;
    seen.push_back(value);
  }
  EXPECT_THAT(seen, ElementsAre("1", "2"));
}

TEST(Dictionary, ACopyIsAnotherDictionaryOfTheSameEntries) {
  const auto date = OVDate::dateWithTimeIntervalSinceReferenceDate(0);
  const auto dictionary = Dates::dictionary({{"gone", date}, {"b", date}, {"a", date}});
  dictionary.erase("gone");
  const auto copy = dictionary.copy();
  dictionary.clear();
  EXPECT_EQ(copy.size(), 2U);
  EXPECT_EQ(copy.begin()->first, "b");
  EXPECT_EQ(copy["a"], date);
  EXPECT_FALSE(copy.contains("gone"));
  EXPECT_FALSE(copy.contains(""));
  EXPECT_TRUE(Dates().copy().isNull());
}

TEST(Dictionary, ACopyOfALargeDictionaryFindsWhatItHolds) {
  const auto dictionary = Texts::dictionary();
  for (int i = 0; i < 100; ++i) dictionary.set(std::to_string(i), "x");
  for (int i = 0; i < 40; ++i) dictionary.erase(std::to_string(i));
  const auto copy = dictionary.copy();
  EXPECT_EQ(copy.size(), 60U);
  EXPECT_FALSE(copy.contains("39"));
  EXPECT_TRUE(copy.contains("40"));
  copy.set("", "empty");
  EXPECT_EQ(copy[""], "empty");
}

TEST(Dictionary, WalkingThroughACopyMayChangeIt) {
  const auto dictionary = Texts::dictionary({{"a", "1"}, {"b", "2"}});
  for (const auto& [key, value] : dictionary.copy()) dictionary.erase(key);
  EXPECT_TRUE(dictionary.empty());
}

TEST(NullDictionary, ReadsAsEmpty) {
  const Texts null;
  EXPECT_TRUE(null.isNull());
  EXPECT_FALSE(null);
  EXPECT_EQ(null, nullptr);
  EXPECT_NE(null, Texts::dictionary());
  EXPECT_TRUE(null.empty());
  EXPECT_EQ(null.begin(), null.end());
  EXPECT_EQ(null.find("a"), null.end());
  EXPECT_FALSE(null.contains("a"));
  EXPECT_TRUE(null["a"].isNull());
  EXPECT_FALSE(null.isImmutable());
  EXPECT_EQ(OVRef<OVObject>(null), nullptr);
}

TEST(NullDictionary, CannotBeChanged) {
  const Texts null;
  EXPECT_THROW(null.set("a", "1"), std::logic_error);
  EXPECT_THROW(null.erase("a"), std::logic_error);
  EXPECT_THROW(null.clear(), std::logic_error);
}

}  // namespace
