#include <algorithm>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/dictionary.h>

#include "support/printers.h"

namespace {

using Texts = OVDictionary<OVString>;

ov::detail::DictionaryObject& tableOf(const Texts& dictionary) {
  return static_cast<ov::detail::DictionaryObject&>(*dictionary.object());
}
using Model = std::vector<std::pair<OVString, OVString>>;

/// What the dictionary promises, in its simplest form.
struct Reference {
  Model entries;

  Model::iterator find(const OVString& key) {
    return std::ranges::find(entries, key, &Model::value_type::first);
  }
  void set(const OVString& key, const OVString& value) {
    if (const auto at = find(key); at != entries.end()) {
      at->second = value;
    } else {
      entries.emplace_back(key, value);
    }
  }
  bool erase(const OVString& key) {
    const auto at = find(key);
    if (at == entries.end()) return false;
    entries.erase(at);
    return true;
  }
};

void expectEqual(const Texts& dictionary, Reference& reference) {
  ASSERT_EQ(dictionary.size(), reference.entries.size());
  ASSERT_EQ(Model(dictionary.begin(), dictionary.end()), reference.entries);
  for (const auto& [key, value] : reference.entries) ASSERT_EQ(dictionary[key], value);
}

class DictionaryOfSize : public testing::TestWithParam<int> {};

TEST_P(DictionaryOfSize, KeepsOrderAndFindsEveryKey) {
  const auto dictionary = Texts::dictionary();
  Reference reference;
  for (int i = 0; i < GetParam(); ++i) {
    const std::string key = "key " + std::to_string(i * 7919 % GetParam());
    dictionary.set(key, std::to_string(i));
    reference.set(key, std::to_string(i));
    EXPECT_FALSE(dictionary.contains("absent"));
  }
  expectEqual(dictionary, reference);
}

TEST_P(DictionaryOfSize, TakesEntriesAtOnceAndKeepsTheFirstOfEqualKeys) {
  const auto dictionary = Texts::dictionary({{"replaced", "x"}});
  Reference reference;
  std::vector<ov::detail::DictionaryObject::Entry> entries;
  for (int i = 0; i < 2 * GetParam(); ++i) {
    const OVString key = "key " + std::to_string(i * 7919 % GetParam());
    const OVString value = std::to_string(i);
    entries.push_back({key, value});
    if (reference.find(key) == reference.entries.end()) reference.set(key, value);
  }
  tableOf(dictionary).assign(std::move(entries));
  expectEqual(dictionary, reference);

  for (int i = 0; i < 20; ++i) {
    const OVString key = "another " + std::to_string(i);
    dictionary.set(key, "y");
    reference.set(key, "y");
  }
  EXPECT_EQ(dictionary.erase("key 0"), reference.erase("key 0"));
  expectEqual(dictionary, reference);
}

TEST_P(DictionaryOfSize, CanBeEmptiedFromEitherEnd) {
  for (const bool fromFront : {true, false}) {
    const auto dictionary = Texts::dictionary();
    for (int i = 0; i < GetParam(); ++i) dictionary.set(std::to_string(i), "x");
    for (int i = 0; i < GetParam(); ++i) {
      EXPECT_TRUE(dictionary.erase(std::to_string(fromFront ? i : GetParam() - 1 - i)));
      EXPECT_EQ(std::distance(dictionary.begin(), dictionary.end()), GetParam() - 1 - i);
    }
    EXPECT_TRUE(dictionary.empty());
  }
}

// Up to 8 entries a look-up walks them, from 9 on it hashes.
INSTANTIATE_TEST_SUITE_P(, DictionaryOfSize, testing::Values(1, 7, 8, 9, 10, 16, 17, 1000),
                         testing::PrintToStringParamName());

class DictionaryUnderRandomUse : public testing::TestWithParam<int> {};

TEST_P(DictionaryUnderRandomUse, BehavesLikeAListOfPairs) {
  std::mt19937 random(static_cast<unsigned>(GetParam()));
  const auto dictionary = Texts::dictionary();
  Reference reference;
  for (int step = 0; step < 2000; ++step) {
    const std::string key = std::to_string(random() % static_cast<unsigned>(GetParam()));
    if (random() % 100 < 55) {
      dictionary.set(key, std::to_string(step));
      reference.set(key, std::to_string(step));
    } else {
      ASSERT_EQ(dictionary.erase(key), reference.erase(key));
    }
    ASSERT_EQ(dictionary.contains(key), reference.find(key) != reference.entries.end());
    if (step % 50 == 0) expectEqual(dictionary, reference);
  }
  expectEqual(dictionary, reference);
}

INSTANTIATE_TEST_SUITE_P(, DictionaryUnderRandomUse, testing::Values(2, 9, 30, 500),
                         testing::PrintToStringParamName());

TEST(DictionaryGrowth, ErasingAndAddingForEverTakesNoEverMoreRoom) {
  const auto dictionary = Texts::dictionary({{"kept", "x"}});
  for (int i = 0; i < 10000; ++i) {
    dictionary.set(std::to_string(i), "x");
    dictionary.erase(std::to_string(i));
  }
  EXPECT_EQ(dictionary.size(), 1U);
  EXPECT_LT(tableOf(dictionary).entries().size(), 100U);
}

}  // namespace
