#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

#include <OVAddressBookSDK/address_book_general.h>
#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>
#include <OVAddressBookSDK/person_heading.h>
#include <OVAddressBookSDK/person_matcher.h>
#include <OVAddressBookSDK/person_sorter.h>
#include <OVAddressBookSDK/persons_to_list.h>

#include "person_lists.h"
#include "support/fakes/fake_platform.h"
#include "support/printers.h"

namespace {

using Persons = std::vector<OVRef<OVPersonGeneral>>;

std::vector<OVString> catalogue() {
  std::vector<OVString> names;
  for (const auto& property : OVProperty::StandardPropertyArray())
    names.push_back(property->name());
  return names;
}

/// With a name, a number or an address, or else with the property's own name as its text.
void add(ListedPerson& person, const OVString& property) {
  if (property == OVProPertyName) {
    person.name("Ann", "Bea", "Lee");
  } else if (property == OVProPertyPhone) {
    person.phone("4711");
  } else if (property == OVProPertyEmail) {
    person.email("ann@example.org");
  } else {
    person.text(property, property);
  }
}

OVRef<OVPersonGeneral> completePerson(const OVString& ID) {
  ListedPerson person(ID);
  for (const OVString& property : catalogue()) add(person, property);
  return person;
}

/// One for each property of the catalogue, who has only that, and one who has all.
Persons variousPersons() {
  Persons persons;
  for (const OVString& property : catalogue()) {
    ListedPerson person(property);
    add(person, property);
    persons.emplace_back(person);
  }
  persons.push_back(completePerson("all"));
  return persons;
}

OVRef<OVData> blockOf(const Persons& persons) {
  const auto book = OVAddressBookGeneral::init();
  for (const auto& person : persons) book->addPerson(person);
  return book->saveToData();
}

std::vector<OVString> sortedIDs(const Persons& persons, OVPersonOrder order) {
  std::vector<OVRef<IOVPerson>> sorted(persons.begin(), persons.end());
  OVPersonSorter(order).sort(sorted);
  std::vector<OVString> IDs;
  for (const auto& person : sorted) IDs.push_back(person->ID());
  return IDs;
}

class PersonsToList : public testing::Test {
 protected:
  const FakePlatform platform_;
};

}  // namespace

TEST_F(PersonsToList, HaveWhatListsShowAndNothingElse) {
  const auto persons = ov::personsToList(blockOf({completePerson("p")}));
  ASSERT_EQ(persons.size(), 1U);
  EXPECT_EQ(persons["p"]->ID(), "p");
  std::vector<OVString> read;
  for (const OVString& name : catalogue()) {
    if (persons["p"]->valueByPropertyName(name) != nullptr) read.push_back(name);
  }
  EXPECT_THAT(read, testing::UnorderedElementsAre(
                        OVProPertyName, OVProPertyMaidenName, OVProPertyIsOrganization,
                        OVProPertyCompany, OVProPertyPhone, OVProPertyEmail,
                        OVProPertyFirstNamePhonetic, OVProPertyLastNamePhonetic, OVProPertyNickname,
                        OVProPertyURLs, OVProPertyInstantMessage));
}

TEST_F(PersonsToList, LookLikeThoseOfTheBook) {
  const Persons whole = variousPersons();
  Persons listed;
  for (const auto& [ID, person] : ov::personsToList(blockOf(whole))) listed.push_back(person);
  ASSERT_EQ(listed.size(), whole.size());
  std::vector<OVString> words = catalogue();
  words.insert(words.end(), {"Ann", "Bea", "Lee", "4711", "ann@example.org"});
  for (std::size_t i = 0; i < whole.size(); ++i) {
    EXPECT_EQ(listed[i]->ID(), whole[i]->ID());
    const OVPersonHeading heading = ov::headingOf(*listed[i]);
    EXPECT_EQ(heading.main, ov::headingOf(*whole[i]).main) << whole[i]->ID();
    EXPECT_EQ(heading.below, ov::headingOf(*whole[i]).below) << whole[i]->ID();
    for (const OVString& word : words) {
      const OVPersonMatcher matcher(word);
      EXPECT_EQ(matcher.matches(*listed[i]), matcher.matches(*whole[i])) << whole[i]->ID() << word;
    }
  }
  for (const auto order : {OVPersonOrder::Name, OVPersonOrder::Company}) {
    EXPECT_EQ(sortedIDs(listed, order), sortedIDs(whole, order));
  }
}

TEST_F(PersonsToList, CannotBeKept) {
  const auto persons = ov::personsToList(blockOf({completePerson("p")}));
  const auto book = OVAddressBookGeneral::init();
  const auto refusal = testing::ThrowsMessage<std::invalid_argument>(
      "OVPersonGeneral: the person \"p\" was read for a list, without the rest, and cannot be "
      "kept");
  EXPECT_THAT([&] { book->addPerson(persons["p"]); }, refusal);
  EXPECT_TRUE(book->personsDic().empty());
  book->personsDic().set("p", persons["p"]);
  EXPECT_THAT([&] { (void)book->saveToData(); }, refusal);
}

TEST_F(PersonsToList, LeaveTheNextBookWhole) {
  const auto block = blockOf({completePerson("p")});
  EXPECT_NE(ov::personsToList(block), nullptr);
  const auto book =
      ov::cast<OVAddressBookGeneral>(OVAddressBookGeneral::addressBookWithData(block));
  EXPECT_NE(book->personsDic()["p"]->valueByPropertyName(OVProPertyNote), nullptr);
  EXPECT_EQ(book->saveToData()->text(), block->text());
}

TEST_F(PersonsToList, AreNullWhereTheRootIsNotABook) {
  const auto person = OVKeyedArchiver::archivedDataWithRootObject(completePerson("p"));
  EXPECT_EQ(ov::personsToList(person), nullptr);
  EXPECT_EQ(ov::personsToList(OVKeyedArchiver::archivedDataWithRootObject(nullptr)), nullptr);
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
