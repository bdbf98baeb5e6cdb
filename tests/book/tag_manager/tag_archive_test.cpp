#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>
#include <OVAddressBookSDK/number.h>

#include "book/tag_manager/tag_lists.h"
#include "support/archive/archived_fields.h"
#include "support/fakes/recording_defaults.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using TextList = OVList<OVString>;
using TextLists = OVDictionary<TextList>;

class TagArchive : public testing::Test {
 protected:
  static void store(const OVRef<OVObject>& object) {
    OVUserDefaults::standardUserDefaults()->setObjectForKey(object, "book");
  }
  static OVRef<OVTagManager> stored() { return OVTagManager::tagManagerWithID("book"); }
  static OVRef<OVTagManager> storedAs(std::vector<ArchivedField> fields) {
    store(
        OVKeyedArchiver::archivedDataWithRootObject(archivedAs("OVTagManager", std::move(fields))));
    return stored();
  }
  static OVRef<OVData> block() {
    return ov::cast<OVData>(OVUserDefaults::standardUserDefaults()->objectForKey("book"));
  }
  static ArchivedForm form() {
    return ArchivedForm(OVKeyedUnarchiver::unarchiveOpaqueObjectWithData(block()));
  }

  const RecordedDefaults defaults;
};

TEST_F(TagArchive, AStoreIsReadBackWhole) {
  const auto manager = stored();
  manager->addPersonIDForTag("P", "W");
  manager->addPersonIDForTag("Q", "V");
  manager->addPersonIDForTag("Q", "W");
  manager->addPersonIDForTag("R", "U");
  manager->removeTag("U");
  const auto read = stored();
  EXPECT_NE(read, manager);
  EXPECT_EQ(read->tagID(), "book");
  EXPECT_THAT(tagsOf(*read), ElementsAre("W", "V"));
  EXPECT_THAT(texts(read->personIDsByTag("W")), ElementsAre("P", "Q"));
  EXPECT_THAT(texts(read->personIDsByTag("V")), ElementsAre("Q"));
  EXPECT_THAT(texts(read->tagsByPersonID("P")), ElementsAre("W"));
  EXPECT_THAT(texts(read->tagsByPersonID("Q")), ElementsAre("V", "W"));
  EXPECT_NE(read->tagsByPersonID("R"), nullptr);
}

TEST_F(TagArchive, AStoreReadBackCanBeChanged) {
  stored()->addPersonIDForTag("P", "W");
  const auto read = stored();
  read->addPersonIDForTag("Q", "W");
  read->addPersonIDForTag("P", "V");
  read->removePersonIDFromTag("P", "W");
  EXPECT_THAT(tagsOf(*stored()), ElementsAre("W", "V"));
  EXPECT_THAT(texts(stored()->personIDsByTag("W")), ElementsAre("Q"));
  EXPECT_THAT(texts(stored()->tagsByPersonID("P")), ElementsAre("V"));
}

TEST_F(TagArchive, ListsOfAStoreReadBackAreLive) {
  stored()->addPersonIDForTag("P", "W");
  const auto read = stored();
  const auto tags = read->tagsByPersonID("P");
  read->addPersonIDForTag("P", "V");
  EXPECT_THAT(texts(tags), ElementsAre("W", "V"));
}

TEST_F(TagArchive, HoldsItsThreeCollectionsAsMutableOnes) {
  stored()->addPersonIDForTag("P", "W");
  EXPECT_EQ(form().className(), "OVTagManager");
  EXPECT_THAT(form().keys(), ElementsAre("TagsKey", "TagsDicKey", "PersonDicKey"));
  const auto tags = ov::cast<TextList>(form().object("TagsKey"));
  const auto personsOfTags = ov::cast<TextLists>(form().object("TagsDicKey"));
  const auto tagsOfPersons = ov::cast<TextLists>(form().object("PersonDicKey"));
  EXPECT_FALSE(tags.isImmutable());
  EXPECT_FALSE(personsOfTags.isImmutable());
  EXPECT_FALSE(tagsOfPersons.isImmutable());
  EXPECT_FALSE(personsOfTags["W"].isImmutable());
  EXPECT_THAT(texts(tags), ElementsAre("W"));
  EXPECT_THAT(texts(personsOfTags["W"]), ElementsAre("P"));
  EXPECT_THAT(texts(tagsOfPersons["P"]), ElementsAre("W"));
}

TEST_F(TagArchive, KeepsAnEmptyListOnlyWhereATagWasRemoved) {
  const auto manager = stored();
  manager->addPersonIDForTag("P", "W");
  manager->addPersonIDForTag("Q", "V");
  manager->removePersonIDFromTag("Q", "V");
  manager->removeTag("W");
  const auto personsOfTags = ov::cast<TextLists>(form().object("TagsDicKey"));
  const auto tagsOfPersons = ov::cast<TextLists>(form().object("PersonDicKey"));
  EXPECT_TRUE(personsOfTags.empty());
  EXPECT_EQ(tagsOfPersons.size(), 1U);
  EXPECT_TRUE(tagsOfPersons.contains("P"));
}

TEST_F(TagArchive, CollectionsThatWereImmutableAreWrittenMutable) {
  const auto tags = TextList::immutableList();
  tags.push_back("W");
  const auto persons = TextList::immutableList();
  persons.push_back("P");
  const auto lists = TextLists::dictionary({{"W", persons}});
  static_cast<ov::detail::DictionaryObject&>(*lists.object()).immutable = true;
  const auto manager = storedAs({{"TagsKey", tags},
                                 {"TagsDicKey", lists},
                                 {"PersonDicKey", TextLists::dictionary({{"P", tags}})}});
  manager->save();
  EXPECT_FALSE(ov::cast<TextList>(form().object("TagsKey")).isImmutable());
  const auto personsOfTags = ov::cast<TextLists>(form().object("TagsDicKey"));
  EXPECT_FALSE(personsOfTags.isImmutable());
  EXPECT_FALSE(personsOfTags["W"].isImmutable());
}

TEST_F(TagArchive, TheLastOfTwoManagersToSaveWins) {
  const auto one = stored();
  const auto other = stored();
  one->addPersonIDForTag("P", "W");
  EXPECT_EQ(other->count(), 0U);
  other->addPersonIDForTag("Q", "V");
  EXPECT_THAT(tagsOf(*stored()), ElementsAre("V"));
  one->save();
  EXPECT_THAT(tagsOf(*stored()), ElementsAre("W"));
}

TEST_F(TagArchive, TheSameContentGivesTheSameBytes) {
  stored()->addPersonIDForTag("P", "W");
  const auto first = block();
  stored()->save();
  EXPECT_EQ(block()->text(), first->text());
}

TEST_F(TagArchive, WhatIsNoArchiveIsReportedAndLeftAlone) {
  store(OVData::dataWithText("no archive"));
  try {
    (void)stored();
    FAIL() << "nothing was thrown";
  } catch (const OVInvalidArchive& error) {
    EXPECT_THAT(error.what(), testing::HasSubstr("\"book\""));
  }
  EXPECT_EQ(block()->text(), "no archive");
}

TEST_F(TagArchive, WhatIsNoDataIsReportedAndLeftAlone) {
  store(OVString("no data"));
  try {
    (void)stored();
    FAIL() << "nothing was thrown";
  } catch (const OVInvalidArchive& error) {
    EXPECT_THAT(error.what(), testing::HasSubstr("\"book\""));
  }
  EXPECT_EQ(defaults->writes.size(), 1U);
}

TEST_F(TagArchive, ADamagedArchiveIsReported) {
  stored()->addPersonIDForTag("P", "W");
  const auto bytes = std::string(block()->text());
  store(OVData::dataWithText(bytes.substr(0, bytes.size() - 1)));
  EXPECT_THROW((void)stored(), OVInvalidArchive);
}

TEST_F(TagArchive, AnArchiveOfSomethingElseIsReportedAndLeftAlone) {
  // Such as the manager of a host's class that this program does not know.
  store(OVKeyedArchiver::archivedDataWithRootObject(archivedAs("HostsTagManager", {})));
  try {
    (void)stored();
    FAIL() << "nothing was thrown";
  } catch (const OVInvalidArchive& error) {
    EXPECT_THAT(error.what(), testing::HasSubstr("\"book\""));
  }
  EXPECT_EQ(defaults->writes.size(), 1U);
}

TEST_F(TagArchive, AnArchiveOfNullGivesANewManager) {
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

TEST_F(TagArchive, WithoutCollectionsItReadsAsEmptyAndTakesNothing) {
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

TEST_F(TagArchive, CollectionsOfAnotherKindReadAsNoneAndAreWrittenBack) {
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

TEST_F(TagArchive, OneMissingCollectionDoesNotTouchTheOthers) {
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

TEST_F(TagArchive, HasNoIdBeforeItIsOpenedUnderOne) {
  stored()->addPersonIDForTag("P", "W");
  const auto read = ov::cast<OVTagManager>(OVKeyedUnarchiver::unarchiveObjectWithData(block()));
  ASSERT_NE(read, nullptr);
  EXPECT_EQ(read->tagID(), nullptr);
  defaults->writes.clear();
  read->addPersonIDForTag("Q", "W");
  EXPECT_TRUE(defaults->writes.empty());
  EXPECT_EQ(stored()->tagID(), "book");
}

/// A store whose list of tags and whose two dictionaries do not say the same.
TEST_F(TagArchive, ListsThatDisagreeAreEachChangedForThemselves) {
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

TEST_F(TagArchive, ElementsOfAnotherKindReadAsNullAndAreWrittenBack) {
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

TEST_F(TagArchive, OneListInAllPlacesIsChangedInAll) {
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
