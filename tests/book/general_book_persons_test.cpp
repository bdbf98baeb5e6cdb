#include <gtest/gtest.h>

#include <OVAddressBookSDK/address_book_general.h>

#include "book/host_persons.h"
#include "support/printers.h"
#include "support/values.h"

namespace {

class GeneralBookPersons : public testing::Test {
 protected:
  const OVRef<OVAddressBookGeneral> book = OVAddressBookGeneral::init();
};

TEST_F(GeneralBookPersons, NewBookHasTwoEmptyDictionaries) {
  EXPECT_TRUE(book->personsDic().empty());
  EXPECT_TRUE(book->groupsDic().empty());
}

TEST_F(GeneralBookPersons, DictionariesAreLive) {
  EXPECT_EQ(book->personsDic(), book->personsDic());
  EXPECT_EQ(book->groupsDic(), book->groupsDic());
  book->personsDic().set("x", OVPersonGeneral::initWithID("x"));
  EXPECT_EQ(book->personsDic().size(), 1U);
}

TEST_F(GeneralBookPersons, AddedPersonIsKeptUnderItsID) {
  book->addPerson(hostPerson("p"));
  ASSERT_EQ(book->personsDic().size(), 1U);
  EXPECT_EQ(book->personsDic()["p"]->ID(), "p");
}

TEST_F(GeneralBookPersons, SecondPersonOfAnIDReplacesTheFirst) {
  const auto first = hostPerson("p");
  const auto second = hostPerson("p");
  const auto note = textValue("second");
  second->setValueByPropertyName(note, OVProPertyNote);
  book->addPerson(first);
  book->addPerson(second);
  ASSERT_EQ(book->personsDic().size(), 1U);
  EXPECT_EQ(book->personsDic()["p"]->valueByPropertyName("Note"), note);
}

TEST_F(GeneralBookPersons, NullPersonIsIgnored) {
  book->addPerson(nullptr);
  EXPECT_TRUE(book->personsDic().empty());
}

TEST_F(GeneralBookPersons, PersonWithoutIDIsRefused) {
  book->addPerson(hostPerson("p"));
  EXPECT_THROW(book->addPerson(hostPerson(nullptr)), std::invalid_argument);
  EXPECT_EQ(book->personsDic().size(), 1U);
}

TEST_F(GeneralBookPersons, EmptyIDIsAnIDLikeAnyOther) {
  book->addPerson(hostPerson(""));
  EXPECT_NE(book->personsDic()[""], nullptr);
}

TEST_F(GeneralBookPersons, AskedAsABookItIsEmpty) {
  book->addPerson(hostPerson("p"));
  book->addGroup(hostGroup("g"));
  const OVRef<OVAddressBook> asBook = book;
  EXPECT_EQ(asBook->ID(), nullptr);
  EXPECT_EQ(asBook->name(), nullptr);
  EXPECT_EQ(asBook->allPersonsCount(), 0U);
  EXPECT_TRUE(asBook->allPersons().empty());
  EXPECT_TRUE(asBook->rootGroups().empty());
  EXPECT_EQ(asBook->groupByID("g"), nullptr);
  EXPECT_EQ(asBook->personsForIDs(OVList<OVString>::list({"p"})), nullptr);
  EXPECT_EQ(asBook->saveData(), nullptr);
  EXPECT_EQ(asBook->newPerson(), nullptr);
}

TEST_F(GeneralBookPersons, ConversionSharesTheValueObjects) {
  const auto source = hostPerson("p");
  const auto catalogue = OVProperty::StandardPropertyArray();
  for (const auto property : catalogue) {
    source->setValueByProperty(textValue(property->name()), property);
  }
  const auto person = book->generalPersonWithPerson(source);
  for (const auto property : catalogue) {
    EXPECT_EQ(person->valueByProperty(property), source->valueByPropertyName(property->name()));
  }
}

TEST_F(GeneralBookPersons, ConversionAsksForThePropertiesInCatalogueOrder) {
  const auto source = hostPerson("p");
  (void)book->generalPersonWithPerson(source);
  std::vector<OVString> expected;
  for (const auto property : OVProperty::StandardPropertyArray()) {
    expected.push_back(property->name());
  }
  EXPECT_EQ(source->asked, expected);
}

TEST_F(GeneralBookPersons, ConversionLeavesOtherValuesAndTagsBehind) {
  const auto source = hostPerson("p");
  source->setValueByPropertyName(textValue("x"), "Host Property");
  source->setValueByPropertyName(textValue("x"), OVProPertySocialProfile);
  source->addTag("Friend");
  book->addPerson(source);
  const auto person = book->personsDic()["p"];
  EXPECT_EQ(person->valueByPropertyName("Host Property"), nullptr);
  EXPECT_EQ(person->valueByPropertyName(OVProPertySocialProfile), nullptr);
  EXPECT_TRUE(person->tagArray().empty());
  EXPECT_TRUE(person->notNullValueProperty().empty());
}

TEST_F(GeneralBookPersons, ConversionOfAGeneralPersonIsANewPerson) {
  const auto source = OVPersonGeneral::initWithID("p");
  const auto value = textValue("x");
  source->setValueByPropertyName(value, OVProPertyNote);
  source->setTags(OVList<OVString>::list({"Friend"}));
  source->setExtend(OVString("of the host"));
  const auto person = book->generalPersonWithPerson(source);
  EXPECT_NE(person, source);
  EXPECT_TRUE(person->ID().isSame(source->ID()));
  EXPECT_EQ(person->valueByPropertyName(OVProPertyNote), value);
  EXPECT_TRUE(person->tagArray().empty());
  EXPECT_EQ(person->extend(), nullptr);
}

TEST_F(GeneralBookPersons, ConversionKeepsANullID) {
  EXPECT_EQ(book->generalPersonWithPerson(hostPerson(nullptr))->ID(), nullptr);
}

TEST_F(GeneralBookPersons, ConversionOfNullIsNull) {
  EXPECT_EQ(book->generalPersonWithPerson(nullptr), nullptr);
}

TEST_F(GeneralBookPersons, SnapshotAndSourceTakeNewValuesApart) {
  const auto source = hostPerson("p");
  const auto old = textValue("old");
  source->setValueByPropertyName(old, OVProPertyNote);
  book->addPerson(source);
  const auto person = book->personsDic()["p"];
  source->setValueByPropertyName(textValue("of the source"), OVProPertyNote);
  source->setValueByPropertyName(textValue("of the source"), OVProPertyCompany);
  EXPECT_EQ(person->valueByPropertyName(OVProPertyNote), old);
  EXPECT_EQ(person->valueByPropertyName(OVProPertyCompany), nullptr);
  person->setValueByPropertyName(textValue("of the snapshot"), OVProPertySuffix);
  person->setValueByPropertyName(textValue("of the snapshot"), OVProPertyNote);
  EXPECT_EQ(source->valueByPropertyName(OVProPertySuffix), nullptr);
  EXPECT_EQ(ov::cast<OVString>(
                ov::cast<OVSingleValue>(source->valueByPropertyName(OVProPertyNote))->value()),
            "of the source");
  // What both hold is one object.
  old->setValue("new");
  const auto again = hostPerson("q");
  again->setValueByPropertyName(old, OVProPertyNote);
  book->addPerson(again);
  old->setValue("newer");
  const auto shared = book->personsDic()["q"]->valueByPropertyName(OVProPertyNote);
  EXPECT_EQ(ov::cast<OVString>(ov::cast<OVSingleValue>(shared)->value()), "newer");
}

TEST_F(GeneralBookPersons, FilledBookStillGivesTheInheritedAnswers) {
  book->addPerson(hostPerson("p"));
  book->addGroup(hostGroup("g"));
  const OVRef<OVAddressBook> asBook = book;
  EXPECT_TRUE(asBook->canCreateGroup());
  EXPECT_TRUE(asBook->canCreateSubGroup());
  EXPECT_TRUE(asBook->canOprate());
  EXPECT_EQ(asBook->rootGroupsCount(), 0U);
  EXPECT_TRUE(asBook->supportProperty().empty());
  EXPECT_TRUE(asBook->commonProperty().empty());
  EXPECT_EQ(asBook->addGroupByName("x"), nullptr);
  EXPECT_TRUE(asBook->removeGroup(hostGroup("g")));
  asBook->removePersons(OVList<IOVPerson>::list({hostPerson("p")}));
  EXPECT_EQ(asBook->addOneFromOtherPerson(hostPerson("x")), nullptr);
  EXPECT_EQ(asBook->addBatchPersonForOther(hostPerson("x")), nullptr);
  EXPECT_EQ(asBook->tagManager(), nullptr);
  EXPECT_EQ(asBook->thumbnail(), nullptr);
  EXPECT_EQ(book->personsDic().size(), 1U);
  EXPECT_EQ(book->groupsDic().size(), 1U);
}

}  // namespace
