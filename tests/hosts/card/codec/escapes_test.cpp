#include "codec/escapes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ov::card {
namespace {

using testing::ElementsAre;

TEST(CanonicalValue, KeepsWhatVersion4Knows) {
  EXPECT_EQ(canonicalValue(R"(a\nb\,c\;d\\e)", Escaping::New), R"(a\nb\,c\;d\\e)");
  EXPECT_EQ(canonicalValue(R"(a\Nb)", Escaping::New), R"(a\nb)");
}

TEST(CanonicalValue, TakesOtherBackslashesLiterally) {
  EXPECT_EQ(canonicalValue(R"(C:\temp)", Escaping::New), R"(C:\\temp)");
  EXPECT_EQ(canonicalValue(R"(end\)", Escaping::New), R"(end\\)");
  EXPECT_EQ(canonicalValue(R"(http\://x)", Escaping::New), "http://x");
}

TEST(CanonicalValue, InOldCardsQuotesSeparatorsOnly) {
  EXPECT_EQ(canonicalValue(R"(a\;b;c)", Escaping::Old), R"(a\;b;c)");
  EXPECT_EQ(canonicalValue(R"(C:\new)", Escaping::Old), R"(C:\\new)");
  EXPECT_EQ(canonicalValue("a,b", Escaping::Old), R"(a\,b)");
  EXPECT_EQ(canonicalValue("a,b", Escaping::Old, true), "a,b");
}

TEST(CanonicalValue, TurnsLineBreaksAndNulIntoText) {
  EXPECT_EQ(canonicalValue("a\r\nb\rc\nd", Escaping::Old), R"(a\nb\nc\nd)");
  EXPECT_EQ(canonicalValue(std::string_view("a\0b", 3), Escaping::New), "a\uFFFDb");
}

TEST(Escape, QuotesWhatATextMayHold) {
  EXPECT_EQ(escapeText("a;b,c\\d\ne"), R"(a\;b\,c\\d\ne)");
  EXPECT_EQ(escapeText("a\r\nb\rc"), R"(a\nb\nc)");
  EXPECT_EQ(escapeText(std::string_view("\0", 1)), "\uFFFD");
  EXPECT_EQ(escapeURI("x:a;b,c\\d\ne"), R"(x:a;b,c\\d\ne)");
}

TEST(Unescape, GivesTheTextBack) {
  for (const std::string_view text : {"", "plain", "a;b,c\\d\ne", "\\", "\\n", ";;,,\n\n"}) {
    EXPECT_EQ(unescape(escapeText(text)), text);
    EXPECT_EQ(unescape(escapeURI(text)), text);
  }
  EXPECT_EQ(unescape("end\\"), "end\\");
}

TEST(SplitValue, KnowsQuotedSeparators) {
  EXPECT_THAT(splitValue("", ';'), ElementsAre(""));
  EXPECT_THAT(splitValue("a;;b", ';'), ElementsAre("a", "", "b"));
  EXPECT_THAT(splitValue(R"(a\;b;c\\;d)", ';'), ElementsAre(R"(a\;b)", R"(c\\)", "d"));
  EXPECT_THAT(splitValue("a\\", ';'), ElementsAre("a\\"));
}

TEST(QuoteSeparators, LeavesQuotedOnesAlone) {
  EXPECT_EQ(quoteSeparators(R"(a;b\;c,d)", ";,"), R"(a\;b\;c\,d)");
  EXPECT_EQ(quoteSeparators(R"(a\\;b)", ";"), R"(a\\\;b)");
}

}  // namespace
}  // namespace ov::card
