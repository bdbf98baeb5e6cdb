#include <gtest/gtest.h>

#include "codec/base64.h"
#include "codec/charset.h"
#include "codec/file_text.h"
#include "codec/percent.h"
#include "codec/quoted_printable.h"
#include "codec/text_lines.h"
#include "codec/utf8.h"
#include "hosts/card/codec/cards.h"

namespace ov::card {
namespace {

using namespace std::string_literals;

TEST(QuotedPrintable, DecodesBytesInEitherCase) {
  EXPECT_EQ(decodeQuotedPrintable("a=3Db=c3=A4"), "a=b\u00E4");
}

TEST(QuotedPrintable, TakesABadEscapeLiterally) {
  EXPECT_EQ(decodeQuotedPrintable("a=ZZ=4"), "a=ZZ=4");
  EXPECT_EQ(decodeQuotedPrintable("="), "=");
  EXPECT_EQ(decodeQuotedPrintable("=41"), "A");
}

TEST(Base64, ComesBack) {
  for (const std::string& bytes :
       {""s, "\0"s, "ab"s, "\xFF\x00\x7F"s, std::string(10000, '\xA5')}) {
    EXPECT_EQ(decodeBase64(encodeBase64(bytes)), bytes);
  }
  EXPECT_EQ(encodeBase64("abc"), "YWJj");
  EXPECT_EQ(encodeBase64("a"), "YQ==");
  EXPECT_EQ(encodeBase64("ab"), "YWI=");
}

TEST(Base64, PassesOverWhatIsNone) {
  EXPECT_EQ(decodeBase64("Y W\nJj"), "abc");
  EXPECT_EQ(decodeBase64("-!\xFF"), "");
}

TEST(Base64, NeedsNoPadding) {
  EXPECT_EQ(decodeBase64("YQ"), "a");
  EXPECT_EQ(decodeBase64("YWI"), "ab");
  EXPECT_EQ(decodeBase64("Y"), "");
  EXPECT_EQ(decodeBase64("YQ==YQ=="), "aa");
  EXPECT_EQ(decodeBase64("===="), "");
}

TEST(UTF8, IsTold) {
  for (const char* text : {"", "a", "12345678\u00E4", "\u07FF\u0800\uFFFF\U00010000\U0010FFFF"}) {
    EXPECT_TRUE(isUTF8(text)) << text;
    EXPECT_EQ(guessedUTF8(text), text);
  }
  for (const char* bytes :
       {"\x80", "\xC3", "\xC1\x81", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF",
        "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xE4\xB8", "\xE4\xB8z", "\xFF", "12345678\xE4"}) {
    EXPECT_FALSE(isUTF8(bytes)) << bytes;
    EXPECT_TRUE(isUTF8(guessedUTF8(bytes))) << bytes;
  }
}

TEST(UTF8, MayBeGuessed) {
  EXPECT_EQ(guessedUTF8("a\x80\xFF"), "a\u20AC\u00FF");
  EXPECT_EQ(guessedUTF8("\xC3\xA4\xE4"), "\u00E4\u00E4");
  EXPECT_EQ(guessedUTF8("\x81\x9D"), "\u0081\u009D");
}

TEST(UTF16, OneLoneSurrogateCostsOneCharacter) {
  EXPECT_EQ(utf16ToUTF8("a\0\x00\xD8"s + "b\0"s, false).text, "a\uFFFDb");
  EXPECT_EQ(utf16ToUTF8("\0a\xDC\0\0b"s, true).text, "a\uFFFDb");
  EXPECT_EQ(utf16ToUTF8("\x3C\xD8\xB6\xDF"s, false).text, "\U0001F3B6");
  EXPECT_EQ(utf16ToUTF8("\xD8\x3C\xD8\x3C\xDF\xB6"s, true).text, "\uFFFD\U0001F3B6");
  EXPECT_EQ(utf16ToUTF8("a\0b"s, false).text, "a\uFFFD");
  EXPECT_TRUE(utf16ToUTF8("\x3C\xD8\xB6\xDF"s, false).exact);
  EXPECT_FALSE(utf16ToUTF8("\x3C\xD8"s, false).exact);
}

TEST(Charset, ConvertsToUTF8) {
  Charsets charsets;
  EXPECT_EQ(charsets.toUTF8("\xE4", "ISO-8859-1")->text, "\u00E4");
  EXPECT_EQ(charsets.toUTF8("\xA4", "ISO-8859-15")->text, "\u20AC");
  EXPECT_EQ(charsets.toUTF8("\xF1\xCE\xC5\xC7", "KOI8-R")->text, "\u042F\u043D\u0435\u0433");
  EXPECT_EQ(charsets.toUTF8("\x8E\x52", "SHIFT_JIS")->text, "\u5C71");
  EXPECT_TRUE(charsets.toUTF8("\x8E\x52", "shift_jis")->exact);
  EXPECT_EQ(charsets.toUTF8("", "UTF-8")->text, "");
}

TEST(Charset, TakesLatin1ForWindows1252) {
  Charsets charsets;
  EXPECT_EQ(charsets.toUTF8("\x80\xE4", "iso-8859-1")->text, "\u20AC\u00E4");
  EXPECT_EQ(charsets.toUTF8("\x80", "windows-1252")->text, "\u20AC");
}

TEST(Charset, BeginsEachTextAfresh) {
  Charsets charsets;
  EXPECT_EQ(charsets.toUTF8("\x1B$B;3", "ISO-2022-JP")->text, "\u5C71");
  EXPECT_EQ(charsets.toUTF8("a;3", "ISO-2022-JP")->text, "a;3");
}

TEST(Charset, GivesWhatTheSetHoldsBackUntilTheEnd) {
  EXPECT_EQ(Charsets().toUTF8("a", "TCVN5712-1")->text, "a");  // an accent might follow
}

TEST(Charset, ReplacesWhatMeansNothing) {
  Charsets charsets;
  const auto converted = charsets.toUTF8("a\xFF\xFE", "US-ASCII");
  EXPECT_EQ(converted->text, "a\uFFFD\uFFFD");
  EXPECT_FALSE(converted->exact);
  EXPECT_EQ(charsets.toUTF8("\x8E", "SHIFT_JIS")->text, "\uFFFD");  // cut short
}

TEST(Charset, ConvertsMoreThanOneBufferful) {
  const std::string bytes(100000, '\xE4');
  std::string expected;
  for (std::size_t i = 0; i < bytes.size(); ++i) expected += "\u0444";
  EXPECT_EQ(Charsets().toUTF8(bytes, "ISO-8859-5")->text, expected);
}

TEST(Charset, RefusesWhatIsNone) {
  Charsets charsets;
  EXPECT_FALSE(charsets.toUTF8("a", "NO-SUCH-SET"));
  EXPECT_FALSE(charsets.toUTF8("a", "NO-SUCH-SET"));
  EXPECT_FALSE(charsets.toUTF8("a", ""));
  EXPECT_FALSE(charsets.toUTF8("a", "UTF-8//IGNORE"));
  EXPECT_FALSE(charsets.toUTF8("a", "../../UTF-8"));
}

TEST(Charset, KnowsMoreSetsThanItKeeps) {
  Charsets charsets;
  for (int round = 0; round < 2; ++round) {
    for (int page = 1250; page < 1259; ++page) {
      EXPECT_EQ(charsets.toUTF8("a", "CP" + std::to_string(page))->text, "a");
    }
    for (int i = 0; i < 40; ++i) EXPECT_FALSE(charsets.toUTF8("a", "NONE" + std::to_string(i)));
  }
}

TEST(Percent, ComesBack) {
  for (const std::string_view text : {"plain", "50%", "a b", "%41", "\u00E4:b;c,d", ""}) {
    EXPECT_EQ(percentDecoded(percentEncoded(text, true)), text);
    EXPECT_EQ(percentDecoded(percentEncoded(text, false)), text);
  }
  EXPECT_EQ(percentEncoded("a:b", true), "a%3Ab");
  EXPECT_EQ(percentEncoded("a:b", false), "a:b");
}

TEST(Percent, LeavesTextThatIsNotEncoded) {
  for (const char* text : {"50%", "%zz", "a%4", "%FF"}) EXPECT_EQ(percentDecoded(text), text);
  EXPECT_EQ(percentDecoded("%c3%a4"), "\u00E4");
}

std::string fileText(std::string bytes) {
  ProblemLog problems;
  std::string text = textOfFile(std::move(bytes), problems);
  for (const std::string& problem : problems.texts) text += "|" + problem;
  return text;
}

TEST(FileText, DropsTheByteOrderMark) {
  EXPECT_EQ(fileText("\xEF\xBB\xBF"
                     "a"),
            "a");
  EXPECT_EQ(fileText("a"), "a");
  EXPECT_EQ(fileText(""), "");
}

TEST(FileText, ConvertsUTF16) {
  EXPECT_EQ(fileText("\xFF\xFE"
                     "a\0\xE4\0"s),
            "a\u00E4");
  EXPECT_EQ(fileText("\xFE\xFF\0a\0\xE4"s), "a\u00E4");
  EXPECT_EQ(fileText("B\0E\0"s), "BE");
  EXPECT_EQ(fileText("\0B\0E"s), "BE");
}

TEST(FileText, ReportsWhatIsNoUTF16) {
  EXPECT_EQ(fileText("\xFF\xFE"
                     "a\0\0\xDC"s),
            "a\uFFFD|1: invalid UTF-16 in this file was replaced");
}

std::string numbered(std::string_view text) {
  std::string all;
  TextLines lines(text);
  for (TextLine line; lines.next(line);) {
    all += std::to_string(line.number) + "=" + std::string(line.text) + "/" +
           std::to_string(line.end.size()) + " ";
  }
  EXPECT_EQ(lines.offset(), text.size());
  return all;
}

TEST(TextLines, AreNumberedWhateverEndsThem) {
  EXPECT_EQ(numbered("a\r\nb\nc\rd"), "1=a/2 2=b/1 3=c/1 4=d/0 ");
  EXPECT_EQ(numbered("a\r\n\r\nb\n"), "1=a/2 2=/2 3=b/1 ");
  EXPECT_EQ(numbered("a\rb\rc"), "1=a/1 2=b/1 3=c/0 ");
  EXPECT_EQ(numbered(""), "");
  EXPECT_EQ(numbered("\r"), "1=/1 ");
}

TEST(TextLines, MayEndInAnExtraReturn) {
  EXPECT_EQ(numbered("a\r\r\nb\r\r\n"), "1=a/3 2=b/3 ");
  EXPECT_EQ(numbered("a\r\r\r\nb"), "1=a/1 2=/3 3=b/0 ");
  EXPECT_EQ(numbered("a\r\rb"), "1=a/1 2=/1 3=b/0 ");
}

TEST(TextLines, KnowTheMarkersOfCards) {
  EXPECT_EQ(markerOf("BEGIN:VCARD"), Marker::Begin);
  EXPECT_EQ(markerOf("begin : vcard \t"), Marker::Begin);
  EXPECT_EQ(markerOf("\xEF\xBB\xBF"
                     "BEGIN:VCARD"),
            Marker::Begin);
  EXPECT_EQ(markerOf("End:vCard"), Marker::End);
  for (const char* line : {"", "BEGIN", "BEGIN:", "BEGIN:VCARDS", " BEGIN:VCARD", "BEGINS:VCARD"}) {
    EXPECT_EQ(markerOf(line), Marker::None) << line;
  }
}

}  // namespace
}  // namespace ov::card
