// Dictionaries while memory runs out: a call changes all that it is to change, or nothing.

#include <string>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/dictionary.h>

#include "support/memory/failing_memory.h"

namespace {

using Texts = OVDictionary<OVString>;

OVString keyOf(int number) { return std::to_string(number); }

/// A dictionary whose table has just become too small for another entry.
Texts texts(int count) {
  auto dictionary = Texts::dictionary();
  for (int i = 0; i < count; ++i) dictionary.set(keyOf(i), "text");
  return dictionary;
}

void expectKeys(const Texts& dictionary, int first, int end) {
  EXPECT_EQ(dictionary.size(), static_cast<std::size_t>(end - first));
  for (int i = first; i < end; ++i) EXPECT_TRUE(dictionary.contains(keyOf(i))) << i;
  EXPECT_FALSE(dictionary.contains(keyOf(first - 1)));
  EXPECT_FALSE(dictionary.contains(keyOf(end)));
}

TEST(DictionaryShortage, AnEntryIsSetOrTheDictionaryIsAsBefore) {
  for (int count = 0; count < 100; ++count) {
    const OVString key = keyOf(count);
    const OVString value = "text";
    for (long failing = 1, felt = 1; felt != 0; ++failing) {
      const auto dictionary = texts(count);
      bool failed = false;
      try {
        const MemoryShortage shortage(MemoryShortage::Kind::lasting, failing);
        dictionary.set(key, value);
      } catch (const std::bad_alloc&) {
        failed = true;
      }
      felt = failed ? 1 : 0;
      expectKeys(dictionary, 0, failed ? count : count + 1);
      dictionary.set(key, value);
      expectKeys(dictionary, 0, count + 1);
    }
  }
}

TEST(DictionaryShortage, RemovingNeedsNoMemory) {
  constexpr int kCount = 100;
  const auto dictionary = texts(kCount);
  for (int i = 0; i < kCount; ++i) {
    const OVString key = keyOf(i);
    {
      const MemoryShortage shortage(MemoryShortage::Kind::lasting, 1);
      EXPECT_TRUE(dictionary.erase(key));
    }
    expectKeys(dictionary, i + 1, kCount);
  }
}

}  // namespace
