#include "codec/line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "codec/escapes.h"
#include "hosts/card/codec/cards.h"

namespace ov::card {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string headerOf(std::string_view line, std::string_view version = "4.0") {
  const Lines lines(line, version);
  EXPECT_THAT(lines.problems, IsEmpty());
  const std::string& whole = lines.all.at(0);
  return whole.substr(0, whole.size() - 2);  // without ":1"
}

TEST(Parameters, KeepTheirOrder) {
  EXPECT_EQ(headerOf("TEL;type=home,cell;Pref=1;X-a=b:1"), "TEL;TYPE=home,cell;PREF=1;X-A=b");
}

TEST(Parameters, OfOneNameAreJoined) {
  EXPECT_EQ(headerOf("TEL;TYPE=home;A=b;type=cell:1", "3.0"), "TEL;TYPE=home,cell;A=b");
}

TEST(Parameters, OfManyNamesAreJoinedToo) {
  std::string line = "TEL";
  std::string expected = "TEL";
  for (char c = 'A'; c <= 'Z'; ++c) line.append(";").append(1, c).append("=1");
  for (char c = 'A'; c <= 'Z'; ++c) line.append(";").append(1, c).append("=2");
  for (char c = 'A'; c <= 'Z'; ++c) expected.append(";").append(1, c).append("=1,2");
  EXPECT_EQ(headerOf(line + ":1"), expected);
}

TEST(Parameters, WithoutANameAreTypes) {
  EXPECT_EQ(headerOf("TEL;HOME;X-CAR:1", "2.1"), "TEL;TYPE=HOME,X-CAR");
}

TEST(Parameters, MayBeQuoted) {
  EXPECT_EQ(headerOf("ADR;LABEL=\"a:b;c, d\":1"), "ADR;LABEL=\"a:b;c, d\"");
  EXPECT_EQ(headerOf("TEL;TYPE=\"home\",\"work\":1"), "TEL;TYPE=home,work");
  EXPECT_EQ(headerOf("TEL;TYPE=\"home,work\":1"), "TEL;TYPE=home,work");
  EXPECT_EQ(headerOf("X;A=\" b \":1"), "X;A=\" b \"");
}

TEST(Parameters, MayHoldAndEndInEqualsSigns) {
  EXPECT_EQ(headerOf("EMAIL;X-A=b=;X-C==;D=:1"), "EMAIL;X-A=\"b=\";X-C=\"=\";D=\"\"");
  EXPECT_EQ(headerOf("EMAIL;TYPE=INTERNET=:1", "2.1"), "EMAIL;TYPE=\"INTERNET=\"");
}

TEST(Parameters, AreDecodedFromCircumflexes) {
  readLine("ADR;LABEL=\"a^nb ^'c^' d^^e ^x^\":1", [](const Line& line) {
    EXPECT_EQ(line.parameterValue("LABEL"), "a\nb \"c\" d^e ^x^");
    EXPECT_EQ(described(line), "ADR;LABEL=\"a^nb ^'c^' d^^e ^^x^^\":1");
  });
}

TEST(Parameters, WhoseNamesAreNoneAreKept) {
  EXPECT_EQ(headerOf("TEL;A B=c;=d:1"), "TEL;X-INVALID=\"A B=c\",\"=d\"");
}

TEST(Parameters, HoldTheLabelsOfPhones) {
  const std::string encoded = "X-CUSTOM(CHARSET=UTF-8,ENCODING=QUOTED-PRINTABLE,=4D=C3=BC=2C=3B)";
  readLine(
      "TEL;" + encoded + ":1=",
      [](const Line& line) {
        EXPECT_EQ(described(line), "TEL;X-CUSTOM=\"M\u00FC,;\":1=");
        EXPECT_EQ(line.parameterValue("X-CUSTOM"), "M\u00FC,;");
      },
      "2.1");
  EXPECT_EQ(headerOf("TEL;X-Custom(Ski hut, left);PREF:1", "2.1"),
            "TEL;X-CUSTOM=\"Ski hut, left\";PREF=1");
}

TEST(Parameters, TellThePreferenceInOneWay) {
  EXPECT_EQ(headerOf("TEL;TYPE=home,pref;type=CELL:1", "3.0"), "TEL;TYPE=home,CELL;PREF=1");
  EXPECT_EQ(headerOf("TEL;TYPE=\"home,pref\":1"), "TEL;TYPE=home;PREF=1");
  EXPECT_EQ(headerOf("TEL;PREF:1", "2.1"), "TEL;PREF=1");
  EXPECT_EQ(headerOf("TEL;TYPE=pref;PREF=2:1"), "TEL;TYPE=pref;PREF=2");
}

TEST(Parameters, AreKeptVerbatim) {
  readLine("item1.tel;type=Home;Encoding=8bit;type=pref : 1", [](const Line& line) {
    EXPECT_EQ(line.group(), "item1");
    EXPECT_EQ(line.name(), "TEL");
    EXPECT_EQ(line.rawParameters(), ";type=Home;Encoding=8bit;type=pref ");
    EXPECT_EQ(line.value(), " 1");
  });
}

TEST(Parameters, TellTheTypes) {
  readLine("TEL;TYPE=\"home,voice\",pref, Cell :1", [](const Line& line) {
    EXPECT_THAT(line.types(), ElementsAre("HOME", "VOICE", "CELL"));
  });
  readLine("TEL:1", [](const Line& line) { EXPECT_THAT(line.types(), IsEmpty()); });
}

TEST(Parameters, TellThePreference) {
  const auto preference = [](const std::string& parameters) {
    int rank = 0;
    readLine("TEL" + parameters + ":1", [&](const Line& line) { rank = line.preference(); });
    return rank;
  };
  EXPECT_EQ(preference(";PREF=1"), 1);
  EXPECT_EQ(preference(";PREF=37"), 37);
  EXPECT_EQ(preference(";PREF=100"), 100);
  EXPECT_EQ(preference(";PREF=1000"), 100);
  EXPECT_EQ(preference(";TYPE=home,pref"), 1);
  EXPECT_EQ(preference(";PREF"), 1);
  EXPECT_EQ(preference(";TYPE=home"), kNotPreferred);
  EXPECT_EQ(preference(";PREF=0"), kNotPreferred);
  EXPECT_EQ(preference(";PREF=first"), kNotPreferred);
  EXPECT_EQ(preference(";PREF=99999999999999999999"), kNotPreferred);
}

TEST(LineNames, MayBeVendorsForms) {
  for (const char* name : {"KIND", "X-KIND", "X-SERVER-KIND", "x-a-b-kind"}) {
    readLine(std::string(name) + ":1",
             [&](const Line& line) { EXPECT_TRUE(line.isNamed("KIND")) << name; });
  }
  for (const char* name : {"MANKIND", "X-MANKIND", "KIND-X", "X-KIND-X", "XKIND"}) {
    readLine(std::string(name) + ":1",
             [&](const Line& line) { EXPECT_FALSE(line.isNamed("KIND")) << name; });
  }
}

TEST(LineNames, MayHoldASlash) {
  readLine("X-messaging/xmpp-All:a", [](const Line& line) {
    EXPECT_EQ(line.name(), "X-MESSAGING/XMPP-ALL");
    EXPECT_EQ(line.text(), "a");
  });
}

TEST(Values, AreGivenAsTexts) {
  for (const std::string_view text : {"plain", "a;b,c\\d\ne", "\\", "\\n", "  blanks  ",
                                      "\u5C71\U0001F3B6", ":;,=\"'^|<>", "\t"}) {
    readLine("X-A:" + escapeText(text), [&](const Line& line) {
      EXPECT_EQ(line.text(), text);
      EXPECT_EQ(line.value(), escapeText(text));
      EXPECT_EQ(line.text().data(), line.text().data());  // decoded once
    });
  }
  readLine("X-A:", [](const Line& line) { EXPECT_EQ(line.text(), ""); });
}

TEST(Values, KeepSeparators) {
  readLine("CATEGORIES:a,b\\,c;d", [](const Line& line) {
    EXPECT_EQ(line.value(), "a,b\\,c;d");
    EXPECT_EQ(line.text(), "a,b,c;d");
  });
}

TEST(Values, OfOldCardsKnowQuotedSemicolonsOnly) {
  readLine(
      "N:a\\;b,c;C:\\new", [](const Line& line) { EXPECT_EQ(line.value(), "a\\;b\\,c;C:\\\\new"); },
      "2.1");
  readLine(
      "CATEGORIES:a,b", [](const Line& line) { EXPECT_EQ(line.value(), "a,b"); }, "2.1");
}

std::string binaryOf(std::string_view text, std::string_view version = "3.0") {
  std::string found = "none";
  readLine(
      text,
      [&](const Line& line) {
        if (const auto binary = line.binary()) found = binary->mediaType + "|" + binary->bytes;
      },
      version);
  return found;
}

TEST(Binary, IsTheBytesOfBase64) {
  EXPECT_EQ(binaryOf("KEY;ENCODING=b:AAEC"), std::string("|\0\1\2", 4));
  EXPECT_EQ(binaryOf("KEY;ENCODING=b:Y\n W\n Jj"), "|abc");
  EXPECT_EQ(binaryOf("PHOTO;BASE64:\nYWJj\n\n", "2.1"), "|abc");
}

TEST(Binary, IsTheBytesOfADataURI) {
  EXPECT_EQ(binaryOf("PHOTO:data:image/PNG;base64,YWJj", "4.0"), "image/png|abc");
  EXPECT_EQ(binaryOf("PHOTO:da\n ta:image/png;ba\n se64,YW\n Jj", "4.0"), "image/png|abc");
  EXPECT_EQ(binaryOf("PHOTO:data:image/png\\;base64\\,YWJj"), "image/png|abc");
  EXPECT_EQ(binaryOf("PHOTO:data:;base64,YWI%3D", "4.0"), "|ab");
  EXPECT_EQ(binaryOf("PHOTO:DATA:x/y;a=b;base64,", "4.0"), "x/y|");
}

TEST(Binary, IsNotInOtherValues) {
  EXPECT_EQ(binaryOf("PHOTO:data:image/svg+xml,<svg>", "4.0"), "none");
  EXPECT_EQ(binaryOf("PHOTO:http://example.com/a,b", "4.0"), "none");
  EXPECT_EQ(binaryOf("NOTE:YWJj", "4.0"), "none");
}

TEST(Binary, HasItsDigitsForAValue) {
  const Lines lines("NOTE;ENCODING=b:QU\n JD\nFN:x", "3.0");
  EXPECT_THAT(lines.all, ElementsAre("NOTE base64:QUJD", "FN:x"));
  EXPECT_THAT(lines.texts, ElementsAre("QUJD", "x"));
}

}  // namespace
}  // namespace ov::card
