#include <algorithm>
#include <concepts>
#include <iterator>
#include <ranges>
#include <stdexcept>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/list.h>

#include "support/printers.h"

using testing::ElementsAre;

namespace {

using Texts = OVList<OVString>;
using Dates = OVList<OVDate>;

static_assert(std::random_access_iterator<Texts::const_iterator>);
static_assert(std::ranges::random_access_range<const Texts&>);
static_assert(std::convertible_to<Texts, OVList<const OVString>>);
static_assert(!std::convertible_to<OVList<const OVString>, Texts>);
static_assert(sizeof(Texts) == sizeof(OVRef<OVObject>));

template <class List>
concept CanGrow = requires(List list) {
  list.push_back("x");
};
static_assert(CanGrow<Texts> && !CanGrow<OVList<const OVString>>);

// A list that is to be read only does not become another one by itself.
static_assert(std::convertible_to<Texts, OVRef<OVObject>>);
static_assert(!std::convertible_to<OVList<const OVString>, OVRef<OVObject>>);

std::vector<OVString> textsOf(const Texts& list) { return {list.begin(), list.end()}; }

OVRef<OVDate> newDate() { return OVDate::dateWithTimeIntervalSinceReferenceDate(0); }

TEST(List, IsNewAndEmptyOrOfTheGivenElements) {
  EXPECT_TRUE(Texts::list().empty());
  const auto empty = Texts::list();
  EXPECT_EQ(empty.begin(), empty.end());
  EXPECT_NE(Texts::list(), Texts::list());
  EXPECT_THAT(textsOf(Texts::list({"a", "b", "a"})), ElementsAre("a", "b", "a"));
}

TEST(List, KeepsTheOrderOfItsElements) {
  const auto list = Texts::list();
  list.push_back("b");
  list.insert(0, "a");
  list.insert(2, "d");
  list.insert(2, "c");
  EXPECT_THAT(textsOf(list), ElementsAre("a", "b", "c", "d"));
  EXPECT_EQ(list.size(), 4U);
  EXPECT_EQ(list.front(), "a");
  EXPECT_EQ(list.back(), "d");
  EXPECT_EQ(list[2], "c");
}

TEST(List, TakesTheVeryObject) {
  const auto date = newDate();
  const OVString text("text");
  EXPECT_EQ(Dates::list({date}).front(), date);
  EXPECT_TRUE(Texts::list({text}).front().isSame(text));
}

TEST(List, TakesTheSameObjectTwice) {
  const auto date = newDate();
  const auto list = Dates::list({date, date});
  EXPECT_EQ(list.size(), 2U);
  EXPECT_EQ(list[0], list[1]);
}

TEST(List, TakesNothingNull) {
  EXPECT_THROW(static_cast<void>(Texts::list({OVString()})), std::invalid_argument);
  const auto list = Dates::list({newDate()});
  EXPECT_THROW(list.push_back(nullptr), std::invalid_argument);
  EXPECT_THROW(list.insert(0, nullptr), std::invalid_argument);
  EXPECT_THROW(list.set(0, nullptr), std::invalid_argument);
  EXPECT_EQ(list.size(), 1U);
  EXPECT_NE(list.front(), nullptr);
}

TEST(List, RaisesPastTheEnd) {
  const auto list = Texts::list({"only"});
  EXPECT_THROW(static_cast<void>(list[1]), std::out_of_range);
  EXPECT_THROW(list.insert(2, "x"), std::out_of_range);
  EXPECT_THROW(list.set(1, "x"), std::out_of_range);
  EXPECT_THROW(list.erase(1), std::out_of_range);
  EXPECT_THROW(static_cast<void>(Texts::list().front()), std::out_of_range);
  EXPECT_THROW(static_cast<void>(Texts::list().back()), std::out_of_range);
  EXPECT_THAT(textsOf(list), ElementsAre("only"));
}

TEST(List, ReplacesInPlace) {
  const auto list = Texts::list({"a", "b", "c"});
  list.set(1, "B");
  list.set(2, "C");
  EXPECT_THAT(textsOf(list), ElementsAre("a", "B", "C"));
}

TEST(List, ErasesAndClears) {
  const auto list = Texts::list({"a", "b", "c"});
  list.erase(1);
  EXPECT_THAT(textsOf(list), ElementsAre("a", "c"));
  list.clear();
  EXPECT_TRUE(list.empty());
  list.push_back("again");
  EXPECT_THAT(textsOf(list), ElementsAre("again"));
}

TEST(List, FindsTextsByTheirCharacters) {
  const auto list = Texts::list({"a", "b", "b"});
  EXPECT_EQ(list.find("b") - list.begin(), 1);
  EXPECT_EQ(list.find("c"), list.end());
  EXPECT_TRUE(list.contains("a"));
  EXPECT_FALSE(list.contains(""));
  EXPECT_FALSE(list.contains(nullptr));
}

TEST(List, FindsObjectsByIdentity) {
  const auto date = newDate();
  const auto list = Dates::list({newDate(), date});
  EXPECT_EQ(list.find(date) - list.begin(), 1);
  EXPECT_FALSE(list.contains(newDate()));
}

TEST(List, RemovesEveryEqualElement) {
  const auto list = Texts::list({"a", "b", "a", "c", "a"});
  EXPECT_EQ(list.remove("a"), 3U);
  EXPECT_EQ(list.remove("a"), 0U);
  EXPECT_THAT(textsOf(list), ElementsAre("b", "c"));
}

TEST(List, IteratesLikeAContainer) {
  const auto list = Texts::list({"c", "a", "b"});
  auto at = list.begin();
  EXPECT_EQ(*at++, "c");
  EXPECT_EQ(*at--, "a");
  EXPECT_EQ(at[2], "b");
  EXPECT_EQ(*(2 + at), "b");
  EXPECT_LT(at, list.end());
  EXPECT_EQ(list.end() - at, 3);
  EXPECT_EQ(std::ranges::min(list), "a");
}

TEST(List, ALoopMayTakeElementsByReference) {
  std::vector<OVString> seen;
  for (auto& text : Texts::list({"a", "b"})) seen.push_back(text);
  EXPECT_THAT(seen, ElementsAre("a", "b"));
}

TEST(List, RaisesPastItsEndAndAtNothing) {
  const auto list = Texts::list({"a"});
  EXPECT_THROW(static_cast<void>(*list.end()), std::out_of_range);
  EXPECT_THROW(static_cast<void>(*list.find("b")), std::out_of_range);
  EXPECT_THROW(static_cast<void>(*Texts::const_iterator()), std::out_of_range);
}

TEST(List, ItsIteratorsKeepItAlive) {
  auto first = Texts::list({"a", "b"}).begin();
  EXPECT_EQ(*first, "a");
  EXPECT_EQ(*++first, "b");
  EXPECT_EQ(*Texts::list({"a", "b"}).find("b"), "b");
  auto list = Texts::list({"a", "b"});
  std::vector<OVString> seen;
  for (const auto& text : list) {
    list = nullptr;
    seen.push_back(text);
  }
  EXPECT_THAT(seen, ElementsAre("a", "b"));
}

TEST(List, ItsIteratorsPointToElements) {
  const auto list = Texts::list({"abc"});
  EXPECT_EQ(list.begin()->size(), 3U);
}

TEST(List, AddingWhileWalkingIsRaised) {
  const auto list = Texts::list({"a"});
  const auto doubleIt = [&list] {
    for (const auto& text : list) list.push_back(text);
  };
  EXPECT_THROW(doubleIt(), std::logic_error);
  EXPECT_THAT(textsOf(list), ElementsAre("a", "a"));
}

TEST(List, RemovingWhileWalkingIsRaised) {
  const auto list = Texts::list({"a", "b", "c"});
  const auto removeAll = [&list] {
    for (const auto& text : list) list.remove(text);
  };
  EXPECT_THROW(removeAll(), std::logic_error);
  EXPECT_THAT(textsOf(list), ElementsAre("b", "c"));
}

TEST(List, ReplacingWhileWalkingIsNoChangeOfItsElements) {
  const auto list = Texts::list({"a", "b"});
  std::size_t position = 0;
  for (const auto& text : list) list.set(position++, text.str() + "!");
  EXPECT_THAT(textsOf(list), ElementsAre("a!", "b!"));
}

TEST(List, OrdersItsElementsAndKeepsTheOrderOfEqualOnes) {
  const auto list = Texts::list({"bb", "a", "cc", "d"});
  list.sort([](const OVString& a, const OVString& b) { return a.size() < b.size(); });
  EXPECT_THAT(textsOf(list), ElementsAre("a", "d", "bb", "cc"));
}

TEST(List, OrderingThatFailsLeavesItAsItWas) {
  const auto list = Texts::list({"c", "b", "a"});
  const auto fail = [](const OVString& a, const OVString& b) {
    if (a == "a" || b == "a") throw std::runtime_error("no order");
    return a < b;
  };
  EXPECT_THROW(list.sort(fail), std::runtime_error);
  EXPECT_THAT(textsOf(list), ElementsAre("c", "b", "a"));
}

TEST(List, ChangingWhileOrderingIsRaised) {
  const auto list = Texts::list({"b", "a"});
  const auto grow = [&list](const OVString& a, const OVString& b) {
    list.push_back("c");
    return a < b;
  };
  EXPECT_THROW(list.sort(grow), std::logic_error);
  EXPECT_EQ(list.front(), "b");
  EXPECT_EQ(list.back(), "c");
}

TEST(List, OrderingWhileWalkingIsRaised) {
  const auto list = Texts::list({"b", "a"});
  const auto walk = [&list] {
    for ([[maybe_unused]] const auto& text : list)
      list.sort([](const auto& a, const auto& b) { return a < b; });
  };
  EXPECT_THROW(walk(), std::logic_error);
}

TEST(NullList, ReadsAsEmpty) {
  const Texts null;
  EXPECT_TRUE(null.isNull());
  EXPECT_FALSE(null);
  EXPECT_EQ(null, nullptr);
  EXPECT_NE(null, Texts::list());
  EXPECT_TRUE(null.empty());
  EXPECT_EQ(null.begin(), null.end());
  EXPECT_EQ(null.find("a"), null.end());
  EXPECT_FALSE(null.contains("a"));
  EXPECT_FALSE(null.isImmutable());
  EXPECT_TRUE(null.copy().isNull());
  EXPECT_THROW(static_cast<void>(null[0]), std::out_of_range);
  EXPECT_EQ(OVRef<OVObject>(null), nullptr);
}

TEST(NullList, CannotBeChanged) {
  const Texts null;
  EXPECT_THROW(null.push_back("a"), std::logic_error);
  EXPECT_THROW(null.set(0, "a"), std::logic_error);
  EXPECT_THROW(null.erase(0), std::logic_error);
  EXPECT_THROW(null.remove("a"), std::logic_error);
  EXPECT_THROW(null.clear(), std::logic_error);
}

TEST(List, ACopyIsAnotherListOfTheSameElements) {
  const auto date = newDate();
  const auto list = Dates::list({date});
  const auto copy = list.copy();
  list.clear();
  EXPECT_EQ(copy.size(), 1U);
  EXPECT_EQ(copy.front(), date);
}

TEST(List, ACopyOfAnImmutableListIsMutable) {
  EXPECT_TRUE(Texts::immutableList().isImmutable());
  EXPECT_FALSE(Texts::immutableList().copy().isImmutable());
  EXPECT_FALSE(Texts::list().isImmutable());
}

}  // namespace
