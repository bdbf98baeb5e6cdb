#include "codec/line_writer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "codec/escapes.h"
#include "codec/parameters.h"
#include "codec/text_lines.h"
#include "codec/utf8.h"
#include "hosts/card/codec/cards.h"

namespace ov::card {
namespace {

using testing::ElementsAre;

std::string written(Version version, const LineHeader& header, std::string_view value) {
  std::string out;
  LineWriter(out, version, "\n").line(header, value);
  return out;
}

std::string_view nameOf(Version version) {
  return version == Version::V2_1 ? "2.1" : version == Version::V3_0 ? "3.0" : "4.0";
}

constexpr Version kVersions[] = {Version::V2_1, Version::V3_0, Version::V4_0};

TEST(LineWriter, WritesCards) {
  std::string out;
  LineWriter writer(out);
  writer.begin();
  writer.line({.group = "a", .name = "TEL", .parameters = ";TYPE=home;PREF=1"}, "1");
  writer.end();
  EXPECT_EQ(out, "BEGIN:VCARD\r\nVERSION:4.0\r\na.TEL;TYPE=home;PREF=1:1\r\nEND:VCARD\r\n");
}

TEST(LineWriter, SpellsParametersAsTheVersionDoes) {
  const LineHeader header{.name = "TEL", .parameters = ";TYPE=home,cell;PREF=1;X-A=\"b c\""};
  EXPECT_EQ(written(Version::V4_0, header, "1"), "TEL;TYPE=home,cell;PREF=1;X-A=\"b c\":1\n");
  EXPECT_EQ(written(Version::V3_0, header, "1"), "TEL;TYPE=home,cell;X-A=\"b c\";TYPE=pref:1\n");
  EXPECT_EQ(written(Version::V2_1, header, "1"), "TEL;HOME;CELL;X-A=\"b c\";PREF:1\n");
  EXPECT_EQ(written(Version::V2_1, {.name = "TEL", .parameters = ";PREF=2;TYPE=\"a b\""}, "1"),
            "TEL;PREF=2;TYPE=\"a b\":1\n");
}

TEST(LineWriter, NeverWritesATypeThatReadsAsAnEncoding) {
  for (const char* type : {"QUOTED-PRINTABLE", "base64", "8BIT"}) {
    std::string parameters;
    appendParameter(parameters, "TYPE", {type});
    EXPECT_EQ(written(Version::V2_1, {.name = "TEL", .parameters = parameters}, "1="),
              "TEL;TYPE=" + std::string(type) + ":1=\n");
  }
}

TEST(LineWriter, FoldsBetweenCharacters) {
  for (std::size_t blanks = 60; blanks < 80; ++blanks) {
    std::string value = std::string(blanks, 'x');
    for (int i = 0; i < 100; ++i) value += i % 3 == 0 ? "\u00E4" : "\U0001F3B6";
    for (const Version version : {Version::V3_0, Version::V4_0}) {
      const std::string text = written(version, {.name = "NOTE"}, value);
      std::size_t start = 0;
      for (std::size_t end = 0; (end = text.find('\n', start)) != std::string::npos;
           start = end + 1) {
        EXPECT_LE(end - start, 75U);
        EXPECT_TRUE(isUTF8(std::string_view(text).substr(start, end - start)));
      }
      EXPECT_THAT(Lines(text, nameOf(version)).texts, ElementsAre(value));
    }
  }
}

TEST(LineWriter, FoldsWhatIsNoTextAtAll) {
  const std::string value(500, '\x80');
  EXPECT_EQ(unfolded(written(Version::V4_0, {.name = "X"}, value), 1), "X:" + value);
}

TEST(LineWriter, LeavesNoNameAloneBehindBase64) {
  for (const std::size_t size : {74U, 75U, 76U, 200U}) {
    const std::string name(size, 'A');
    const std::string text =
        written(Version::V4_0, {.name = "X", .parameters = ";ENCODING=b"}, "") +
        written(Version::V4_0, {.name = name}, "a") +
        written(Version::V4_0, {.name = name, .parameters = ";B=c"}, "d");
    EXPECT_THAT(Lines(text).all, ElementsAre("X base64:", name + ":a", name + ";B=c:d"));
  }
}

TEST(LineWriter, WritesWhatIsReadInEveryVersion) {
  for (const std::string_view text : {"",
                                      "plain",
                                      "a;b",
                                      "a,b",
                                      "c\\d",
                                      "\\",
                                      "\\\\",
                                      "a\\;b",
                                      "a\\,b",
                                      "C:\\new",
                                      "\\n",
                                      "a\nb",
                                      "\n",
                                      "a\r\nb",
                                      " blanks ",
                                      "\t",
                                      "\u5C71\U0001F3B6",
                                      ":;,=\"'^|<>",
                                      "=",
                                      "a=",
                                      "=3D",
                                      "\x7F",
                                      "END:VCARD",
                                      "\nEND:VCARD\n",
                                      "trailing \\"}) {
    for (const Version version : kVersions) {
      const std::string value = escapeText(text);
      const Lines lines(written(version, {.group = "g", .name = "NOTE"}, value) + "FN:x",
                        nameOf(version));
      EXPECT_THAT(lines.all, ElementsAre("g.NOTE:" + value, "FN:x")) << nameOf(version);
      EXPECT_THAT(lines.problems, testing::IsEmpty());
    }
  }
}

TEST(LineWriter, WritesPartsInEveryVersion) {
  for (const std::string_view value :
       {";;a;b", "a\\;b;c\\\\;d", "a\\\\;;\\n;\u00E4", "\\\\;\\\\"}) {
    for (const Version version : kVersions) {
      EXPECT_THAT(Lines(written(version, {.name = "ADR"}, value), nameOf(version)).all,
                  ElementsAre("ADR:" + std::string(value)));
    }
  }
  for (const Version version : kVersions) {
    EXPECT_THAT(Lines(written(version, {.name = "CATEGORIES"}, "a\\,b,c"), nameOf(version)).all,
                ElementsAre("CATEGORIES:a\\,b,c"));
  }
}

TEST(LineWriter, NoLineOfAnOldCardReadsAsItsEnd) {
  for (std::size_t size = 0; size < 90; ++size) {
    const std::string text = "\n" + std::string(size, 'x') + "END:VCARD";
    const std::string line = written(Version::V2_1, {.name = "NOTE"}, escapeText(text));
    EXPECT_THAT(Lines(line, "2.1").texts, ElementsAre(text));
  }
}

TEST(LineWriter, EncodesInOldCardsOnlyWhatNeedsIt) {
  EXPECT_EQ(written(Version::V2_1, {.name = "NOTE"}, "a\\, b\\; c\\\\d"), "NOTE:a, b\\; c\\d\n");
  EXPECT_EQ(written(Version::V2_1, {.name = "NOTE"}, "a\\nb "),
            "NOTE;ENCODING=QUOTED-PRINTABLE:a=0D=0Ab=20\n");
  EXPECT_EQ(written(Version::V2_1, {.name = "NOTE"}, "\u00E4"),
            "NOTE;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:=C3=A4\n");
}

TEST(LineWriter, BreaksQuotedPrintableLines) {
  std::string value;
  for (int i = 0; i < 200; ++i) value += "\u00E4 ";
  const std::string text = written(Version::V2_1, {.name = "NOTE"}, value);
  std::size_t start = 0;
  for (std::size_t end = 0; (end = text.find('\n', start)) != std::string::npos; start = end + 1) {
    EXPECT_LE(end - start, 76U);
  }
  EXPECT_THAT(Lines(text, "2.1").texts, ElementsAre(value));
}

TEST(LineWriter, WritesBytes) {
  for (const std::size_t size : {0U, 1U, 2U, 3U, 40U, 3072U, 10000U}) {
    std::string bytes;
    for (std::size_t i = 0; i < size; ++i) bytes += static_cast<char>(i * 7);
    for (const Version version : kVersions) {
      std::string out;
      LineWriter(out, version, "\r\n").binary({.name = "PHOTO"}, bytes, "image/png");
      EXPECT_EQ(out.find("TYPE=PNG") != std::string::npos, version != Version::V4_0);
      int count = 0;
      const auto problems = readCards(card(out, nameOf(version)), [&](const Card& card) {
        ASSERT_EQ(card.lines.size(), 1U);
        ASSERT_TRUE(card.lines[0].binary());
        EXPECT_EQ(card.lines[0].binary()->bytes, bytes);
        ++count;
      });
      EXPECT_THAT(problems, testing::IsEmpty());
      EXPECT_EQ(count, 1);
    }
  }
}

TEST(LineWriter, SaysOfBytesWhatTheyAre) {
  const auto photo = [](Version version, std::string_view parameters, std::string_view type) {
    std::string out;
    LineWriter(out, version, "\n").binary({.name = "PHOTO", .parameters = parameters}, "abc", type);
    return out;
  };
  EXPECT_EQ(photo(Version::V4_0, "", "image/png"), "PHOTO:data:image/png;base64,YWJj\n");
  EXPECT_EQ(photo(Version::V4_0, "", ""), "PHOTO:data:application/octet-stream;base64,YWJj\n");
  EXPECT_EQ(photo(Version::V3_0, "", "image/jpeg"), "PHOTO;ENCODING=b;TYPE=JPEG:YWJj\n");
  EXPECT_EQ(photo(Version::V3_0, ";TYPE=X", "image/jpeg"), "PHOTO;TYPE=X;ENCODING=b:YWJj\n");
  EXPECT_EQ(photo(Version::V3_0, "", ""), "PHOTO;ENCODING=b:YWJj\n");
  EXPECT_EQ(photo(Version::V2_1, "", "image/heic"), "PHOTO;ENCODING=BASE64;TYPE=HEIC:YWJj\n\n");
}

TEST(LineWriter, KeepsBase64ThatBelongsToNoBytes) {
  for (const Version version : kVersions) {
    const std::string line =
        written(version, {.name = "NOTE", .parameters = ";ENCODING=b"}, "QUJD");
    EXPECT_THAT(Lines(line, nameOf(version)).all, ElementsAre("NOTE base64:QUJD"));
  }
}

TEST(LineWriter, ChangesTheValueOfALine) {
  const auto changed = [](std::string_view line, std::string_view value, std::string_view version) {
    std::string out;
    readCards(card(line, version), [&](const Card& card) {
      LineWriter(out, card.version, card.lineEnd).lineLike(card.lines.front(), value);
    });
    return out;
  };
  EXPECT_EQ(changed("item1.TEL;type=CELL;type=pref:1", "2", "3.0"),
            "item1.TEL;type=CELL;type=pref:2\n");
  EXPECT_EQ(changed("N;CHARSET=KOI8-R;ENCODING=QUOTED-PRINTABLE;X=y:=F1", "\u00E4", "2.1"),
            "N;X=y;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:=C3=A4\n");
  EXPECT_EQ(changed("N;QUOTED-PRINTABLE;HOME:=F1", "a", "2.1"), "N;HOME:a\n");
  EXPECT_EQ(changed("ADR;LABEL=\"a;ENCODING=b\":;", "x", "4.0"), "ADR;LABEL=\"a;ENCODING=b\":x\n");
}

TEST(AppendParameter, SpellsValuesThatComeBack) {
  for (const std::string_view value : {"", "plain", "a b", "a,b", "a;b:c", "\"q\"", "^", "^n",
                                       "a\nb", "a=", " x ", "\u00E4", "\\"}) {
    std::string parameters;
    appendParameter(parameters, "X-A", {value, "second"});
    for (const Version version : kVersions) {
      readLine(
          written(version, {.name = "TEL", .parameters = parameters}, "1"),
          [&](const Line& line) {
            ASSERT_EQ(line.parameters().size(), 1U);
            EXPECT_THAT(line.parameters()[0].values, ElementsAre(value, "second"));
          },
          nameOf(version));
    }
  }
  std::string parameters;
  appendParameter(parameters, "X-A", {"a\r\nb\rc"});
  EXPECT_EQ(parameters, ";X-A=\"a^nb^nc\"");
}

}  // namespace
}  // namespace ov::card
