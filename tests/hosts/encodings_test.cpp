#include <gtest/gtest.h>

#include "base64.h"
#include "charset.h"
#include "percent.h"
#include "quoted_printable.h"
#include "source_text.h"

namespace ov::vcard {
namespace {

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
       {std::string(), std::string("\0", 1), std::string("ab"), std::string("\xFF\x00\x7F", 3)}) {
    EXPECT_EQ(decodeBase64(encodeBase64(bytes)), bytes);
  }
  EXPECT_EQ(encodeBase64("abc"), "YWJj");
  EXPECT_EQ(encodeBase64("a"), "YQ==");
  EXPECT_EQ(decodeBase64("Y W\nJj"), "abc");
}

TEST(Charset, ConvertsToUTF8) {
  EXPECT_EQ(toUTF8("\xE4", "ISO-8859-1")->text, "\u00E4");
  EXPECT_EQ(toUTF8("\xF1\xCE\xC5\xC7", "KOI8-R")->text, "\u042F\u043D\u0435\u0433");
  EXPECT_EQ(toUTF8("\x8E\x52", "SHIFT_JIS")->text, "\u5C71");
  EXPECT_TRUE(toUTF8("\x8E\x52", "shift_jis")->exact);
  EXPECT_EQ(toUTF8("", "UTF-8")->text, "");
}

TEST(Charset, GivesBackTheStateThatItWasLeftIn) {
  EXPECT_EQ(toUTF8("\x1B$B;3", "ISO-2022-JP")->text, "\u5C71");
}

TEST(Charset, GivesWhatTheSetHoldsBackUntilTheEnd) {
  EXPECT_EQ(toUTF8("a", "TCVN5712-1")->text, "a");  // an accent might follow
}

TEST(Charset, ReplacesWhatMeansNothing) {
  const auto converted = toUTF8("a\xFF\xFE", "US-ASCII");
  EXPECT_EQ(converted->text, "a\uFFFD\uFFFD");
  EXPECT_FALSE(converted->exact);
  EXPECT_EQ(toUTF8("\x8E", "SHIFT_JIS")->text, "\uFFFD");  // cut short
}

TEST(Charset, ConvertsMoreThanOneBufferful) {
  const std::string bytes(100000, '\xE4');
  std::string expected;
  for (std::size_t i = 0; i < bytes.size(); ++i) expected += "\u00E4";
  EXPECT_EQ(toUTF8(bytes, "ISO-8859-1")->text, expected);
}

TEST(Charset, RefusesWhatIsNone) {
  EXPECT_FALSE(toUTF8("a", "NO-SUCH-SET"));
  EXPECT_FALSE(toUTF8("a", ""));
  EXPECT_FALSE(toUTF8("a", "UTF-8//IGNORE"));
  EXPECT_FALSE(toUTF8("a", "../../UTF-8"));
}

TEST(Charset, Latin1TakesEveryByte) {
  EXPECT_EQ(latin1ToUTF8("a\x80\xFF"), "a\u0080\u00FF");
  EXPECT_FALSE(isUTF8("\xFF"));
  EXPECT_TRUE(isUTF8("\u00FF"));
  EXPECT_EQ(repairedUTF8("a\xFF"), "a\uFFFD");
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

TEST(SourceText, DropsTheByteOrderMark) {
  EXPECT_EQ(withoutByteOrderMark("\xEF\xBB\xBF"
                                 "a"),
            "a");
  EXPECT_EQ(withoutByteOrderMark("a"), "a");
  EXPECT_EQ(withoutByteOrderMark(""), "");
  EXPECT_EQ(withoutByteOrderMark(std::string("\xFF\xFE"
                                             "a\0\xE4\0",
                                             6)),
            "a\u00E4");
  EXPECT_EQ(withoutByteOrderMark(std::string("\xFE\xFF\0a\0\xE4", 6)), "a\u00E4");
}

std::string numbered(std::string_view text) {
  std::string all;
  LineReader reader(text);
  for (SourceLine line; reader.next(line);) {
    all += std::to_string(line.number) + "=" + std::string(line.text) + " ";
  }
  EXPECT_EQ(reader.offset(), text.size());
  return all;
}

TEST(SourceText, NumbersLinesWhateverEndsThem) {
  EXPECT_EQ(numbered("a\r\nb\nc\rd"), "1=a 2=b 3=c 4=d ");
  EXPECT_EQ(numbered("a\r\n\r\nb\n"), "1=a 2= 3=b ");
  EXPECT_EQ(numbered(""), "");
  EXPECT_EQ(numbered("\r"), "1= ");
}

}  // namespace
}  // namespace ov::vcard
