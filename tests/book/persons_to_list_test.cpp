#include <gtest/gtest.h>

#include <stdexcept>

#include <OVAddressBookSDK/address_book_general.h>
#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>
#include <OVAddressBookSDK/person_heading.h>
#include <OVAddressBookSDK/persons_to_list.h>

#include "person_lists.h"
#include "support/archive/archive_builder.h"
#include "support/fakes/fake_platform.h"
#include "support/printers.h"

namespace {

/// Every property of the catalogue has its name as its text.
OVRef<OVPersonGeneral> completePerson(const OVString& ID) {
  auto person = OVPersonGeneral::initWithID(ID);
  for (const auto& property : OVProperty::StandardPropertyArray()) {
    person->setValueByPropertyName(textValue(property->name()), property->name());
  }
  return person;
}

OVRef<OVData> blockWith(std::initializer_list<OVRef<OVPersonGeneral>> persons) {
  const auto book = OVAddressBookGeneral::init();
  for (const auto& person : persons) book->addPerson(person);
  return book->saveToData();
}

OVString textIn(const IOVPerson& person, const OVString& name) {
  const auto value = ov::cast<OVSingleValue>(person.valueByPropertyName(name));
  return value == nullptr ? OVString() : ov::cast<OVString>(value->value());
}

/// A book of one person with an ID, and `group` in the place of its groups.
OVRef<OVData> bookWithGroups(ArchiveBuilder& b, ArchiveBuilder::Uid group) {
  const auto ID = b.addText("p");
  const auto person = b.object("OVPersonGeneral", {{"ID", b.to(ID)}});
  const auto persons = b.dictionaryOf("NSMutableDictionary", {ID}, {person});
  return b.archive(
      b.object("OVAddressBookGeneral", {{"personDic", b.to(persons)}, {"groupDic", b.to(group)}}));
}

class PersonsToList : public testing::Test {
 protected:
  const FakePlatform platform_;
};

}  // namespace

TEST_F(PersonsToList, HaveWhatListsShowAndNothingElse) {
  const auto persons = ov::personsToList(blockWith({completePerson("p")}));
  ASSERT_EQ(persons.size(), 1U);
  EXPECT_EQ(persons["p"]->ID(), "p");
  std::vector<OVString> read;
  for (const auto& property : OVProperty::StandardPropertyArray()) {
    const OVString name = property->name();
    const OVString text = textIn(*persons["p"], name);
    if (text.isNull()) continue;
    EXPECT_EQ(text, name);
    read.push_back(name);
  }
  EXPECT_EQ(read,
            (std::vector<OVString>{OVProPertyName, OVProPertyMaidenName, OVProPertyIsOrganization,
                                   OVProPertyCompany, OVProPertyPhone, OVProPertyEmail,
                                   OVProPertyFirstNamePhonetic, OVProPertyLastNamePhonetic,
                                   OVProPertyNickname, OVProPertyURLs, OVProPertyInstantMessage}));
}

TEST_F(PersonsToList, AreInTheBooksOrderAndHaveItsHeadings) {
  const auto persons = ov::personsToList(
      blockWith({ListedPerson("2").name("Zoe", nullptr, "Lee"), ListedPerson("1").phone("123")}));
  std::vector<OVString> headings;
  for (const auto& [ID, person] : persons) headings.push_back(ov::headingOf(*person).main);
  EXPECT_EQ(headings, (std::vector<OVString>{"Zoe Lee", "123"}));
}

TEST_F(PersonsToList, CannotBeArchived) {
  const auto persons = ov::personsToList(blockWith({completePerson("p")}));
  const auto book = OVAddressBookGeneral::init();
  book->personsDic().set("p", persons["p"]);
  try {
    const auto saved = book->saveToData();
    FAIL() << saved->size();
  } catch (const std::invalid_argument& error) {
    EXPECT_STREQ(error.what(),
                 "OVPersonGeneral: the person \"p\" was read for a list and cannot be archived");
  }
}

TEST_F(PersonsToList, LeaveTheNextBookWhole) {
  const auto block = blockWith({completePerson("p")});
  EXPECT_NE(ov::personsToList(block), nullptr);
  const auto book =
      ov::cast<OVAddressBookGeneral>(OVAddressBookGeneral::addressBookWithData(block));
  EXPECT_EQ(textIn(*book->personsDic()["p"], OVProPertyNote), OVProPertyNote);
  EXPECT_EQ(book->saveToData()->text(), block->text());
}

TEST_F(PersonsToList, AreNullWhereThereIsNoBookOrNoPersons) {
  const auto person = OVKeyedArchiver::archivedDataWithRootObject(completePerson("p"));
  EXPECT_EQ(ov::personsToList(person), nullptr);
  EXPECT_EQ(ov::personsToList(OVKeyedArchiver::archivedDataWithRootObject(nullptr)), nullptr);
  ArchiveBuilder b;
  EXPECT_EQ(ov::personsToList(b.archive(b.object("OVAddressBookGeneral", {}))), nullptr);
}

TEST_F(PersonsToList, OfAnEmptyBookAreNone) {
  const auto persons = ov::personsToList(OVAddressBookGeneral::init()->saveToData());
  EXPECT_NE(persons, nullptr);
  EXPECT_TRUE(persons.empty());
}

TEST_F(PersonsToList, OfWhatIsNoArchiveAreRefused) {
  EXPECT_THROW((void)ov::personsToList(nullptr), OVInvalidArchive);
  EXPECT_THROW((void)ov::personsToList(OVData::dataWithText("bplist00")), OVInvalidArchive);
}

TEST_F(PersonsToList, AreReadWhateverTheRestOfTheBookIs) {
  ArchiveBuilder b;
  const auto block = bookWithGroups(b, 4711);
  EXPECT_THROW((void)OVAddressBookGeneral::addressBookWithData(block), OVInvalidArchive);
  EXPECT_EQ(ov::personsToList(block)["p"]->ID(), "p");
}

TEST_F(PersonsToList, ReadAsNullWhereAnIDLeadsToSomethingElse) {
  ArchiveBuilder b;
  const auto ID = b.addText("p");
  const auto persons = b.dictionaryOf("NSMutableDictionary", {ID}, {b.object("Unknown", {})});
  const auto listed = ov::personsToList(
      b.archive(b.object("OVAddressBookGeneral", {{"personDic", b.to(persons)}})));
  EXPECT_EQ(listed.size(), 1U);
  EXPECT_EQ(listed["p"], nullptr);
}

TEST_F(PersonsToList, InARingAreReleasedWhenTheBlockIsRefused) {
  ArchiveBuilder b;
  const auto person = b.reserve();
  const auto name = b.object("OVMutableSingleValue", {{"value", b.to(person)}});
  const auto ID = b.addText("p");
  b.place(person, b.fields({{"$class", b.to(b.classNamed("OVPersonGeneral"))},
                            {"ID", b.to(ID)},
                            {"Name", b.to(name)},
                            {"Email", b.to(4711)}}));
  const auto persons = b.dictionaryOf("NSMutableDictionary", {ID}, {person});
  const auto block = b.archive(b.object("OVAddressBookGeneral", {{"personDic", b.to(persons)}}));
  EXPECT_THROW((void)ov::personsToList(block), OVInvalidArchive);
}
