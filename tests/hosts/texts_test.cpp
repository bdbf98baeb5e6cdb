#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/single_value.h>

#include "hosts/cards.h"
#include "support/printers.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct TextRow {
  const char* name;
  const OVString* property;
  const char* written;
};
const TextRow kTexts[] = {
    {"NICKNAME", &OVProPertyNickname, "NICKNAME"},
    {"X-MAIDENNAME", &OVProPertyMaidenName, "X-MAIDENNAME"},
    {"X-MAIDEN-NAME", &OVProPertyMaidenName, "X-MAIDENNAME"},
    {"X-PHONETIC-FIRST-NAME", &OVProPertyFirstNamePhonetic, "X-PHONETIC-FIRST-NAME"},
    {"X-PHONETIC-LAST-NAME", &OVProPertyLastNamePhonetic, "X-PHONETIC-LAST-NAME"},
    {"TITLE", &OVProPertyJobTitle, "TITLE"},
    {"NOTE", &OVProPertyNote, "NOTE"},
};

class Texts : public testing::TestWithParam<TextRow> {};

TEST_P(Texts, AreReadAndWritten) {
  const TextRow& row = GetParam();
  const auto read = person(std::string(row.name) + ":one\\; two\\nthree\\\\");
  EXPECT_EQ(entry(*read, *row.property), "one; two\nthree\\");
  EXPECT_THAT(writtenLines(read),
              ElementsAre(std::string(row.written) + ":one\\; two\\nthree\\\\"));
}

TEST_P(Texts, HaveTheTypeAndLabelOfTheirProperty) {
  const TextRow& row = GetParam();
  const auto read = person(std::string(row.name) + ":x");
  const auto property = OVProperty::propertyWithName(*row.property);
  const auto value =
      std::dynamic_pointer_cast<OVMutableSingleValue>(read->valueByProperty(property));
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(value->type(), property->valueType());
  EXPECT_EQ(value->label()->name(), property->displayName());
  EXPECT_EQ(value->label()->displayName(), property->displayName());
}

TEST_P(Texts, TakeTheFirstLineAndKeepTheOthers) {
  const TextRow& row = GetParam();
  const std::string name = row.name;
  const auto read = person(name + ":one\n" + name + ":two\n" + name + ";PREF=1:three");
  EXPECT_EQ(entry(*read, *row.property), "one");
  EXPECT_THAT(entries(*read, OVProPertyOther),
              ElementsAre(name + "|" + name + ": two", "*" + name + ";PREF=1|" + name + ": three"));
}

TEST_P(Texts, PassEmptyOnesOver) {
  const TextRow& row = GetParam();
  const auto read = person(std::string(row.name) + ":\n" + row.name + ":x");
  EXPECT_EQ(entry(*read, *row.property), "x");
  EXPECT_THAT(entries(*read, OVProPertyOther), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Rows, Texts, testing::ValuesIn(kTexts), [](const auto& test) {
  std::string name = test.param.name;
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
});

TEST(Nickname, KeepsTheCommasOfAList) {
  const auto read = person("NICKNAME:Ben,Benny");
  EXPECT_EQ(entry(*read, OVProPertyNickname), "Ben,Benny");
  EXPECT_THAT(writtenLines(read), ElementsAre("NICKNAME:Ben,Benny"));
}

TEST(Organization, IsCompanyAndDepartment) {
  const auto read = person("ORG:Acme\\; Sons;Sales;North");
  EXPECT_EQ(entry(*read, OVProPertyCompany), "Acme; Sons");
  EXPECT_EQ(entry(*read, OVProPertyDepartment), "Sales;North");
  EXPECT_THAT(writtenLines(read), ElementsAre("ORG:Acme\\; Sons;Sales;North"));
}

TEST(Organization, MayLackEither) {
  EXPECT_THAT(entries(*person("ORG:Acme;;"), OVProPertyDepartment), IsEmpty());
  const auto read = person("ORG:;Sales");
  EXPECT_THAT(entries(*read, OVProPertyCompany), IsEmpty());
  EXPECT_EQ(entry(*read, OVProPertyDepartment), "Sales");
  EXPECT_THAT(writtenLines(read), ElementsAre("ORG:;Sales"));
  EXPECT_THAT(writtenLines(person("ORG:;;\nTEL:1")), ElementsAre("TEL:1"));
}

TEST(Organization, ASecondOneIsKept) {
  const auto read = person("ORG:a;b\nORG:c;d");
  EXPECT_EQ(entry(*read, OVProPertyOther), "*ORG|ORG: c;d");
}

TEST(Kind, OfAnOrganizationIsAText) {
  for (const char* line :
       {"KIND:org", "kind:ORG", "X-SERVER-KIND:organization", "X-ABShowAs:COMPANY"}) {
    const auto read = person(line);
    EXPECT_EQ(entry(*read, OVProPertyIsOrganization), "true") << line;
    EXPECT_TRUE(read->isOrganization()) << line;
    EXPECT_THAT(writtenLines(read), ElementsAre("KIND:org")) << line;
  }
}

TEST(Kind, OfAPersonSaysNothing) {
  const auto read = person("KIND:individual\nTEL:1");
  EXPECT_FALSE(read->isOrganization());
  EXPECT_THAT(writtenLines(read), ElementsAre("TEL:1"));
}

TEST(Kind, OtherKindsAreKept) {
  const auto read = person("KIND:location");
  EXPECT_FALSE(read->isOrganization());
  EXPECT_THAT(entries(*read, OVProPertyOther), ElementsAre("*KIND|KIND: location"));
  EXPECT_THAT(writtenLines(read), ElementsAre("KIND:location"));
}

TEST(Tags, AreTheCategories) {
  const auto read = person("CATEGORIES:a,b\\,c, d ,,a\nCATEGORIES:e;f");
  const auto value =
      std::dynamic_pointer_cast<OVMutableSingleValue>(read->valueByPropertyName(OVProPertyTags));
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(value->type(), OVValueTypeTags);
  EXPECT_EQ(datumText(value->value()), "#a#b,c#d#e#f");
  EXPECT_THAT(writtenLines(read), ElementsAre("CATEGORIES:a,b\\,c,d,e,f"));
}

TEST(Tags, OfOldCardsAreAListToo) {
  EXPECT_EQ(entry(*person("CATEGORIES:a,b", "2.1"), OVProPertyTags), "#a#b");
}

TEST(Tags, AreNoValueWhenThereAreNone) {
  EXPECT_EQ(person("CATEGORIES:\nTEL:1")->valueByPropertyName(OVProPertyTags), nullptr);
}

}  // namespace
