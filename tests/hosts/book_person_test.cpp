#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/person_name.h>

#include "hosts/cards.h"
#include "support/fakes/fake_platform.h"
#include "support/printers.h"
#include "support/values.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(BookPerson, IsEmptyWhenNew) {
  const auto book = OVVCardBook::init();
  const auto one = book->newPerson();
  EXPECT_EQ(one->displayName(), "");
  EXPECT_EQ(one->showName(), "");
  EXPECT_EQ(one->thumbnail(), nullptr);
  EXPECT_EQ(one->mainPhone(), nullptr);
  EXPECT_EQ(one->mainEmail(), nullptr);
  EXPECT_TRUE(one->groups().empty());
  EXPECT_TRUE(one->tagArray().empty());
  EXPECT_FALSE(one->isOrganization());
  EXPECT_EQ(one->companyName(), nullptr);
  EXPECT_EQ(one->jobTitle(), nullptr);
  EXPECT_EQ(one->nameChineesPinyin(), nullptr);
  EXPECT_EQ(one->showNameChineesPinyin(), nullptr);
  EXPECT_EQ(one->addressBookID(), book->ID());
}

TEST(BookPerson, OutlivesItsBook) {
  OVRef<OVVCardBook> book = bookOf(card("N:L;F\nCATEGORIES:x"));
  const auto one = onlyPerson(*book);
  book = nullptr;
  const FakePlatform platform;
  EXPECT_EQ(one->displayName(), "F L");
  EXPECT_EQ(one->addressBookID(), "");
  EXPECT_TRUE(one->groups().empty());
  one->addTag("y");
  EXPECT_EQ(entry(*one, OVProPertyTags), "#x#y");
}

TEST(BookPerson, AnswersValuesByNameAndProperty) {
  const auto one = person("NOTE:x");
  const auto note = one->valueByPropertyName(OVProPertyNote);
  EXPECT_NE(note, nullptr);
  EXPECT_EQ(one->valueByProperty(OVProperty::propertyWithName(OVProPertyNote)), note);
  EXPECT_EQ(one->valueByProperty(nullptr), nullptr);
  EXPECT_EQ(one->valueByPropertyName(nullptr), nullptr);
  EXPECT_EQ(one->valueByPropertyName("No such property"), nullptr);
}

TEST(BookPerson, TakesAndLosesValues) {
  const auto one = OVVCardBook::init()->newPerson();
  const auto note = textValue("x");
  one->setValueByPropertyName(note, OVProPertyNote);
  EXPECT_EQ(one->valueByPropertyName(OVProPertyNote), note);
  const auto other = textValue("y");
  const auto property = OVProperty::propertyWithName(OVProPertyNote);
  one->setValueByProperty(other, property);
  EXPECT_EQ(one->valueByPropertyName(OVProPertyNote), other);
  one->setValueByProperty(nullptr, property);
  EXPECT_EQ(one->valueByPropertyName(OVProPertyNote), nullptr);
  one->setValueByPropertyName(note, nullptr);
  one->setValueByProperty(note, nullptr);
  EXPECT_TRUE(one->notNullValueProperty().empty());
}

TEST(BookPerson, KeepsValuesUnderNamesOfTheHost) {
  const auto one = OVVCardBook::init()->newPerson();
  one->setValueByPropertyName(textValue("x"), OVProPertySocialProfile);
  EXPECT_NE(one->valueByPropertyName(OVProPertySocialProfile), nullptr);
  EXPECT_TRUE(one->notNullValueProperty().empty());
}

TEST(BookPerson, KnowsWhichPropertiesItHas) {
  std::vector<std::string> names;
  const auto properties = person("NOTE:x\nN:L\nCATEGORIES:a\nTEL:1")->notNullValueProperty();
  for (const OVRef<OVProperty> property : properties) names.push_back(property->name().str());
  EXPECT_THAT(names, ElementsAre("Name", "Tags", "Phone", "Note"));
}

TEST(BookPerson, HasAThumbnail) {
  const auto one = OVVCardBook::init()->newPerson();
  const auto image = OVImage::imageWithData(OVData::dataWithText("image"));
  one->setThumbnail(image);
  EXPECT_EQ(one->thumbnail(), image);
  EXPECT_EQ(one->valueByPropertyName(OVProPertyThumbnail)->type(), OVValueTypeImage);
  one->setThumbnail(nullptr);
  EXPECT_EQ(one->thumbnail(), nullptr);
}

TEST(BookPerson, MayBeAnOrganization) {
  const auto one = OVVCardBook::init()->newPerson();
  one->setIsOrganization(true);
  EXPECT_TRUE(one->isOrganization());
  EXPECT_EQ(entry(*one, OVProPertyIsOrganization), "true");
  one->setIsOrganization(false);
  EXPECT_FALSE(one->isOrganization());
  EXPECT_THAT(entries(*one, OVProPertyIsOrganization), IsEmpty());
  for (const char* no : {"", "0", "no", "False"}) {
    one->setValueByPropertyName(textValue(no), OVProPertyIsOrganization);
    EXPECT_FALSE(one->isOrganization()) << no;
  }
}

TEST(BookPerson, HasANameToShow) {
  const FakePlatform platform;
  EXPECT_EQ(person("N:L;F\nORG:Acme")->showName(), "F L");
  EXPECT_EQ(person("ORG:Acme\nNICKNAME:n")->showName(), "Acme");
  EXPECT_EQ(person("NICKNAME:n\nEMAIL:a@b")->showName(), "n");
  EXPECT_EQ(person("EMAIL:a@b\nTEL:1")->showName(), "a@b");
  EXPECT_EQ(person("TEL:1")->showName(), "1");
  EXPECT_EQ(person("ORG:Acme")->displayName(), "");
}

TEST(BookPerson, HasCompanyAndJob) {
  const auto one = person("ORG:Acme\nTITLE:Cook");
  EXPECT_EQ(one->companyName(), "Acme");
  EXPECT_EQ(one->jobTitle(), "Cook");
}

TEST(BookPerson, ANewNameDropsTheOldFormattedName) {
  const auto one = person("FN:Old Name\nN:Name;Old;;Dr.;\nX-FOO:1");
  ASSERT_EQ(entries(*one, OVProPertyOther).size(), 2U);
  one->setValueByPropertyName(
      valueOf(OVValueTypePersonName,
              OVObjectPersonName::initWithFirstMiddleLast("New", nullptr, "Name")),
      OVProPertyName);
  EXPECT_THAT(writtenLines(one), ElementsAre("FN:Dr. New Name", "N:Name;New;;Dr.;", "X-FOO:1"));

  const auto two = person("FN:Old Name\nN:Name;Old;;Dr.;");
  two->setValueByPropertyName(nullptr, OVProPertyName);
  EXPECT_THAT(entries(*two, OVProPertyOther), IsEmpty());
  EXPECT_THAT(entries(*two, OVProPertyName), IsEmpty());
}

}  // namespace
