#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/cards.h"
#include "support/printers.h"
#include "support/processes/temporary_folder.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Problems, NameFileAndLine) {
  const TemporaryFolder folder;
  const std::string path = folder.at("bad.vcf");
  writeFile(path, card("FN:x") + "\njunk\n" + card("FN:y\nno colon"));
  const auto book = OVVCardBook::init();
  EXPECT_FALSE(book->addFile(path));
  EXPECT_EQ(book->allPersonsCount(), 2U);
  const auto found = book->problems();
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].file, path);
  EXPECT_EQ(found[0].line, 6U);
  EXPECT_EQ(found[0].severity, OVVCardSeverity::Error);
  EXPECT_EQ(found[0].reason, "this text is outside any card");
  EXPECT_EQ(found[1].line, 10U);
  EXPECT_EQ(found[1].reason, "this line is not a valid vCard property");
}

TEST(Problems, OfDataNameNoFile) { EXPECT_EQ(bookOf("junk")->problems().at(0).file, nullptr); }

TEST(Problems, DoNotStopTheOtherCards) {
  const auto book =
      bookOf(card("UID:a\nFN:a") + card("") + card("no colon") +
             "BEGIN:VCARD\nVERSION:3.0\nUID:b\nFN:b\n" + card("UID:c\nFN:c") + "BEGIN:VCARD\n");
  EXPECT_EQ(book->personsForIDs(OVList<OVString>::list({"a", "b", "c"})).size(), 3U);
  EXPECT_EQ(book->allPersonsCount(), 3U);
  EXPECT_THAT(problems(*book),
              ElementsAre("6: this card is empty", "11: this line is not a valid vCard property",
                          "9: this card is empty",
                          "13: this card has no END:VCARD; its content was imported anyway",
                          "22: this card has no END:VCARD; its content was imported anyway",
                          "22: this card is empty"));
}

TEST(Problems, AreNoneInAnEmptyFile) {
  for (const char* text : {"", "\n\n", "\xEF\xBB\xBF"}) {
    EXPECT_THAT(problems(*bookOf(text)), IsEmpty());
  }
}

TEST(Problems, OfAFileThatCannotBeReadAreAnError) {
  const TemporaryFolder folder;
  const auto book = OVVCardBook::init();
  EXPECT_EQ(book->addFile(folder.at("none.vcf")), std::errc::no_such_file_or_directory);
  EXPECT_EQ(book->addFile(folder.path().string()), std::errc::is_a_directory);
  EXPECT_EQ(book->addFile(nullptr), std::errc::no_such_file_or_directory);
  EXPECT_EQ(book->load(), std::errc::no_such_file_or_directory);
  EXPECT_THAT(book->problems(), IsEmpty());
}

TEST(Files, MayHaveAnyLineEndsAndMarks) {
  const std::string text = card("UID:a\nNOTE:b\n c\nTEL:1");
  std::string crlf;
  std::string cr;
  for (const char c : text) {
    crlf += c == '\n' ? "\r\n" : std::string(1, c);
    cr += c == '\n' ? '\r' : c;
  }
  const std::string expected = description(*bookOf(text));
  EXPECT_EQ(description(*bookOf(crlf)), expected);
  EXPECT_EQ(description(*bookOf(cr)), expected);
  EXPECT_EQ(description(*bookOf("\xEF\xBB\xBF" + crlf)), expected);
  std::string wide = "\xFF\xFE";
  for (const char c : crlf) wide.append({c, '\0'});
  EXPECT_EQ(description(*bookOf(wide)), expected);
}

TEST(Files, ReportProgressInBytes) {
  const TemporaryFolder folder;
  std::string text;
  for (int i = 0; i < 1000; ++i) text += card("UID:" + std::to_string(i));
  writeFile(folder.at("many.vcf"), text);
  std::uint64_t last = 0;
  int calls = 0;
  const auto book = OVVCardBook::initWithPath(folder.at("many.vcf"));
  EXPECT_FALSE(book->load([&](std::uint64_t read, std::uint64_t size) {
    ++calls;
    EXPECT_GE(read, last);
    EXPECT_EQ(size, text.size());
    last = read;
  }));
  EXPECT_EQ(last, text.size());
  EXPECT_GT(calls, 2);
  EXPECT_EQ(book->allPersonsCount(), 1000U);
}

}  // namespace
