#include "platform/keyed_hash.h"

#include <set>
#include <string>

#include <gtest/gtest.h>

using ov::detail::KeyedHash;

namespace {

TEST(KeyedHash, EqualTextsHaveOneHash) {
  const std::string text = "some text that is longer than a word";
  EXPECT_EQ(KeyedHash()(text), KeyedHash()(std::string(text)));
}

TEST(KeyedHash, EveryCharacterCounts) {
  std::set<std::size_t> hashes;
  for (std::size_t length = 0; length < 40; ++length) {
    std::string text(length, '\0');
    hashes.insert(KeyedHash()(text));
    for (char& each : text) {
      each = 'x';
      hashes.insert(KeyedHash()(text));
      each = '\0';
    }
  }
  EXPECT_EQ(hashes.size(), 40U + 40U * 39U / 2U);
}

}  // namespace
