#include "platform/keyed_hash.h"

#include <cstdio>
#include <cstdlib>
#include <set>
#include <string>

#include <gmock/gmock.h>
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

// Texts that collide in one process do not in another.
TEST(KeyedHash, EachProcessHasAKeyOfItsOwn) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const auto hashed = [] { return "hash " + std::to_string(KeyedHash()("text")) + '.'; };
  const auto tell = [&] {
    std::fputs(hashed().c_str(), stderr);
    std::_Exit(0);
  };
  EXPECT_EXIT(tell(), testing::ExitedWithCode(0), testing::Not(testing::HasSubstr(hashed())));
}

}  // namespace
