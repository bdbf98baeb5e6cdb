#include "book/tag_manager/tag_archive.h"

namespace {

using testing::ElementsAre;

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

}  // namespace
