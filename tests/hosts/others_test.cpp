#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_general.h>

#include "hosts/cards.h"

namespace {

using testing::ElementsAre;

TEST(Others, KeepWhatHasNoPropertyOfItsOwn) {
  const auto read = person(
      "X-SHOE-SIZE;type=EU:44\nGENDER:M;he\\, him\nX-LIST:a,b\\,c\nrev:20200101T000000Z\n"
      "ROLE;LANGUAGE=en:cook");
  EXPECT_THAT(entries(*read, OVProPertyOther),
              ElementsAre("*X-SHOE-SIZE;TYPE=EU|X-SHOE-SIZE: 44", "GENDER|GENDER: M;he\\, him",
                          "X-LIST|X-LIST: a,b\\,c", "REV|REV: 20200101T000000Z",
                          "ROLE;LANGUAGE=en|ROLE: cook"));
}

TEST(Others, AreWrittenAsTheLinesThatTheyWere) {
  const char* lines[] = {"X-SHOE-SIZE;TYPE=EU:44", "GENDER:M;he\\, him", "X-LIST:a,b\\,c",
                         "X-Q;A=\"b;c:d^n\":x\\ny", "X-EMPTY:"};
  std::string all;
  for (const char* line : lines) all += std::string(line) + "\n";
  EXPECT_THAT(writtenLines(person(all)),
              ElementsAre(lines[0], lines[1], lines[2], lines[3], lines[4]));
}

TEST(Others, HoldBase64AsDataURI) {
  const auto read = person("LOGO;ENCODING=b;TYPE=GIF:R0lGODlh", "3.0");
  EXPECT_EQ(entry(*read, OVProPertyOther), "*LOGO;TYPE=GIF|LOGO: data:image/gif;base64,R0lGODlh");
}

TEST(Others, KeepTheirLabels) {
  const auto read = person("a.X-FOO:bar\na.X-ABLabel:my foo");
  EXPECT_EQ(entry(*read, OVProPertyOther), "*X-FOO|my foo: bar");
  EXPECT_THAT(writtenLines(read), ElementsAre("item1.X-FOO:bar", "item1.X-ABLABEL:my foo"));
}

TEST(Others, KeepALabelThatLabelsNothing) {
  EXPECT_EQ(entry(*person("FN:x\nb.X-ABLabel:alone"), OVProPertyOther),
            "*X-ABLABEL|X-ABLABEL: alone");
  EXPECT_EQ(entry(*person("a.NOTE:x\na.X-ABLabel:my note"), OVProPertyOther),
            "*X-ABLABEL|X-ABLABEL: my note");
}

TEST(Others, LeaveParametersThatHaveNoPlaceWithTheirLines) {
  const std::vector<std::string> lines = {
      "TEL;TYPE=home;PID=1.1;ALTID=2:1",
      "TEL;PID=2.1:2",
      "EMAIL;X-A=\"b=\":a@b",
      "ADR;LABEL=\"a^nb, c\";GEO=\"geo:1,2\":;;x;;;;",
      "ADR;LABEL=d;X-MINE=1:;;y;;;;",
      "NOTE;LANGUAGE=de:n",
  };
  std::string all;
  for (const std::string& line : lines) all += line + "\n";
  const auto read = person(all);
  EXPECT_THAT(entries(*read, OVProPertyOther), testing::IsEmpty());
  EXPECT_EQ(oddLines(*read), lines);
  EXPECT_EQ(writtenLines(read), lines);
}

TEST(Others, DoNotKeepParametersThatAreUnderstood) {
  const auto read = person(
      "TEL;TYPE=home;PREF=1;VALUE=uri:tel:1\nPHOTO;TYPE=PNG;MEDIATYPE=image/png;VALUE=uri:data:"
      "image/png;base64,iVBORw0K\nADR;CC=DE:;;x\nIMPP;X-SERVICE-TYPE=Skype;TYPE=home:x:y\n"
      "BDAY;X-A-OMIT-YEAR=1604;VALUE=date:1604-01-01\nCATEGORIES;VALUE=text:a");
  EXPECT_THAT(entries(*read, OVProPertyOther), testing::IsEmpty());
  EXPECT_THAT(oddLines(*read), ElementsAre("IMPP;X-SERVICE-TYPE=Skype;TYPE=home:x:y"));
}

/// The entry of "Other" of a general person, after a way through a card.
std::string entryAfterCard(const OVString& label, const OVString& text) {
  const auto labelObject = OVLabel::init();
  labelObject->setName(label);
  labelObject->setDisplayName(label);
  const auto others = OVMutableMultipleValue::init();
  others->addValue(
      OVPersonGeneral::singleValueByMacValueLabelType(text, labelObject, OVValueTypeString));
  const auto original = OVPersonGeneral::initWithID("p");
  original->setValueByPropertyName(others, OVProPertyOther);
  std::string lines;
  for (const std::string& line : writtenLines(original)) lines += line + "\n";
  return entry(*person(lines), OVProPertyOther);
}

TEST(Others, OfOtherBooksComeBackToo) {
  for (const char* label : {"Favourite colour", "blue", "Other", "X-FOO bar", "X-FOO;=", "X:Y",
                            "a;b", "X-FOO;TYPE=\"open", "END", "BEGIN", "VERSION", "\u00DC"}) {
    for (const char* text : {"plain", "a;b,c\\d\ne", "C:\\new"}) {
      EXPECT_EQ(entryAfterCard(label, text), "*" + std::string(label) + "|" + label + ": " + text);
    }
  }
}

TEST(Others, WithTextThatIsNoValueComeBackToo) {
  EXPECT_EQ(entryAfterCard("X-FOO", "a\nb"), "*X-FOO|X-FOO: a\nb");
  EXPECT_EQ(entryAfterCard("X-FOO", "C:\\temp"), "*X-FOO|X-FOO: C:\\temp");
  EXPECT_EQ(entryAfterCard("X-FOO", "a;b,c"), "*X-FOO|X-FOO: a;b,c");
}

TEST(Others, OfOtherBooksKeepTheirMainValue) {
  const char* lines = "X-OTHER:a\nitem1.X-OTHER;PREF=1:b\nitem1.X-ABLABEL:my own";
  const auto read = person(lines);
  EXPECT_THAT(entries(*read, OVProPertyOther), ElementsAre("Other|Other: a", "*my own|my own: b"));
  EXPECT_THAT(writtenLines(read),
              ElementsAre("X-OTHER:a", "item1.X-OTHER;PREF=1:b", "item1.X-ABLABEL:my own"));
}

TEST(Others, WithoutLabelGetThePropertysOwn) {
  EXPECT_EQ(entryAfterCard(nullptr, "x"), "*Other|Other: x");
}

TEST(Others, AreStableOnTheWayThroughCards) {
  const auto read = person(
      "TEL;PID=1:1\nFN;LANGUAGE=de:x y\nN:y;x\nNOTE:a\nNOTE;PREF=1:b\nBDAY:?\nAGENT:z\n"
      "KEY;ENCODING=b:iVBORw0K",
      "3.0");
  std::string lines;
  for (const std::string& line : writtenLines(read)) lines += line + "\n";
  EXPECT_EQ(entries(*person(lines), OVProPertyOther), entries(*read, OVProPertyOther));
}

}  // namespace
