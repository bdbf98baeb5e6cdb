#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/card/codec/cards.h"

namespace ov::card {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ContentLines, UnfoldNewCardsWithoutABlank) {
  const Lines lines("NOTE:wo\n rd a\n  nd\n\tmore\nFN:x", "3.0");
  EXPECT_THAT(lines.all, ElementsAre("NOTE:word a ndmore", "FN:x"));
  EXPECT_THAT(lines.numbers, ElementsAre(3U, 7U));
}

TEST(ContentLines, UnfoldOldCardsWithTheBlank) {
  EXPECT_THAT(Lines("NOTE:one\n two\nFN:x", "2.1").all, ElementsAre("NOTE:one two", "FN:x"));
}

TEST(ContentLines, UnfoldCharactersThatWereCutInTwo) {
  const Lines lines("NOTE:\xC3\n \xA4", "4.0");
  EXPECT_THAT(lines.all, ElementsAre("NOTE:\u00E4"));
  EXPECT_THAT(lines.sources, ElementsAre("NOTE:\xC3\n \xA4\n"));
  EXPECT_THAT(lines.problems, IsEmpty());
}

TEST(ContentLines, UnfoldHeaders) {
  EXPECT_THAT(Lines("ADR;LABEL=\"a: b\n , c\";TYPE=ho\n me:;;x", "4.0").all,
              ElementsAre("ADR;LABEL=\"a: b, c\";TYPE=home:;;x"));
  EXPECT_THAT(Lines("TEL;HOME;\n VOICE:1\n 2", "2.1").all, ElementsAre("TEL;TYPE=HOME,VOICE:1 2"));
  EXPECT_THAT(Lines("NOTE\n :a\n b", "4.0").all, ElementsAre("NOTE:ab"));
}

TEST(ContentLines, PassOverEmptyLines) {
  EXPECT_THAT(Lines("\n  \nFN:x\n\n", "3.0").all, ElementsAre("FN:x"));
}

TEST(ContentLines, MayEndInAnExtraReturn) {
  std::string text = card("NOTE:a\n b\nTEL:1", "3.0");
  for (std::size_t at = 0; (at = text.find('\n', at)) != std::string::npos; at += 3) {
    text.replace(at, 1, "\r\r\n");
  }
  std::string all;
  readCards(text, [&](const Card& card) {
    for (const Line& line : card.lines) all += described(line) + " ";
    EXPECT_EQ(card.source, text);
    EXPECT_EQ(card.lineEnd, "\r\r\n");
  });
  EXPECT_EQ(all, "NOTE:ab TEL:1 ");
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

TEST(ContentLines, FoldQuotedPrintableAsWell) {
  EXPECT_THAT(Lines("NOTE;ENCODING=QUOTED-PRINTABLE:a\n b=\nc", "3.0").all,
              ElementsAre("NOTE:abc"));
  EXPECT_THAT(Lines("NOTE;ENCODING=QUOTED-PRINTABLE:a\n b=\n\n c\nFN:x", "2.1").all,
              ElementsAre("NOTE:a b c", "FN:x"));
}

TEST(ContentLines, AnEqualsSignAtTheEndOfPlainTextStays) {
  EXPECT_THAT(Lines("NOTE:a=\nFN:b", "2.1").all, ElementsAre("NOTE:a=", "FN:b"));
}

TEST(ContentLines, QuotedPrintableEndsWithTheCard) {
  EXPECT_THAT(Lines("NOTE;QUOTED-PRINTABLE:a=", "2.1").all, ElementsAre("NOTE:a="));
}

TEST(ContentLines, ATypeIsNoEncoding) {
  EXPECT_THAT(Lines("TEL;TYPE=QUOTED-PRINTABLE:1=\nFN:x", "4.0").all,
              ElementsAre("TEL;TYPE=QUOTED-PRINTABLE:1=", "FN:x"));
  EXPECT_THAT(Lines("TEL;TYPE=QUOTED-PRINTABLE;ENCODING=QUOTED-PRINTABLE:1=3D\nFN:x", "2.1").all,
              ElementsAre("TEL;TYPE=QUOTED-PRINTABLE:1=", "FN:x"));
  EXPECT_THAT(Lines("KEY;TYPE=BASE64:QUJD\nQUJD", "2.1").all, ElementsAre("KEY;TYPE=BASE64:QUJD"));
}

TEST(ContentLines, JoinBase64) {
  EXPECT_THAT(Lines("PHOTO;BASE64:AB\n CD\n  EF==\n\nFN:x", "2.1").all,
              ElementsAre("PHOTO base64:ABCDEF==", "FN:x"));
  EXPECT_THAT(Lines("PHOTO;ENCODING=BASE64:\nABCD\nEF==\n\nFN:x", "2.1").all,
              ElementsAre("PHOTO base64:ABCDEF==", "FN:x"));
  EXPECT_THAT(Lines("KEY;ENCODING=b:AB\n CD\nFN:x", "3.0").all,
              ElementsAre("KEY base64:ABCD", "FN:x"));
  EXPECT_THAT(Lines("KEY;ENCODING=\"B\":ABCD", "4.0").all, ElementsAre("KEY base64:ABCD"));
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

TEST(ContentLines, TakeOldCardsThatAreNoUTF8ForWindows1252) {
  const Lines lines("FN:\xE4\x80\nN:\u00E4\nNOTE;QUOTED-PRINTABLE:=E4", "2.1");
  EXPECT_THAT(lines.all, ElementsAre("FN:\u00E4\u20AC", "N:\u00E4", "NOTE:\u00E4"));
  EXPECT_THAT(lines.problems, IsEmpty());
}

TEST(ContentLines, TakeNewCardsForItTooAndSaySo) {
  for (const char* version : {"3.0", "4.0"}) {
    const Lines lines("FN:\xE4\nNOTE;X=\xE4:a\n\u00E4:\xE4\nN;CHARSET=UTF-8:\xE4", version);
    EXPECT_THAT(lines.all, ElementsAre("FN:\u00E4", "NOTE;X=\"\u00E4\":a", "N:\u00E4"));
    const std::string reason = ": bytes that are not valid UTF-8 were read as Windows-1252";
    EXPECT_THAT(lines.problems, ElementsAre("!5: this line is not a valid vCard property",
                                            "3" + reason, "4" + reason, "6" + reason));
  }
}

TEST(ContentLines, AreSpelledInUTF8) {
  const Lines lines(
      "FN;CHARSET=ISO-8859-1:Lef\xE8vre\njunk\xE4\nX;A=\xE4;ENCODING=b:Q\n UJD\nN:\u00E4", "3.0");
  EXPECT_THAT(lines.sources,
              ElementsAre("FN:Lef\u00E8vre\n", "X;A=\u00E4;ENCODING=b:Q\n UJD\n", "N:\u00E4\n"));
  EXPECT_EQ(lines.source,
            card("FN:Lef\u00E8vre\njunk\u00E4\nX;A=\u00E4;ENCODING=b:Q\n UJD\nN:\u00E4", "3.0"));
}

TEST(ContentLines, AreSpelledWithEncodingsThatAreNone) {
  EXPECT_THAT(Lines("FN;ENCODING=ROT13;8BIT:\xE4", "3.0").sources,
              ElementsAre("FN;ENCODING=ROT13:\u00E4\n"));
}

TEST(ContentLines, OfOldCardsAreSpelledInQuotedPrintable) {
  const Lines lines("N;HOME;CHARSET=ISO-8859-1:Lef\xE8vre;a\\;b\nNOTE:\xE4\nORG:\u00E4", "2.1");
  EXPECT_THAT(lines.sources,
              ElementsAre("N;HOME;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:Lef=C3=A8vre;a\\;b\n",
                          "NOTE;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:=C3=A4\n", "ORG:\u00E4\n"));
}

TEST(ContentLines, ReportCharsetsThatAreNone) {
  const Lines lines("FN;CHARSET=KLINGON:\xE4\nN;CHARSET=US-ASCII:a\xE4", "2.1");
  EXPECT_THAT(lines.all, ElementsAre("FN:\u00E4", "N:a\uFFFD"));
  EXPECT_THAT(lines.problems,
              ElementsAre("!3: the character set KLINGON is unknown and was ignored",
                          "4: bytes that are not valid US-ASCII were replaced"));
}

TEST(ContentLines, DropEncodingsThatSayNothing) {
  EXPECT_THAT(Lines("FN;ENCODING=8BIT;7BIT;X=y:a\nN;ENCODING=ROT13:b", "2.1").all,
              ElementsAre("FN;X=y:a", "N;X-ENCODING=ROT13:b"));
}

TEST(ContentLines, KeepTheGroupAndWriteNamesInCapitals) {
  EXPECT_THAT(Lines("Item1.tel;type=Home:1", "3.0").all, ElementsAre("Item1.TEL;TYPE=Home:1"));
}

TEST(ContentLines, ReportLinesThatAreNoProperty) {
  const Lines lines("no colon\nFN:x\n:no name\nÄ:b\nA B:c\nBEGIN:VEVENT\nEND:VEVENT\n", "3.0");
  EXPECT_THAT(lines.all, ElementsAre("FN:x"));
  const std::string reason = ": this line is not a valid vCard property";
  EXPECT_THAT(lines.problems, ElementsAre("!3" + reason, "!5" + reason, "!6" + reason,
                                          "!7" + reason, "!8" + reason, "!9" + reason));
}

TEST(ContentLines, HaveNoQuotesInTheirGroups) {
  const Lines lines("\".A;\":x\n\"a:b\".TEL:1", "3.0");
  EXPECT_THAT(lines.all, IsEmpty());
  EXPECT_THAT(lines.problems, ElementsAre("!3: this line is not a valid vCard property",
                                          "!4: this line is not a valid vCard property"));
}

TEST(ContentLines, DropQuotesThatDoNotPair) {
  const Lines lines("TEL;TYPE=\"home:1\n 2", "4.0");
  EXPECT_THAT(lines.all, ElementsAre("TEL;TYPE=home:12"));
  EXPECT_THAT(lines.problems, ElementsAre("3: unbalanced quotes or NUL characters were left out"));
}

TEST(ContentLines, ReplaceNUL) {
  using namespace std::string_literals;
  const Lines lines("TEL;TYPE=ho\0me:1\0 2\nFN;QUOTED-PRINTABLE:=00"s, "4.0");
  EXPECT_THAT(lines.all, ElementsAre("TEL;TYPE=home:1\uFFFD 2", "FN:\uFFFD"));
  EXPECT_THAT(lines.problems,
              ElementsAre("3: unbalanced quotes or NUL characters were left out",
                          "3: NUL characters were replaced", "4: NUL characters were replaced"));
}

TEST(ContentLines, MayHaveAnyNumberOfParameters) {
  std::string line = "TEL;TYPE=home";
  for (int i = 0; i < 600; ++i) line += ",home";
  EXPECT_THAT(Lines(line + ":1\nFN:x", "4.0").all, ElementsAre(line + ":1", "FN:x"));
}

TEST(ContentLines, AreKnownByTheirNumbers) {
  std::string text;
  for (int i = 0; i < 1200; ++i) text += "X-" + std::to_string(i) + ":" + std::to_string(i) + "\n";
  const Lines lines(text);
  ASSERT_EQ(lines.all.size(), 1200U);
  for (std::size_t i = 0; i < lines.all.size(); ++i) {
    EXPECT_EQ(lines.numbers[i], i + 3);
    EXPECT_EQ(lines.all[i], "X-" + std::to_string(i) + ":" + std::to_string(i));
  }
}

TEST(ContentLines, EscapeTheCardOfAnAgent) {
  EXPECT_THAT(Lines("AGENT:\nBEGIN:VCARD\nN:b;c\nEND:VCARD\nFN:x", "2.1").all,
              ElementsAre("AGENT:BEGIN:VCARD\\nN:b\\;c\\nEND:VCARD\\n", "FN:x"));
  EXPECT_THAT(Lines("AGENT:BEGIN:VCARD\nFN:b\nEND:VCARD\nFN:x", "2.1").all,
              ElementsAre("AGENT:BEGIN:VCARD\\nFN:b\\nEND:VCARD\\n", "FN:x"));
  EXPECT_THAT(Lines("AGENT:\nBEGIN:VCARD\nN:\xE4\nEND:VCARD", "2.1").all,
              ElementsAre("AGENT:BEGIN:VCARD\\nN:\u00E4\\nEND:VCARD\\n"));
}

}  // namespace
}  // namespace ov::card
