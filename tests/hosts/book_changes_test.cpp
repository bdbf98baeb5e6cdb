#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/address_book_general.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_general.h>
#include <OVAddressBookSDK/tag_manager.h>

#include "hosts/cards.h"
#include "support/printers.h"

namespace {

using testing::ElementsAre;

const std::string kTwo = card("UID:a\nFN:A\nCATEGORIES:x") + card("UID:b\nFN:B");

TEST(VCardBook, MakesNewPersons) {
  const auto book = OVVCardBook::init();
  const auto one = book->newPerson();
  const auto two = book->newPerson();
  EXPECT_EQ(one->ID().size(), 36U);
  EXPECT_NE(one->ID(), two->ID());
  EXPECT_TRUE(one->notNullValueProperty().empty());
  EXPECT_EQ(book->allPersonsCount(), 2U);
  EXPECT_EQ(book->allPersons().front(), one);
}

TEST(VCardBook, RemovesPersons) {
  const auto book = bookOf(kTwo + card("UID:g\nKIND:group\nMEMBER:a\nMEMBER:b"));
  const auto gone = book->allPersons().front();
  const auto tags = book->tagManager();
  book->removePersons(OVList<IOVPerson>::list({gone, gone, person("UID:b\nFN:elsewhere")}));
  EXPECT_THAT(idsOf(book->allPersons()), ElementsAre("b"));
  EXPECT_THAT(idsOf(book->groupByID("g")->persons()), ElementsAre("b"));
  EXPECT_EQ(tags->count(), 0U);
  EXPECT_TRUE(book->personsForIDs(OVList<OVString>::list({"a"})).empty());
  EXPECT_EQ(gone->addressBookID(), "");
  EXPECT_TRUE(gone->groups().empty());
  EXPECT_EQ(gone->tagArray().front(), "x");
  book->removePersons(nullptr);
  EXPECT_EQ(book->allPersonsCount(), 1U);
}

TEST(VCardBook, TakesARemovedCardAgain) {
  const auto book = bookOf(kTwo);
  book->removePersons(book->allPersons());
  book->loadWithData(OVData::dataWithText(kTwo));
  EXPECT_THAT(idsOf(book->allPersons()), ElementsAre("a", "b"));
  EXPECT_TRUE(book->problems().empty());
}

TEST(VCardBook, TakesPersonsOfOtherBooksOver) {
  const auto source = person("UID:p\nN:L;F\nTEL:1\nTEL;PREF=1:2\nCATEGORIES:x,y\nX-FOO:1");
  const auto book = OVVCardBook::init();
  const auto added = book->addOneFromOtherPerson(source);
  EXPECT_EQ(description(*added), description(*source));
  EXPECT_EQ(added->addressBookID(), book->ID());
  EXPECT_EQ(book->allPersons().front(), added);
  EXPECT_EQ(book->addOneFromOtherPerson(nullptr), nullptr);
}

TEST(VCardBook, ChangesNothingInTheOtherBook) {
  const auto source = person("TEL:1");
  const auto added = OVVCardBook::init()->addOneFromOtherPerson(source);
  const auto phones = std::dynamic_pointer_cast<OVMutableMultipleValue>(
      added->valueByPropertyName(OVProPertyPhone));
  phones->removeValueAtIndex(0);
  EXPECT_EQ(entries(*source, OVProPertyPhone).size(), 1U);
}

TEST(VCardBook, GivesANewIDWhereTheOldOneIsTaken) {
  const auto book = bookOf(kTwo + card("UID:g\nKIND:group"));
  for (const char* id : {"a", "g", ""}) {
    const auto added = book->addOneFromOtherPerson(OVPersonGeneral::initWithID(id));
    EXPECT_EQ(added->ID().size(), 36U) << id;
  }
  EXPECT_EQ(book->addOneFromOtherPerson(OVPersonGeneral::initWithID(nullptr))->ID().size(), 36U);
  EXPECT_EQ(book->addOneFromOtherPerson(OVPersonGeneral::initWithID("c"))->ID(), "c");
  EXPECT_EQ(book->allPersonsCount(), 7U);
}

TEST(VCardBook, TakesTagsThatAreAValueOnly) {
  const auto general = OVAddressBookGeneral::init();
  general->addPerson(person("UID:p\nCATEGORIES:x,y"));
  const auto added = OVVCardBook::init()->addOneFromOtherPerson(general->personsDic()["p"]);
  EXPECT_EQ(entry(*added, OVProPertyTags), "#x#y");
}

TEST(VCardBook, TakesPersonsInBatches) {
  const auto book = OVVCardBook::init();
  book->addPersonStart();
  book->addOneFromOtherPerson(OVPersonGeneral::initWithID("a"));
  book->addPersonEnd();
  for (const std::int64_t count : {std::int64_t{2}, std::int64_t{-1}, INT64_MAX, INT64_MIN}) {
    book->addBatchPersonStart(count);
  }
  EXPECT_EQ(book->addBatchPersonForOther(OVPersonGeneral::initWithID("b"))->ID(), "b");
  EXPECT_EQ(book->addBatchPersonForOther(nullptr), nullptr);
  book->addBatchPersonEnd();
  EXPECT_THAT(idsOf(book->allPersons()), ElementsAre("a", "b"));
}

TEST(VCardBook, MakesGroups) {
  const auto book = OVVCardBook::init();
  const auto group = book->addGroupByName("Friends");
  EXPECT_EQ(group->displayName(), "Friends");
  EXPECT_EQ(group->ID().size(), 36U);
  EXPECT_EQ(book->groupByID(group->ID()), group);
  EXPECT_EQ(book->rootGroups().front(), group);
  EXPECT_EQ(book->addGroupByName(nullptr), nullptr);
  EXPECT_EQ(book->rootGroupsCount(), 1U);
}

TEST(VCardBook, RemovesGroups) {
  const auto book = OVVCardBook::init();
  const auto group = book->addGroupByName("Friends");
  EXPECT_FALSE(book->removeGroup(nullptr));
  EXPECT_FALSE(book->removeGroup(OVVCardBook::init()->addGroupByName("Friends")));
  EXPECT_TRUE(book->removeGroup(group));
  EXPECT_FALSE(book->removeGroup(group));
  EXPECT_EQ(book->groupByID(group->ID()), nullptr);
  EXPECT_EQ(book->groupByID(nullptr), nullptr);
}

TEST(VCardBook, OfManyPersonsRemovesThemAtOnce) {
  std::string text;
  for (int i = 0; i < 5000; ++i) text += card("UID:" + std::to_string(i));
  const auto book = bookOf(text);
  book->removePersons(book->allPersons());
  EXPECT_EQ(book->allPersonsCount(), 0U);
}

}  // namespace
