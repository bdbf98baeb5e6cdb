#include <gtest/gtest.h>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_general.h>
#include <OVAddressBookSDK/person_name.h>

#include "support/archive/archived_fields.h"
#include "support/printers.h"
#include "support/values.h"

namespace {

using Keys = std::vector<OVString>;

OVRef<OVPersonGeneral> personWith(std::initializer_list<OVString> names) {
  auto person = OVPersonGeneral::initWithID("id");
  for (const OVString& name : names) person->setValueByPropertyName(textValue(name), name);
  return person;
}

TEST(PersonArchive, HoldsValuesInCatalogueOrderThenTheID) {
  const ArchivedForm form(personWith({"Note", "Email", "Thumbnail", "Name"}));
  EXPECT_EQ(form.classes(), (Keys{"OVPersonGeneral", "NSObject"}));
  EXPECT_EQ(form.keys(), (Keys{"Thumbnail", "Name", "Email", "Note", "ID"}));
}

TEST(PersonArchive, HoldsEveryPropertyOfTheCatalogue) {
  auto person = OVPersonGeneral::initWithID("id");
  Keys expected;
  for (const auto property : OVProperty::StandardPropertyArray()) {
    person->setValueByProperty(textValue(property->name()), property);
    expected.push_back(property->name());
  }
  expected.emplace_back("ID");
  EXPECT_EQ(ArchivedForm(person).keys(), expected);
  const auto again = restored<OVPersonGeneral>(person);
  for (const auto property : OVProperty::StandardPropertyArray()) {
    const auto value = ov::cast<OVSingleValue>(again->valueByProperty(property));
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(ov::cast<OVString>(value->value()), property->name());
  }
}

TEST(PersonArchive, ComesBackWithItsID) {
  EXPECT_EQ(restored<OVPersonGeneral>(OVPersonGeneral::initWithID("some id"))->ID(), "some id");
}

TEST(PersonArchive, WithoutIDReadsAsTheEmptyID) {
  EXPECT_EQ(restored<OVPersonGeneral>(archivedAs("OVPersonGeneral", {}))->ID(), "");
}

TEST(PersonArchive, NullIDIsWrittenAsNullAndReadsAsTheEmptyID) {
  const auto person = OVPersonGeneral::initWithID(nullptr);
  const ArchivedForm form(person);
  EXPECT_EQ(form.keys(), Keys{"ID"});
  EXPECT_EQ(form.object("ID"), nullptr);
  EXPECT_EQ(restored<OVPersonGeneral>(person)->ID(), "");
}

TEST(PersonArchive, IDOfAnotherClassReadsAsNullAndIsWrittenBack) {
  const auto person =
      restored<OVPersonGeneral>(archivedAs("OVPersonGeneral", {{"ID", foreignObject()}}));
  EXPECT_EQ(person->ID(), nullptr);
  EXPECT_TRUE(isForeignObject(ArchivedForm(person).object("ID")));
}

TEST(PersonArchive, OneValueIsOneKeyBeforeTheID) {
  for (const auto property : OVProperty::StandardPropertyArray()) {
    EXPECT_EQ(ArchivedForm(personWith({property->name()})).keys(), (Keys{property->name(), "ID"}));
  }
}

class Unarchivable : public OVObject {};

TEST(PersonArchive, ExtensionThatCannotBeArchivedIsIgnored) {
  const auto person = personWith({"Note"});
  person->setExtend(std::make_shared<Unarchivable>());
  EXPECT_EQ(ArchivedForm(person).keys(), (Keys{"Note", "ID"}));
  EXPECT_NE(person->extend(), nullptr);
}

TEST(PersonArchive, ValuesUnderOtherNamesAreLost) {
  const auto person = personWith({"Host Property", "SocialProfile", "Quorvel Other Property"});
  EXPECT_NE(person->valueByPropertyName("Host Property"), nullptr);
  const auto again = restored<OVPersonGeneral>(person);
  for (const char* name : {"Host Property", "SocialProfile", "Quorvel Other Property"}) {
    EXPECT_EQ(again->valueByPropertyName(name), nullptr);
  }
}

TEST(PersonArchive, ValuesUnderOtherNamesInAnArchiveAreNotRead) {
  const auto person = restored<OVPersonGeneral>(
      archivedAs("OVPersonGeneral", {{"Host Property", textValue("x")}, {"ID", OVString("id")}}));
  EXPECT_EQ(person->valueByPropertyName("Host Property"), nullptr);
}

TEST(PersonArchive, ExtensionIsLost) {
  auto person = OVPersonGeneral::initWithID("id");
  person->setExtend(OVString("x"));
  EXPECT_EQ(ArchivedForm(person).keys(), Keys{"ID"});
  EXPECT_EQ(restored<OVPersonGeneral>(person)->extend(), nullptr);
}

TEST(PersonArchive, RestoredPersonTakesNewValues) {
  const auto person = restored<OVPersonGeneral>(personWith({"Name", "Note"}));
  person->setValueByPropertyName(textValue("new"), "Phone");
  person->setValueByPropertyName(textValue("newer"), "Note");
  EXPECT_EQ(ArchivedForm(person).keys(), (Keys{"Name", "Phone", "Note", "ID"}));
  const auto note = ov::cast<OVSingleValue>(person->valueByPropertyName("Note"));
  EXPECT_EQ(ov::cast<OVString>(note->value()), "newer");
}

TEST(PersonArchive, ObjectOfAnotherClassReadsAsNullAndIsWrittenBack) {
  const auto person = restored<OVPersonGeneral>(
      archivedAs("OVPersonGeneral", {{"Phone", foreignObject()}, {"Note", OVString("text")}}));
  EXPECT_EQ(person->valueByPropertyName("Phone"), nullptr);
  EXPECT_EQ(person->valueByPropertyName("Note"), nullptr);
  EXPECT_EQ(person->mainPhone(), nullptr);
  EXPECT_TRUE(person->notNullValueProperty().empty());
  const ArchivedForm form(person);
  EXPECT_EQ(form.keys(), (Keys{"Phone", "Note", "ID"}));
  EXPECT_TRUE(isForeignObject(form.object("Phone")));
  EXPECT_EQ(ov::cast<OVString>(form.object("Note")), "text");
}

TEST(PersonArchive, ObjectOfAnotherClassGivesWayToAValue) {
  const auto person =
      restored<OVPersonGeneral>(archivedAs("OVPersonGeneral", {{"Phone", foreignObject()}}));
  const auto phones = OVMutableMultipleValue::init();
  person->setValueByPropertyName(phones, "Phone");
  EXPECT_EQ(person->valueByPropertyName("Phone"), phones);
}

TEST(PersonArchive, KeepsNamesAndPhones) {
  auto person = OVPersonGeneral::initWithID("id");
  person->setValueByPropertyName(
      valueOf(OVValueTypePersonName,
              OVObjectPersonName::initWithFirstMiddleLast("Ann", nullptr, "Lee")),
      OVProPertyName);
  auto phones = OVMutableMultipleValue::init();
  for (const char* number : {"1", "2"}) {
    phones->addValue(valueOf(OVValueTypePhone, OVObjectPhone::initWithPhoneNumber(number)));
  }
  phones->setMainValue(phones->valueAtIndex(1));
  person->setValueByPropertyName(phones, OVProPertyPhone);
  const auto again = restored<OVPersonGeneral>(person);
  const auto name = ov::cast<OVSingleValue>(again->valueByPropertyName(OVProPertyName));
  EXPECT_EQ(ov::cast<OVObjectPersonName>(name->value())->last(), "Lee");
  ASSERT_NE(again->mainPhone(), nullptr);
  EXPECT_EQ(again->mainPhone()->phoneNumber(), "2");
}

TEST(PersonArchive, OneValueUnderTwoNamesComesBackAsOne) {
  auto person = OVPersonGeneral::initWithID("id");
  const auto value = textValue("x");
  person->setValueByPropertyName(value, "Note");
  person->setValueByPropertyName(value, "Company");
  const auto again = restored<OVPersonGeneral>(person);
  ASSERT_NE(again->valueByPropertyName("Note"), nullptr);
  EXPECT_EQ(again->valueByPropertyName("Note"), again->valueByPropertyName("Company"));
}

TEST(PersonArchive, PersonMayBeTheDatumOfItsOwnValue) {
  auto person = OVPersonGeneral::initWithID("id");
  const auto value = valueOf(OVValueTypeString, person);
  person->setValueByPropertyName(value, "Other");
  const auto again = restored<OVPersonGeneral>(person);
  const auto other = ov::cast<OVMutableSingleValue>(again->valueByPropertyName("Other"));
  EXPECT_EQ(other->value(), again);
  value->setValue(nullptr);
  other->setValue(nullptr);
}

TEST(PersonArchive, SavedReadAndSavedAgainHasTheSameBytes) {
  const auto person = personWith({"Note", "Name", "Company"});
  const auto first = OVKeyedArchiver::archivedDataWithRootObject(person);
  EXPECT_EQ(first->text(), OVKeyedArchiver::archivedDataWithRootObject(restored(person))->text());
}

TEST(PersonArchive, OrderOfSettingDoesNotShowInTheBytes) {
  const auto one = OVKeyedArchiver::archivedDataWithRootObject(personWith({"Note", "Name"}));
  const auto other = OVKeyedArchiver::archivedDataWithRootObject(personWith({"Name", "Note"}));
  EXPECT_EQ(one->text(), other->text());
}

}  // namespace
