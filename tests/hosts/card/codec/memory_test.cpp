// Reading a card takes memory in proportion to its size, whatever is in it.

#include <string>

#include <gtest/gtest.h>

#include "hosts/card/codec/cards.h"
#include "support/memory/failing_memory.h"

namespace ov::card {
namespace {

constexpr std::size_t kMaxBytesPerByte = 64;  // bytes for one of the card

class NoProblems final : public Problems {
 public:
  void error(std::size_t /*line*/, std::string_view /*reason*/) override {}
  void warning(std::size_t /*line*/, std::string_view /*reason*/) override {}
};

void readValues(std::string_view text) {
  NoProblems problems;
  CardReader reader(text, problems);
  while (const Card* const found = reader.next()) {
    for (const Line& line : found->lines) static_cast<void>(line.text());
  }
}

class MemoryOfACardOf : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(Bytes, MemoryOfACardOf, testing::Values(50000, 300000, 999000),
                         testing::PrintToStringParamName());

TEST_P(MemoryOfACardOf, IsInProportionToItsSize) {
  for (const std::string_view line :
       {"A:\n", "A:b\n", "A:\xE9\n", "A:\\\n", "A:\\n\n", "A;\xE9:\n", "\xE9.A:\n", "A;B:\n",
        "A;B=\xE9:\n", "A;BASE64:\n", "A;QUOTED-PRINTABLE:=\n", "A;CHARSET=x:\xE9\n", "A;b=:\n"}) {
    for (const std::string_view version : {"2.1", "4.0"}) {
      const int count = GetParam() / static_cast<int>(line.size()) + 1;
      const std::string text = card(repeated(line, count), version);
      const std::size_t most = mostBytesOf([&] { readValues(text); });
      EXPECT_LE(most, kMaxBytesPerByte * text.size())
          << line << " in " << version << " takes " << most / text.size() << " times its size";
    }
  }
}

}  // namespace
}  // namespace ov::card
