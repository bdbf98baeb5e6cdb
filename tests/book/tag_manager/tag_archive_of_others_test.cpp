// What hosts, other programs and damage leave under the ID of a tag manager.

#include <OVAddressBookSDK/number.h>

#include "book/tag_manager/tag_archive.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using TagArchiveOfOthers = TagArchive;

void expectRefused() {
  try {
    static_cast<void>(OVTagManager::tagManagerWithID("book"));
    FAIL() << "nothing was thrown";
  } catch (const OVInvalidArchive& error) {
    EXPECT_THAT(error.what(), testing::HasSubstr("\"book\""));
  }
}

TEST_F(TagArchiveOfOthers, WhatIsNoArchiveIsReportedAndLeftAlone) {
  store(OVData::dataWithText("no archive"));
  expectRefused();
  EXPECT_EQ(block()->text(), "no archive");
}

TEST_F(TagArchiveOfOthers, WhatIsNoDataIsReportedAndLeftAlone) {
  store(OVString("no data"));
  expectRefused();
  EXPECT_EQ(defaults->writes.size(), 1U);
}

TEST_F(TagArchiveOfOthers, ADamagedArchiveIsReported) {
  stored()->addPersonIDForTag("P", "W");
  const auto bytes = std::string(block()->text());
  store(OVData::dataWithText(bytes.substr(0, bytes.size() - 1)));
  EXPECT_THROW((void)stored(), OVInvalidArchive);
}

TEST_F(TagArchiveOfOthers, AnArchiveOfSomethingElseIsReportedAndLeftAlone) {
  // Such as the manager of a host's class that this program does not know.
  store(OVKeyedArchiver::archivedDataWithRootObject(archivedAs("HostsTagManager", {})));
  expectRefused();
  EXPECT_EQ(defaults->writes.size(), 1U);
}

TEST_F(TagArchiveOfOthers, AnArchiveOfNullGivesANewManager) {
  store(OVKeyedArchiver::archivedDataWithRootObject(nullptr));
  stored()->addPersonIDForTag("P", "W");
  EXPECT_EQ(stored()->count(), 1U);
}

void useEverything(OVTagManager& manager) {
  manager.addPersonIDForTag("P", "W");
  manager.addPersonIDForTag("Q", "W");
  manager.removePersonIDFromTag("P", "W");
  manager.removeForPersonID("P");
  manager.removeTag("W");
  manager.setTagsForPersonID(listOf({"A"}), "P");
}

TEST_F(TagArchiveOfOthers, WithoutCollectionsItReadsAsEmptyAndTakesNothing) {
  const auto manager = storedAs({});
  EXPECT_EQ(manager->tagID(), "book");
  defaults->writes.clear();
  useEverything(*manager);
  // Two taggings, two removals, the removal of the tag; setting: removal, tagging, end.
  EXPECT_EQ(defaults->writes.size(), 8U);
  EXPECT_EQ(manager->count(), 0U);
  EXPECT_EQ(manager->tagAtIndex(0), nullptr);
  EXPECT_EQ(manager->personIDsByTag("A"), nullptr);
  EXPECT_EQ(manager->tagsByPersonID("P"), nullptr);
  EXPECT_THAT(form().keys(), ElementsAre("TagsKey", "TagsDicKey", "PersonDicKey"));
  for (const char* key : {"TagsKey", "TagsDicKey", "PersonDicKey"}) {
    EXPECT_EQ(form().object(key), nullptr) << key;
  }
}

TEST_F(TagArchiveOfOthers, CollectionsOfAnotherKindReadAsNoneAndAreWrittenBack) {
  const auto manager = storedAs({{"TagsKey", OVString("W")},
                                 {"TagsDicKey", TextList::list({"P"})},
                                 {"PersonDicKey", OVNumber::numberWithInteger(1)}});
  useEverything(*manager);
  EXPECT_EQ(manager->count(), 0U);
  EXPECT_EQ(manager->tagsByPersonID("P"), nullptr);
  EXPECT_EQ(ov::cast<OVString>(form().object("TagsKey")), "W");
  EXPECT_THAT(texts(ov::cast<TextList>(form().object("TagsDicKey"))), ElementsAre("P"));
  EXPECT_EQ(ov::cast<OVNumber>(form().object("PersonDicKey"))->integerValue(), 1);
}

TEST_F(TagArchiveOfOthers, OneMissingCollectionDoesNotTouchTheOthers) {
  const auto manager =
      storedAs({{"TagsKey", TextList::list()}, {"PersonDicKey", TextLists::dictionary()}});
  manager->addPersonIDForTag("P", "W");
  EXPECT_THAT(tagsOf(*manager), ElementsAre("W"));
  EXPECT_EQ(manager->personIDsByTag("W"), nullptr);
  EXPECT_THAT(texts(manager->tagsByPersonID("P")), ElementsAre("W"));
  // No list of persons carries the tag, so it goes with the first removal.
  manager->removePersonIDFromTag("Q", "W");
  EXPECT_THAT(tagsOf(*manager), IsEmpty());
}

/// A store whose list of tags and whose two dictionaries do not say the same.
TEST_F(TagArchiveOfOthers, ListsThatDisagreeAreEachChangedForThemselves) {
  const auto manager = storedAs(
      {{"TagsKey", TextList::list({"A", "B"})},
       {"TagsDicKey",
        TextLists::dictionary({{"B", TextList::list({"P", "Q"})}, {"C", TextList::list({"P"})}})},
       {"PersonDicKey", TextLists::dictionary({{"P", TextList::list({"A", "D"})}})}});
  EXPECT_THAT(texts(manager->personIDsByTag("C")), ElementsAre("P"));
  EXPECT_EQ(manager->personIDsByTag("A"), nullptr);

  // In the list of tags already, in the person's list too, but not among the tag's persons.
  manager->addPersonIDForTag("P", "A");
  EXPECT_THAT(tagsOf(*manager), ElementsAre("A", "B"));
  EXPECT_THAT(texts(manager->personIDsByTag("A")), ElementsAre("P"));
  EXPECT_THAT(texts(manager->tagsByPersonID("P")), ElementsAre("A", "D"));
  // Among the tag's persons, but nowhere else.
  manager->addPersonIDForTag("P", "C");
  EXPECT_THAT(tagsOf(*manager), ElementsAre("A", "B", "C"));
  EXPECT_THAT(texts(manager->personIDsByTag("C")), ElementsAre("P"));
  EXPECT_THAT(texts(manager->tagsByPersonID("P")), ElementsAre("A", "D", "C"));

  // The tag's persons do not know of the person's list, nor the other way round.
  manager->removeForPersonID("P");
  EXPECT_THAT(tagsOf(*manager), ElementsAre("B"));
  EXPECT_THAT(texts(manager->personIDsByTag("B")), ElementsAre("P", "Q"));
  EXPECT_EQ(manager->tagsByPersonID("P"), nullptr);
  manager->removeTag("B");
  EXPECT_THAT(tagsOf(*manager), IsEmpty());
  EXPECT_EQ(manager->tagsByPersonID("Q"), nullptr);
}

TEST_F(TagArchiveOfOthers, ElementsOfAnotherKindReadAsNullAndAreWrittenBack) {
  const auto number = OVNumber::numberWithInteger(7);
  const auto mixed = OVList<OVObject>::list({number, OVString("W")});
  const auto lists = OVDictionary<OVObject>::dictionary();
  lists.set("W", OVList<OVObject>::list({number, OVString("P")}));
  lists.set("odd", number);
  const auto manager =
      storedAs({{"TagsKey", mixed},
                {"TagsDicKey", lists},
                {"PersonDicKey", OVDictionary<OVObject>::dictionary({{"P", number}})}});
  EXPECT_EQ(manager->count(), 2U);
  EXPECT_EQ(manager->tagAtIndex(0), nullptr);
  EXPECT_EQ(manager->tagAtIndex(1), "W");
  EXPECT_EQ(manager->personIDsByTag("odd"), nullptr);
  EXPECT_EQ(manager->tagsByPersonID("P"), nullptr);
  manager->addPersonIDForTag("P", "W");
  EXPECT_THAT(texts(manager->tagsByPersonID("P")), ElementsAre("W"));
  const auto tags = ov::cast<OVList<OVObject>>(form().object("TagsKey"));
  EXPECT_EQ(ov::cast<OVNumber>(tags.front())->integerValue(), 7);
  manager->setTagsForPersonID(manager->personIDsByTag("W"), "Q");
  manager->removeTag("W");
  EXPECT_EQ(manager->personIDsByTag("W"), nullptr);
}

TEST_F(TagArchiveOfOthers, OneListInAllPlacesIsChangedInAll) {
  const auto list = TextList::list({"X", "Y"});
  const auto lists = TextLists::dictionary({{"X", list}, {"Y", list}});
  const auto manager =
      storedAs({{"TagsKey", list}, {"TagsDicKey", lists}, {"PersonDicKey", lists}});
  manager->removeTag("X");
  EXPECT_THAT(tagsOf(*manager), ElementsAre("Y"));
  manager->setTagsForPersonID(manager->personIDsByTag("Y"), "Y");
  manager->removeForPersonID("Y");
  EXPECT_EQ(stored()->count(), manager->count());
}

}  // namespace
