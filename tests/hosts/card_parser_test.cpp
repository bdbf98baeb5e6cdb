#include "card_parser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "escapes.h"
#include "hosts/cards.h"

namespace ov::vcard {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Parsed {
  explicit Parsed(std::string_view lines, std::string_view version = "4.0") {
    const std::string text = card(lines, version);
    std::vector<OVVCardProblem> found;
    ProblemList list(nullptr, found);
    CardSplitter splitter(text, list);
    CardText cardText;
    EXPECT_TRUE(splitter.next(cardText));
    fields = parseCard(contentLines(cardText, list), list);
    EXPECT_THAT(found, IsEmpty());
  }

  const Field& only() const { return fields.at(0); }

  std::vector<Field> fields;
};

std::string headerOf(const Field& field) {
  std::string text = field.name;
  for (const Parameter& parameter : field.parameters) text += spelled(parameter);
  return text;
}

TEST(CardParser, KeepsParametersInTheirOrder) {
  EXPECT_EQ(headerOf(Parsed("TEL;type=home,cell;Pref=1;X-a=b:1").only()),
            "TEL;TYPE=home,cell;PREF=1;X-A=b");
}

TEST(CardParser, JoinsParametersOfOneName) {
  EXPECT_EQ(headerOf(Parsed("TEL;TYPE=home;TYPE=cell:1", "3.0").only()), "TEL;TYPE=home,cell");
}

TEST(CardParser, BareWordsAreTypes) {
  EXPECT_EQ(headerOf(Parsed("TEL;HOME;X-CAR:1", "2.1").only()), "TEL;TYPE=HOME,X-CAR");
}

TEST(CardParser, ReadsQuotedParameters) {
  EXPECT_EQ(headerOf(Parsed("ADR;LABEL=\"a:b;c, d\":;;x").only()), "ADR;LABEL=\"a:b;c, d\"");
}

TEST(CardParser, DecodesCircumflexes) {
  const Parsed parsed("ADR;LABEL=\"a^nb ^'c^' d^^e ^x^\":;;x");
  EXPECT_EQ(parsed.only().parameterValue("LABEL"), "a\nb \"c\" d^e ^x^");
  EXPECT_EQ(headerOf(parsed.only()), "ADR;LABEL=\"a^nb ^'c^' d^^e ^^x^^\"");
}

TEST(CardParser, DecodesBase64) {
  const Parsed parsed("KEY;ENCODING=b:AAEC", "3.0");
  EXPECT_TRUE(parsed.only().binary);
  EXPECT_EQ(parsed.only().text, std::string("\0\1\2", 3));
  EXPECT_EQ(headerOf(parsed.only()), "KEY");
}

TEST(CardParser, GivesTheTextOfAValue) {
  for (const std::string_view text : {"plain", "a;b,c\\d\ne", "\\", "\\n", "  blanks  ",
                                      "\u5C71\U0001F3B6", ":;,=\"'^|<>", "\t"}) {
    const Parsed parsed("X-A:" + escapeText(text));
    EXPECT_EQ(parsed.only().text, text);
    EXPECT_EQ(parsed.only().value, escapeText(text));
  }
  EXPECT_EQ(Parsed("X-A:").only().text, "");
}

TEST(CardParser, LeavesSeparatorsInTheValue) {
  const Parsed parsed("CATEGORIES:a,b\\,c;d");
  EXPECT_EQ(parsed.only().value, "a,b\\,c;d");
  EXPECT_EQ(parsed.only().text, "a,b,c;d");
}

TEST(CardParser, KnowsEveryLineByItsNumber) {
  std::string lines;
  for (int i = 0; i < 1200; ++i) lines += "X-" + std::to_string(i) + ":" + std::to_string(i) + "\n";
  const Parsed parsed(lines);
  ASSERT_EQ(parsed.fields.size(), 1200U);
  for (std::size_t i = 0; i < parsed.fields.size(); ++i) {
    EXPECT_EQ(parsed.fields[i].number, i + 3);
    EXPECT_EQ(parsed.fields[i].name, "X-" + std::to_string(i));
    EXPECT_EQ(parsed.fields[i].text, std::to_string(i));
  }
}

TEST(Field, TellsItsTypes) {
  EXPECT_THAT(Parsed("TEL;TYPE=\"home,voice\",pref, Cell :1").only().types(),
              ElementsAre("HOME", "VOICE", "CELL"));
  EXPECT_THAT(Parsed("TEL:1").only().types(), IsEmpty());
}

TEST(Field, TellsItsPreference) {
  const auto preference = [](const std::string& parameters) {
    return Parsed("TEL" + parameters + ":1").only().preference();
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

TEST(Field, TakesItsValueApart) {
  EXPECT_THAT(Parsed("N:a,b;;c\\;d\\,e;\\n").only().components(" "),
              ElementsAre("a b", "", "c;d,e", "\n"));
}

TEST(Field, KnowsNamesThatVendorsMade) {
  Field field;
  for (const char* name : {"KIND", "X-KIND", "X-SERVER-KIND", "X-A-B-KIND"}) {
    field.name = name;
    EXPECT_TRUE(field.isNamed("KIND", true)) << name;
    EXPECT_EQ(field.isNamed("KIND", false), field.name == "KIND") << name;
  }
  for (const char* name : {"MANKIND", "X-MANKIND", "KIND-X", "X-KIND-X", "XKIND", ""}) {
    field.name = name;
    EXPECT_FALSE(field.isNamed("KIND", true)) << name;
  }
}

TEST(Companions, LabelTheLinesOfTheirGroup) {
  const Parsed parsed("item1.TEL:1\nITEM1.X-ABLabel:shop\nitem2.TEL:2\nX-ABLabel:alone\nTEL:3");
  EXPECT_EQ(parsed.fields[0].label, &parsed.fields[1]);
  EXPECT_TRUE(parsed.fields[1].isCompanion);
  EXPECT_EQ(parsed.fields[2].label, nullptr);
  EXPECT_FALSE(parsed.fields[3].isCompanion);
  EXPECT_EQ(parsed.fields[4].label, nullptr);
}

TEST(Companions, OnlyTheFirstOfAGroupCounts) {
  const Parsed parsed("a.X-ABLabel:one\na.X-ABLabel:two\na.TEL:1");
  EXPECT_EQ(parsed.fields[2].label, &parsed.fields[0]);
  EXPECT_FALSE(parsed.fields[1].isCompanion);
}

TEST(Companions, TellTheCountryOfAddressesOnly) {
  const Parsed parsed("a.ADR:;;x\na.X-ABADR:de\nb.TEL:1\nb.X-ABADR:fr");
  EXPECT_EQ(parsed.fields[0].country, &parsed.fields[1]);
  EXPECT_EQ(parsed.fields[2].country, nullptr);
  EXPECT_FALSE(parsed.fields[3].isCompanion);
}

}  // namespace
}  // namespace ov::vcard
