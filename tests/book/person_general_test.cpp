#include <OVAddressBookSDK/person_general.h>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_name.h>

#include "support/fakes/fake_platform.h"
#include "support/printers.h"
#include "support/values.h"

namespace {

class PersonGeneral : public testing::Test {
 protected:
  const OVRef<OVPersonGeneral> person = OVPersonGeneral::initWithID("id");
};

TEST_F(PersonGeneral, NewOneIsEmpty) {
  EXPECT_EQ(person->displayName(), "");
  EXPECT_EQ(person->thumbnail(), nullptr);
  EXPECT_EQ(person->mainPhone(), nullptr);
  EXPECT_EQ(person->mainEmail(), nullptr);
  EXPECT_TRUE(person->groups().empty());
  EXPECT_TRUE(person->tagArray().empty());
  EXPECT_EQ(person->addressBookID(), "");
  EXPECT_TRUE(person->notNullValueProperty().empty());
  EXPECT_EQ(person->extend(), nullptr);
}

TEST_F(PersonGeneral, KeepsTheVeryIDGiven) {
  const OVString ID = "some id";
  EXPECT_TRUE(OVPersonGeneral::initWithID(ID)->ID().isSame(ID));
  EXPECT_EQ(OVPersonGeneral::initWithID("")->ID(), "");
  EXPECT_EQ(OVPersonGeneral::initWithID(nullptr)->ID(), nullptr);
}

TEST_F(PersonGeneral, GroupsAreANewListEachTime) { EXPECT_NE(person->groups(), person->groups()); }

TEST_F(PersonGeneral, ExtensionIsKept) {
  const OVRef<OVObject> extension = OVList<OVObject>::list();
  person->setExtend(extension);
  EXPECT_EQ(person->extend(), extension);
  person->setExtend(nullptr);
  EXPECT_EQ(person->extend(), nullptr);
}

TEST_F(PersonGeneral, KnowsNothingOfOrganisationsAndPinyin) {
  person->setIsOrganization(true);
  EXPECT_FALSE(person->isOrganization());
  EXPECT_EQ(person->showName(), nullptr);
  EXPECT_EQ(person->companyName(), nullptr);
  EXPECT_EQ(person->jobTitle(), nullptr);
  EXPECT_EQ(person->nameChineesPinyin(), nullptr);
  EXPECT_EQ(person->showNameChineesPinyin(), nullptr);
}

using PersonDisplayName = PersonGeneral;

OVRef<OVMutableSingleValue> nameValue() {
  return valueOf(OVValueTypePersonName,
                 OVObjectPersonName::initWithFirstMiddleLast("John", nullptr, "Smith"));
}

TEST_F(PersonDisplayName, IsThatOfTheNameObjectInTheCurrentOrder) {
  const FakePlatform platform;
  person->setValueByPropertyName(nameValue(), OVProPertyName);
  EXPECT_EQ(person->displayName(), "John Smith");
  platform.defaults->setBoolForKey(true, "l_n_f");
  EXPECT_EQ(person->displayName(), "Smith John");
}

TEST_F(PersonDisplayName, IsEmptyWithoutANameObject) {
  person->setValueByPropertyName(valueOf(OVValueTypePersonName, nullptr), OVProPertyName);
  EXPECT_EQ(person->displayName(), "");
}

TEST_F(PersonDisplayName, IsEmptyForValuesOfAnotherKind) {
  person->setValueByPropertyName(textValue("John Smith"), OVProPertyName);
  EXPECT_EQ(person->displayName(), "");
  person->setValueByPropertyName(OVMutableMultipleValue::init(), OVProPertyName);
  EXPECT_EQ(person->displayName(), "");
  person->setValueByPropertyName(OVValue::init(), OVProPertyName);
  EXPECT_EQ(person->displayName(), "");
}

using PersonMainValue = PersonGeneral;

OVRef<OVMutableMultipleValue> phonesOf(const OVRef<OVSingleValue>& main) {
  auto phones = OVMutableMultipleValue::init();
  phones->addValue(
      valueOf(OVValueTypePhone, OVObjectPhone::initWithPhoneNumber("1"), labelOf("home")));
  phones->addValue(main);
  phones->setMainValue(main);
  return phones;
}

TEST_F(PersonMainValue, IsThatOfTheMultipleValue) {
  const auto phone = OVObjectPhone::initWithPhoneNumber("2");
  const auto main = valueOf(OVValueTypePhone, phone);
  person->setValueByPropertyName(phonesOf(main), OVProPertyPhone);
  EXPECT_EQ(person->mainValueForProPertyName("Phone"), main);
  EXPECT_EQ(person->valueOfMainValueForProPertyName("Phone"), phone);
  EXPECT_EQ(person->mainPhone(), phone);
}

TEST_F(PersonMainValue, OfEmailsIsAnEmail) {
  const auto email = OVObjectEmail::initWithEmail("a@b");
  auto emails = OVMutableMultipleValue::init();
  emails->addValue(valueOf(OVValueTypeEmail, email));
  person->setValueByPropertyName(emails, OVProPertyEmail);
  EXPECT_EQ(person->mainEmail(), email);
  EXPECT_EQ(person->mainPhone(), nullptr);
}

TEST_F(PersonMainValue, OfAbsentValuesIsNull) {
  EXPECT_EQ(person->mainValueForProPertyName("Phone"), nullptr);
  EXPECT_EQ(person->valueOfMainValueForProPertyName("Phone"), nullptr);
  EXPECT_EQ(person->mainValueForProPertyName(nullptr), nullptr);
  EXPECT_EQ(person->valueOfMainValueForProPertyName(nullptr), nullptr);
}

TEST_F(PersonMainValue, OfASingleValueIsNull) {
  person->setValueByPropertyName(valueOf(OVValueTypePhone, OVObjectPhone::initWithPhoneNumber("1")),
                                 OVProPertyPhone);
  EXPECT_EQ(person->mainValueForProPertyName("Phone"), nullptr);
  EXPECT_EQ(person->mainPhone(), nullptr);
}

TEST_F(PersonMainValue, OfASingleValueThatClaimsToBeMultipleIsNull) {
  person->setValueByPropertyName(
      valueOf(OVValueTypeMultiple, OVObjectPhone::initWithPhoneNumber("1")), OVProPertyPhone);
  EXPECT_EQ(person->mainValueForProPertyName("Phone"), nullptr);
  EXPECT_EQ(person->mainPhone(), nullptr);
}

TEST_F(PersonMainValue, MissingMainEntryGivesNull) {
  const auto phones = phonesOf(nullptr);
  person->setValueByPropertyName(phones, OVProPertyPhone);
  EXPECT_EQ(phones->count(), 1U);
  EXPECT_EQ(person->mainValueForProPertyName("Phone"), nullptr);
  EXPECT_EQ(person->mainPhone(), nullptr);
}

TEST_F(PersonMainValue, MainEntryThatClaimsToBeMultipleHasNoDatum) {
  const auto main = valueOf(OVValueTypeMultiple, OVObjectPhone::initWithPhoneNumber("1"));
  auto phones = OVMutableMultipleValue::init();
  phones->addValue(main);
  person->setValueByPropertyName(phones, OVProPertyPhone);
  EXPECT_EQ(person->mainValueForProPertyName("Phone"), main);
  EXPECT_EQ(person->valueOfMainValueForProPertyName("Phone"), nullptr);
  EXPECT_EQ(person->mainPhone(), nullptr);
}

TEST_F(PersonMainValue, DatumOfAnotherClassIsNoPhone) {
  auto phones = OVMutableMultipleValue::init();
  phones->addValue(textValue("555", OVValueTypePhone));
  person->setValueByPropertyName(phones, OVProPertyPhone);
  EXPECT_EQ(ov::cast<OVString>(person->valueOfMainValueForProPertyName("Phone")), "555");
  EXPECT_EQ(person->mainPhone(), nullptr);
}

TEST_F(PersonMainValue, IsAnsweredForAnyName) {
  auto values = OVMutableMultipleValue::init();
  const auto main = textValue("x");
  values->addValue(main);
  person->setValueByPropertyName(values, "Host Property");
  EXPECT_EQ(person->mainValueForProPertyName("Host Property"), main);
}

}  // namespace
