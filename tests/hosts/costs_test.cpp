// No card drives up what it costs to read, to keep and to write it. Work is counted in blocks and
// bytes of memory, which grow with it.

#include <functional>
#include <set>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookVCard/vcard_export.h>

#include "hosts/cards.h"
#include "hosts/snapshot.h"
#include "mapping/keyed_hash.h"

namespace {

std::string numbered(const std::function<std::string(int)>& part, int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += part(i);
  return text;
}

/// How large the book, its block and its export are at most, in bytes written.
void expectProportion(const std::string& text) {
  constexpr std::size_t kMaxBytesPerByte = 64;
  const auto book = bookOf(text);
  EXPECT_LE(book->saveData()->size(), kMaxBytesPerByte * text.size());
  EXPECT_LE(ov::vcard::exportBook(book)->size(), kMaxBytesPerByte * text.size());
  const auto block = snapshotOf(*book)->saveToData();
  EXPECT_LE(block->size(), kMaxBytesPerByte * text.size());
  const auto restored =
      ov::cast<OVAddressBookGeneral>(OVAddressBookGeneral::addressBookWithData(block));
  EXPECT_LE(ov::vcard::exportBook(restored)->size(), kMaxBytesPerByte * text.size());
}

TEST(Costs, OfALabelThatManyShareAreThoseOfOneLabel) {
  expectProportion(
      card("a.X-ABLabel:" + std::string(100000, 'x') + "\n" + repeated("a.TEL:1\n", 5000)));
  expectProportion(
      card("a.X-ABADR:" + std::string(100000, 'x') + "\n" + repeated("a.ADR:;;s\n", 20000)));
  expectProportion(
      card("a.X-ABLabel:" + std::string(100000, 'x') + "\n" + repeated("a.X-FOO:1\n", 5000)));
}

TEST(Costs, OfALabelThatManyPersonsOfOtherBooksShareAreThoseOfOneLabel) {
  const auto book =
      bookOf(card("a.X-ABLabel:" + std::string(100000, 'x') + "\n" + repeated("a.TEL:1\n", 5000)));
  const auto copies = OVVCardBook::init();
  copies->addOneFromOtherPerson(onlyPerson(*book));
  EXPECT_LE(copies->saveData()->size(), 1000000U);
}

TEST(Costs, OfManyTagsAreThoseOfEachTag) {
  expectProportion(
      card("CATEGORIES:" + numbered([](int i) { return std::to_string(i) + ","; }, 40000)));
}

TEST(Costs, OfNamesAreThoseOfTheirLetters) {
  const std::string many(300000, 'a');
  expectProportion(card("N:" + many + ";;;;;" + many.substr(1) + "b"));
}

TEST(Costs, OfManySmallLoadsDoNotGrowWithTheBook) {
  const auto book = bookOf(card("UID:g\nKIND:group\nMEMBER:missing"));
  for (int i = 0; i < 3000; ++i) {
    book->loadWithData(OVData::dataWithText(card("UID:" + std::to_string(i) + "\nFN:x")));
  }
  EXPECT_EQ(book->allPersonsCount(), 3000U);
  EXPECT_EQ(problems(*book).size(), 1U);
}

TEST(Costs, OfProblemsAreThoseOfTheFirst) {
  const auto book = bookOf(card(repeated("a\n", 480000)));
  const std::vector<std::string> found = problems(*book);
  EXPECT_LE(found.size(), 200U);
  EXPECT_THAT(found.back(), testing::HasSubstr("times)"));
}

TEST(Costs, OfTextsChosenToCollideAreThoseOfOthers) {
  const std::string_view chosen[] = {"iw7c95gtabcdefgh", "e7h5kh3z!&#HuQ8S", "32v1u0zddH]?l*?y",
                                     "etw3j5gg}*_C~cMN"};
  std::set<std::size_t> hashes;
  for (const std::string_view text : chosen) hashes.insert(ov::card::KeyedHash()(text));
  EXPECT_EQ(hashes.size(), std::size(chosen));
}

TEST(Costs, OfOddLinesAreThoseOfEachLine) {
  expectProportion(card(numbered(
      [](int i) {
        const std::string group = "g" + std::to_string(i);
        return group + ".TEL;X-A=b:1\n" + group + ".X-ABLabel:x" + std::to_string(i) + "\n" +
               group + ".X-B:2\n";
      },
      8000)));
  expectProportion(card(repeated("NOTE;X-A=b:1\n", 8000)));
  expectProportion(card(repeated("item1.X-OTHER:1\n", 8000) + "item1.X-ABLABEL:NOTE\n"));
}

}  // namespace
