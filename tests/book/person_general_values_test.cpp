#include <algorithm>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/person_general.h>

#include "support/printers.h"
#include "support/values.h"

namespace {

class PersonValues : public testing::Test {
 protected:
  const OVRef<OVPersonGeneral> person = OVPersonGeneral::initWithID("id");

  std::vector<OVString> filledNames() const {
    std::vector<OVString> names;
    for (const auto property : person->notNullValueProperty()) names.push_back(property->name());
    std::ranges::sort(names);
    return names;
  }
};

TEST_F(PersonValues, AreTheVeryObjectsSet) {
  const auto value = textValue("Inc.");
  person->setValueByPropertyName(value, OVProPertyCompany);
  EXPECT_EQ(person->valueByPropertyName("Company"), value);
  EXPECT_EQ(person->valueByProperty(OVProperty::propertyWithName("Company")), value);
}

TEST_F(PersonValues, CanBeTakenAway) {
  person->setValueByPropertyName(textValue("Inc."), OVProPertyCompany);
  person->setValueByPropertyName(textValue("Ann"), OVProPertyNickname);
  person->removeValueByPropertyName("Company");
  person->removeValueByPropertyName("Note");
  person->removeValueByPropertyName(nullptr);
  EXPECT_EQ(person->valueByPropertyName(OVProPertyCompany), nullptr);
  EXPECT_EQ(filledNames(), std::vector<OVString>{OVProPertyNickname});
  EXPECT_TRUE(ov::removeValue(*person, OVProPertyNickname));
  EXPECT_TRUE(filledNames().empty());
}

TEST_F(PersonValues, AreKeptUnderThePropertysName) {
  const auto property = OVProperty::propertyWithName(OVProPertyMaidenName);
  const auto value = textValue("Miller");
  person->setValueByProperty(value, property);
  EXPECT_EQ(person->valueByPropertyName("MaidenName"), value);
  EXPECT_EQ(person->valueByPropertyName("Maiden Name"), nullptr);
}

TEST_F(PersonValues, NamesAreComparedByTheirCharacters) {
  const auto value = textValue("x");
  person->setValueByPropertyName(value, std::string("Host ") + "Name");
  EXPECT_EQ(person->valueByPropertyName("Host Name"), value);
  EXPECT_EQ(person->valueByPropertyName("host name"), nullptr);
  EXPECT_EQ(person->valueByPropertyName("Host Nam"), nullptr);
}

TEST_F(PersonValues, AbsentOnesAreNull) {
  EXPECT_EQ(person->valueByPropertyName("Name"), nullptr);
  EXPECT_EQ(person->valueByPropertyName(nullptr), nullptr);
  EXPECT_EQ(person->valueByProperty(OVProperty::propertyWithName("Name")), nullptr);
  EXPECT_EQ(person->valueByProperty(nullptr), nullptr);
}

TEST_F(PersonValues, LaterOneReplacesTheEarlierOne) {
  const auto later = textValue("b");
  for (const OVString& name : {OVProPertyNote, OVString("Host Property")}) {
    person->setValueByPropertyName(textValue("a"), name);
    person->setValueByPropertyName(later, name);
    EXPECT_EQ(person->valueByPropertyName(name), later);
  }
  EXPECT_EQ(filledNames(), std::vector<OVString>{"Note"});
}

TEST_F(PersonValues, NullKeepsTheOldValue) {
  const auto value = textValue("a");
  person->setValueByPropertyName(value, OVProPertyNote);
  person->setValueByPropertyName(nullptr, OVProPertyNote);
  person->setValueByProperty(nullptr, OVProperty::propertyWithName(OVProPertyNote));
  EXPECT_EQ(person->valueByPropertyName(OVProPertyNote), value);
  person->setValueByPropertyName(nullptr, OVProPertyCompany);
  EXPECT_EQ(filledNames(), std::vector<OVString>{"Note"});
}

TEST_F(PersonValues, NullNameAndNullPropertyAreIgnored) {
  person->setValueByPropertyName(textValue("a"), nullptr);
  person->setValueByProperty(textValue("a"), nullptr);
  EXPECT_EQ(person->valueByPropertyName(nullptr), nullptr);
  EXPECT_TRUE(filledNames().empty());
}

TEST_F(PersonValues, EmptyNameIsANameLikeAnyOther) {
  const auto value = textValue("a");
  person->setValueByPropertyName(value, "");
  EXPECT_EQ(person->valueByPropertyName(""), value);
}

TEST_F(PersonValues, FilledPropertiesAreThoseOfTheCatalogue) {
  for (const OVString name : {"Note", "Host Property", "Name", "SocialProfile", "Phone"}) {
    person->setValueByPropertyName(textValue("x"), name);
  }
  EXPECT_EQ(filledNames(), (std::vector<OVString>{"Name", "Note", "Phone"}));
  EXPECT_NE(person->notNullValueProperty(), person->notNullValueProperty());
}

TEST_F(PersonValues, EveryPropertyHoldsItsOwnValueInWhateverOrderTheyAreSet) {
  const auto catalogue = OVProperty::StandardPropertyArray();
  for (std::size_t i = 0; i < catalogue.size(); ++i) {
    const auto property = catalogue[i * 7 % catalogue.size()];
    person->setValueByProperty(textValue(property->name()), property);
    person->setValueByPropertyName(textValue("host"), "Host " + property->name().str());
  }
  EXPECT_EQ(person->notNullValueProperty().size(), catalogue.size());
  for (const auto property : catalogue) {
    const auto value = ov::cast<OVSingleValue>(person->valueByProperty(property));
    EXPECT_EQ(ov::cast<OVString>(value->value()), property->name());
    EXPECT_NE(person->valueByPropertyName("Host " + property->name().str()), nullptr);
  }
}

using PersonThumbnail = PersonValues;

OVRef<OVImage> thumbnailOf(const char* bytes) {
  return OVImage::imageWithData(OVData::dataWithText(bytes));
}

TEST_F(PersonThumbnail, IsTheImageSet) {
  const auto image = thumbnailOf("first");
  person->setThumbnail(image);
  EXPECT_EQ(person->thumbnail(), image);
  const auto other = thumbnailOf("second");
  person->setThumbnail(other);
  EXPECT_EQ(person->thumbnail(), other);
}

TEST_F(PersonThumbnail, IsWrappedWithTypeAndLabelOfItsProperty) {
  person->setThumbnail(thumbnailOf("first"));
  const auto value = ov::cast<OVMutableSingleValue>(person->valueByPropertyName("Thumbnail"));
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(value->type(), OVValueTypeImage);
  EXPECT_EQ(value->label()->name(), "Thumbnail");
  EXPECT_TRUE(value->label()->displayName().isSame(value->label()->name()));
}

TEST_F(PersonThumbnail, NullKeepsTheOldImage) {
  const auto image = thumbnailOf("first");
  person->setThumbnail(image);
  person->setThumbnail(nullptr);
  EXPECT_EQ(person->thumbnail(), image);
}

TEST_F(PersonThumbnail, NullOnAPersonWithoutOneSetsNothing) {
  person->setThumbnail(nullptr);
  EXPECT_EQ(person->thumbnail(), nullptr);
  EXPECT_TRUE(filledNames().empty());
}

TEST_F(PersonThumbnail, ValueOfAnotherKindIsNoThumbnail) {
  person->setValueByPropertyName(textValue("no image"), OVProPertyThumbnail);
  EXPECT_EQ(person->thumbnail(), nullptr);
}

TEST(SingleValueByMacValue, WrapsValueLabelAndType) {
  const auto label = labelOf("home");
  const OVRef<OVObject> raw = OVObjectPhone::initWithPhoneNumber("1");
  const auto value = OVPersonGeneral::singleValueByMacValueLabelType(raw, label, OVValueTypePhone);
  EXPECT_EQ(value->value(), raw);
  EXPECT_EQ(value->label(), label);
  EXPECT_EQ(value->type(), OVValueTypePhone);
}

TEST(SingleValueByMacValue, AcceptsANullLabel) {
  const auto value =
      OVPersonGeneral::singleValueByMacValueLabelType(OVString("x"), nullptr, OVValueTypeNote);
  EXPECT_EQ(value->label(), nullptr);
}

TEST(SingleValueByMacValue, OfNullIsNull) {
  EXPECT_EQ(
      OVPersonGeneral::singleValueByMacValueLabelType(nullptr, labelOf("home"), OVValueTypePhone),
      nullptr);
  EXPECT_EQ(
      OVPersonGeneral::singleValueByMacValueProperty(nullptr, OVProperty::propertyWithName("Note")),
      nullptr);
}

TEST(SingleValueByMacValue, TakesTypeAndLabelFromTheProperty) {
  const auto property = OVProperty::propertyWithName("JobTitle");
  const auto value = OVPersonGeneral::singleValueByMacValueProperty(OVString("Clerk"), property);
  EXPECT_EQ(ov::cast<OVString>(value->value()), "Clerk");
  EXPECT_EQ(value->type(), property->valueType());
  EXPECT_TRUE(value->label()->name().isSame(property->displayName()));
  EXPECT_TRUE(value->label()->displayName().isSame(property->displayName()));
  EXPECT_EQ(value->label()->name(), "Job Title");
}

TEST(SingleValueByMacValue, MakesANewLabelEachTime) {
  const auto property = OVProperty::propertyWithName("Note");
  const auto label = [&] {
    return OVPersonGeneral::singleValueByMacValueProperty(OVString("x"), property)->label();
  };
  EXPECT_NE(label(), label());
}

TEST(SingleValueByMacValue, WithoutPropertyHasNeitherTypeNorLabelTexts) {
  const auto value = OVPersonGeneral::singleValueByMacValueProperty(OVString("x"), nullptr);
  EXPECT_EQ(value->type(), 0);
  EXPECT_EQ(value->label()->name(), nullptr);
  EXPECT_EQ(value->label()->displayName(), nullptr);
}

}  // namespace
