#include "content_lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/cards.h"

namespace ov::vcard {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Lines {
  Lines(std::string_view lines, std::string_view version) {
    const std::string text = card(lines, version);
    std::vector<OVVCardProblem> found;
    ProblemList list(nullptr, found);
    CardSplitter splitter(text, list);
    CardText cardText;
    EXPECT_TRUE(splitter.next(cardText));
    for (const ContentLine& line : contentLines(cardText, list)) {
      if (!line.group.empty())
        all.emplace_back(line.group + ".");
      else
        all.emplace_back();
      all.back() += line.name + line.parameters + (line.base64 ? " base64:" : ":") + line.value;
      numbers.push_back(line.number);
    }
    for (const OVVCardProblem& problem : found) {
      problems.push_back(std::to_string(problem.line) + ": " + problem.reason.str());
    }
  }

  std::vector<std::string> all;
  std::vector<std::size_t> numbers;
  std::vector<std::string> problems;
};

TEST(ContentLines, UnfoldNewCardsWithoutABlank) {
  const Lines lines("NOTE:wo\n rd a\n  nd\n\tmore\nFN:x", "3.0");
  EXPECT_THAT(lines.all, ElementsAre("NOTE:word a ndmore", "FN:x"));
  EXPECT_THAT(lines.numbers, ElementsAre(3U, 7U));
}

TEST(ContentLines, UnfoldOldCardsWithTheBlank) {
  EXPECT_THAT(Lines("NOTE:one\n two\nFN:x", "2.1").all, ElementsAre("NOTE:one two", "FN:x"));
}

TEST(ContentLines, UnfoldCharactersThatWereCutInTwo) {
  EXPECT_THAT(Lines("NOTE:\xC3\n \xA4", "4.0").all, ElementsAre("NOTE:\u00E4"));
}

TEST(ContentLines, UnfoldHeaders) {
  EXPECT_THAT(Lines("ADR;LABEL=\"a: b\n , c\";TYPE=ho\n me:;;x", "4.0").all,
              ElementsAre("ADR;LABEL=\"a: b, c\";TYPE=home:;;x"));
}

TEST(ContentLines, PassOverEmptyLines) {
  EXPECT_THAT(Lines("\n  \nFN:x\n\n", "3.0").all, ElementsAre("FN:x"));
}

TEST(ContentLines, DecodeQuotedPrintable) {
  const Lines lines(
      "NOTE;ENCODING=QUOTED-PRINTABLE;X=y:a=0D=0Ab=\n c=3B =\nlast\nFN;QUOTED-PRINTABLE:=41",
      "2.1");
  EXPECT_THAT(lines.all, ElementsAre("NOTE;X=y:a\\nb c; last", "FN:A"));
}

TEST(ContentLines, IgnoreBlanksAtTheEndOfQuotedPrintable) {
  EXPECT_THAT(Lines("NOTE;QUOTED-PRINTABLE:a= \t\nb  ", "2.1").all, ElementsAre("NOTE:ab"));
}

TEST(ContentLines, AnEqualsSignAtTheEndOfPlainTextStays) {
  EXPECT_THAT(Lines("NOTE:a=\nFN:b", "2.1").all, ElementsAre("NOTE:a=", "FN:b"));
}

TEST(ContentLines, QuotedPrintableEndsWithTheCard) {
  EXPECT_THAT(Lines("NOTE;QUOTED-PRINTABLE:a=", "2.1").all, ElementsAre("NOTE:a="));
}

TEST(ContentLines, JoinBase64) {
  EXPECT_THAT(Lines("PHOTO;BASE64:AB\n CD\n  EF==\n\nFN:x", "2.1").all,
              ElementsAre("PHOTO base64:ABCDEF==", "FN:x"));
  EXPECT_THAT(Lines("PHOTO;ENCODING=BASE64:\nABCD\nEF==\n\nFN:x", "2.1").all,
              ElementsAre("PHOTO base64:ABCDEF==", "FN:x"));
  EXPECT_THAT(Lines("KEY;ENCODING=b:AB\n CD\nFN:x", "3.0").all,
              ElementsAre("KEY base64:ABCD", "FN:x"));
}

TEST(ContentLines, AnAddressIsNoBase64WhateverTheCardSays) {
  EXPECT_THAT(Lines("PHOTO;ENCODING=b;VALUE=uri:http://example.com/p.png", "3.0").all,
              ElementsAre("PHOTO;VALUE=uri:http://example.com/p.png"));
}

TEST(ContentLines, ReadTheCharsetOfEachLine) {
  const Lines lines(
      "FN;CHARSET=ISO-8859-1:\xE4\n"
      "N;CHARSET=KOI8-R;ENCODING=QUOTED-PRINTABLE:=F1;=E1\n"
      "NOTE;CHARSET=\"SHIFT_JIS\":\x95\x5C\n"
      "ORG;CHARSET=utf-8:\u00E4",
      "2.1");
  EXPECT_THAT(lines.all, ElementsAre("FN:\u00E4", "N:\u042F;\u0410", "NOTE:\u8868", "ORG:\u00E4"));
  EXPECT_THAT(lines.problems, IsEmpty());
}

TEST(ContentLines, TakeOldCardsThatAreNoUTF8ForLatin1) {
  const Lines lines("FN:\xE4\nN:\u00E4", "2.1");
  EXPECT_THAT(lines.all, ElementsAre("FN:\u00E4", "N:\u00E4"));
  EXPECT_THAT(lines.problems, IsEmpty());
}

TEST(ContentLines, RepairNewCardsThatAreNoUTF8) {
  const Lines lines("FN:\xE4", "3.0");
  EXPECT_THAT(lines.all, ElementsAre("FN:\uFFFD"));
  EXPECT_THAT(lines.problems, ElementsAre("3: bytes that are no UTF-8 text were replaced"));
}

TEST(ContentLines, ReportCharsetsThatAreNone) {
  const Lines lines("FN;CHARSET=KLINGON:\xE4\nN;CHARSET=US-ASCII:a\xE4", "2.1");
  EXPECT_THAT(lines.all, ElementsAre("FN:\u00E4", "N:a\uFFFD"));
  EXPECT_THAT(lines.problems,
              ElementsAre("3: the character set KLINGON is not known; the text was read without it",
                          "4: bytes that are no US-ASCII text were replaced"));
}

TEST(ContentLines, DropEncodingsThatSayNothing) {
  EXPECT_THAT(Lines("FN;ENCODING=8BIT;7BIT;X=y:a\nN;ENCODING=ROT13:b", "2.1").all,
              ElementsAre("FN;X=y:a", "N;X-ENCODING=ROT13:b"));
}

TEST(ContentLines, KeepTheGroupAndWriteNamesInCapitals) {
  EXPECT_THAT(Lines("Item1.tel;type=Home:1", "3.0").all, ElementsAre("Item1.TEL;type=Home:1"));
}

TEST(ContentLines, ReportLinesThatAreNoProperty) {
  const Lines lines("no colon\nFN:x\n:no name\nÄ:b\nA B:c\nBEGIN:VEVENT\nEND:VEVENT\n", "3.0");
  EXPECT_THAT(lines.all, ElementsAre("FN:x"));
  const std::string reason = ": this line is no property of a vCard";
  EXPECT_THAT(lines.problems, ElementsAre("3" + reason, "5" + reason, "6" + reason, "7" + reason,
                                          "8" + reason, "9" + reason));
}

TEST(ContentLines, DropQuotesThatDoNotPair) {
  EXPECT_THAT(Lines("TEL;TYPE=\"home:1", "4.0").all, ElementsAre("TEL;TYPE=home:1"));
}

TEST(ContentLines, RefuseALineWithParametersBeyondReason) {
  std::string line = "TEL;TYPE=home";
  for (int i = 0; i < 600; ++i) line += ",home";
  const Lines lines(line + ":1\nFN:x", "4.0");
  EXPECT_THAT(lines.all, ElementsAre("FN:x"));
  EXPECT_THAT(lines.problems, ElementsAre("3: this line is no property of a vCard"));
}

TEST(ContentLines, EscapeTheCardOfAnAgent) {
  EXPECT_THAT(Lines("AGENT:\nBEGIN:VCARD\nN:b;c\nEND:VCARD\nFN:x", "2.1").all,
              ElementsAre("AGENT:BEGIN:VCARD\\nN:b\\;c\\nEND:VCARD\\n", "FN:x"));
  EXPECT_THAT(Lines("AGENT:BEGIN:VCARD\nFN:b\nEND:VCARD\nFN:x", "2.1").all,
              ElementsAre("AGENT:BEGIN:VCARD\\nFN:b\\nEND:VCARD\\n", "FN:x"));
}

}  // namespace
}  // namespace ov::vcard
