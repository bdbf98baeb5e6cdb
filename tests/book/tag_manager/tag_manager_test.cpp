#include <OVAddressBookSDK/tag_manager.h>

#include <limits>
#include <stdexcept>

#include "book/tag_manager/tag_lists.h"
#include "support/fakes/recording_defaults.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TagManager : public testing::Test {
 protected:
  const RecordedDefaults defaults;
  const OVRef<OVTagManager> manager = OVTagManager::tagManagerWithID("book");
};

TEST_F(TagManager, WithANullIdIsNone) {
  EXPECT_EQ(OVTagManager::tagManagerWithID(nullptr), nullptr);
}

TEST_F(TagManager, WithAnUnknownIdIsEmptyAndWritesNothing) {
  EXPECT_EQ(manager->tagID(), "book");
  EXPECT_EQ(manager->count(), 0U);
  EXPECT_EQ(manager->tagAtIndex(0), nullptr);
  EXPECT_EQ(manager->personIDsByTag("W"), nullptr);
  EXPECT_EQ(manager->tagsByPersonID("P"), nullptr);
  EXPECT_TRUE(defaults->writes.empty());
}

TEST_F(TagManager, AnEmptyTextIsAnIdLikeAnyOther) {
  OVTagManager::tagManagerWithID("")->addPersonIDForTag("P", "W");
  EXPECT_EQ(OVTagManager::tagManagerWithID("")->count(), 1U);
  EXPECT_EQ(OVTagManager::tagManagerWithID("book")->count(), 0U);
}

TEST_F(TagManager, MadeByInitHasNoId) {
  const auto own = OVTagManager::init();
  EXPECT_EQ(own->tagID(), nullptr);
  EXPECT_EQ(own->count(), 0U);
}

TEST_F(TagManager, WithoutAnIdKeepsItsTagsInMemoryOnly) {
  const auto own = OVTagManager::init();
  own->addPersonIDForTag("P", "W");
  own->save();
  EXPECT_THAT(tagsOf(*own), ElementsAre("W"));
  EXPECT_TRUE(defaults->writes.empty());
  own->setTagID("later");
  own->save();
  EXPECT_THAT(tagsOf(*OVTagManager::tagManagerWithID("later")), ElementsAre("W"));
}

TEST_F(TagManager, TaggingFillsBothDirections) {
  manager->addPersonIDForTag("P", "W");
  manager->addPersonIDForTag("Q", "W");
  manager->addPersonIDForTag("P", "V");
  EXPECT_THAT(tagsOf(*manager), ElementsAre("W", "V"));
  EXPECT_THAT(texts(manager->personIDsByTag("W")), ElementsAre("P", "Q"));
  EXPECT_THAT(texts(manager->personIDsByTag("V")), ElementsAre("P"));
  EXPECT_THAT(texts(manager->tagsByPersonID("P")), ElementsAre("W", "V"));
  EXPECT_THAT(texts(manager->tagsByPersonID("Q")), ElementsAre("W"));
}

TEST_F(TagManager, TaggingTwiceChangesNothing) {
  manager->addPersonIDForTag("P", "W");
  manager->addPersonIDForTag("P", "W");
  EXPECT_THAT(tagsOf(*manager), ElementsAre("W"));
  EXPECT_THAT(texts(manager->personIDsByTag("W")), ElementsAre("P"));
  EXPECT_THAT(texts(manager->tagsByPersonID("P")), ElementsAre("W"));
}

TEST_F(TagManager, EmptyTextsAreTagsAndPersons) {
  manager->addPersonIDForTag("", "");
  EXPECT_THAT(tagsOf(*manager), ElementsAre(""));
  EXPECT_THAT(texts(manager->personIDsByTag("")), ElementsAre(""));
}

TEST_F(TagManager, TagsAreComparedExactly) {
  for (const char* tag : {"i", "I", "\u0131", "\u0130"}) manager->addPersonIDForTag("P", tag);
  EXPECT_EQ(manager->count(), 4U);
}

TEST_F(TagManager, PositionsPastTheEndHaveNoTag) {
  manager->addPersonIDForTag("P", "W");
  EXPECT_EQ(manager->tagAtIndex(0), "W");
  EXPECT_EQ(manager->tagAtIndex(manager->count()), nullptr);
  EXPECT_EQ(manager->tagAtIndex(std::numeric_limits<std::uint64_t>::max()), nullptr);
}

TEST_F(TagManager, NullsHaveNoLists) {
  manager->addPersonIDForTag("P", "W");
  EXPECT_EQ(manager->personIDsByTag(nullptr), nullptr);
  EXPECT_EQ(manager->tagsByPersonID(nullptr), nullptr);
}

TEST_F(TagManager, NullsAreNotTagged) {
  manager->addPersonIDForTag(nullptr, "W");
  manager->addPersonIDForTag("P", nullptr);
  EXPECT_EQ(manager->count(), 0U);
  EXPECT_EQ(manager->tagsByPersonID("P"), nullptr);
}

TEST_F(TagManager, ListsAreLive) {
  manager->addPersonIDForTag("P", "W");
  const auto persons = manager->personIDsByTag("W");
  const auto tags = manager->tagsByPersonID("P");
  manager->addPersonIDForTag("Q", "W");
  manager->addPersonIDForTag("P", "V");
  EXPECT_THAT(texts(persons), ElementsAre("P", "Q"));
  EXPECT_THAT(texts(tags), ElementsAre("W", "V"));
  persons.push_back("R");
  EXPECT_THAT(texts(manager->personIDsByTag("W")), ElementsAre("P", "Q", "R"));
}

TEST_F(TagManager, RemovingTheOnlyPersonDropsTheTagEverywhere) {
  manager->addPersonIDForTag("P", "W");
  manager->removePersonIDFromTag("P", "W");
  EXPECT_EQ(manager->count(), 0U);
  EXPECT_EQ(manager->personIDsByTag("W"), nullptr);
  EXPECT_EQ(manager->tagsByPersonID("P"), nullptr);
}

TEST_F(TagManager, RemovingOneOfSeveralKeepsTheRest) {
  manager->addPersonIDForTag("P", "W");
  manager->addPersonIDForTag("Q", "W");
  manager->addPersonIDForTag("P", "V");
  manager->removePersonIDFromTag("P", "W");
  EXPECT_THAT(tagsOf(*manager), ElementsAre("W", "V"));
  EXPECT_THAT(texts(manager->personIDsByTag("W")), ElementsAre("Q"));
  EXPECT_THAT(texts(manager->tagsByPersonID("P")), ElementsAre("V"));
}

TEST_F(TagManager, RemovingWhatIsNotThereChangesNothing) {
  manager->addPersonIDForTag("P", "W");
  manager->removePersonIDFromTag("Q", "W");
  manager->removePersonIDFromTag("P", "V");
  manager->removePersonIDFromTag(nullptr, "W");
  manager->removePersonIDFromTag("P", nullptr);
  EXPECT_THAT(tagsOf(*manager), ElementsAre("W"));
  EXPECT_THAT(texts(manager->personIDsByTag("W")), ElementsAre("P"));
  EXPECT_THAT(texts(manager->tagsByPersonID("P")), ElementsAre("W"));
}

TEST_F(TagManager, RemovingAPersonTakesAllItsTags) {
  for (const char* tag : {"A", "B", "C"}) manager->addPersonIDForTag("P", tag);
  manager->addPersonIDForTag("Q", "B");
  manager->removeForPersonID("P");
  EXPECT_EQ(manager->tagsByPersonID("P"), nullptr);
  EXPECT_THAT(tagsOf(*manager), ElementsAre("B"));
  EXPECT_THAT(texts(manager->personIDsByTag("B")), ElementsAre("Q"));
  EXPECT_EQ(manager->personIDsByTag("A"), nullptr);
  EXPECT_EQ(manager->personIDsByTag("C"), nullptr);
}

TEST_F(TagManager, RemovingATagLeavesAnEmptyListBehind) {
  manager->addPersonIDForTag("P", "W");
  manager->addPersonIDForTag("Q", "W");
  manager->addPersonIDForTag("Q", "V");
  manager->removeTag("W");
  EXPECT_THAT(tagsOf(*manager), ElementsAre("V"));
  EXPECT_EQ(manager->personIDsByTag("W"), nullptr);
  ASSERT_NE(manager->tagsByPersonID("P"), nullptr);
  EXPECT_THAT(texts(manager->tagsByPersonID("P")), IsEmpty());
  EXPECT_THAT(texts(manager->tagsByPersonID("Q")), ElementsAre("V"));
}

TEST_F(TagManager, AnEmptyListLeftBehindGoesWithTheNextRemoval) {
  manager->addPersonIDForTag("P", "W");
  manager->removeTag("W");
  manager->removeForPersonID("P");
  ASSERT_NE(manager->tagsByPersonID("P"), nullptr);
  manager->removePersonIDFromTag("P", "W");
  EXPECT_EQ(manager->tagsByPersonID("P"), nullptr);
}

TEST_F(TagManager, SettingTagsReplacesThoseOfThePerson) {
  for (const char* tag : {"B", "D"}) manager->addPersonIDForTag("P", tag);
  manager->setTagsForPersonID(listOf({"A", "B"}), "P");
  EXPECT_THAT(texts(manager->tagsByPersonID("P")), ElementsAre("A", "B"));
  EXPECT_EQ(manager->personIDsByTag("D"), nullptr);
}

TEST_F(TagManager, SettingTagsAppendsAgainWhatOnlyThePersonCarried) {
  for (const char* tag : {"B", "D"}) manager->addPersonIDForTag("P", tag);
  manager->setTagsForPersonID(listOf({"A", "B"}), "P");
  EXPECT_THAT(tagsOf(*manager), ElementsAre("A", "B"));
}

TEST_F(TagManager, SettingTagsKeepsThePlaceOfWhatOthersCarry) {
  for (const char* tag : {"B", "D"}) manager->addPersonIDForTag("P", tag);
  for (const char* tag : {"B", "D"}) manager->addPersonIDForTag("Q", tag);
  manager->setTagsForPersonID(listOf({"A", "B"}), "P");
  EXPECT_THAT(tagsOf(*manager), ElementsAre("B", "D", "A"));
  EXPECT_THAT(texts(manager->personIDsByTag("B")), ElementsAre("Q", "P"));
  EXPECT_THAT(texts(manager->personIDsByTag("D")), ElementsAre("Q"));
}

TEST_F(TagManager, SettingNoTagsTakesAllAway) {
  manager->addPersonIDForTag("P", "W");
  manager->setTagsForPersonID(listOf({}), "P");
  EXPECT_EQ(manager->tagsByPersonID("P"), nullptr);
  EXPECT_EQ(manager->count(), 0U);
}

TEST_F(TagManager, SettingATagTwiceTagsOnce) {
  manager->setTagsForPersonID(listOf({"A", "A"}), "P");
  EXPECT_THAT(texts(manager->tagsByPersonID("P")), ElementsAre("A"));
}

TEST_F(TagManager, SettingNullChangesNothing) {
  manager->addPersonIDForTag("P", "W");
  manager->setTagsForPersonID(nullptr, "P");
  manager->setTagsForPersonID(listOf({"A"}), nullptr);
  EXPECT_THAT(texts(manager->tagsByPersonID("P")), ElementsAre("W"));
  EXPECT_THAT(tagsOf(*manager), ElementsAre("W"));
}

TEST_F(TagManager, ChangingALiveListWhileWalkingThroughItIsRaised) {
  for (const char* tag : {"A", "B", "C"}) manager->addPersonIDForTag("P", tag);
  const auto removeAll = [this] {
    for (const auto& tag : manager->tagsByPersonID("P")) manager->removePersonIDFromTag("P", tag);
  };
  EXPECT_THROW(removeAll(), std::logic_error);
  EXPECT_EQ(texts(manager->tagsByPersonID("P")), (Texts{"B", "C"}));
}

TEST_F(TagManager, WalkingThroughACopyMayChangeTheList) {
  for (const char* tag : {"A", "B", "C"}) manager->addPersonIDForTag("P", tag);
  for (const auto& tag : manager->tagsByPersonID("P").copy()) {
    manager->removePersonIDFromTag("P", tag);
  }
  EXPECT_EQ(manager->tagsByPersonID("P"), nullptr);
}

TEST_F(TagManager, SettingTheLiveListOfThePersonItselfEmptiesIt) {
  for (const char* tag : {"A", "B"}) manager->addPersonIDForTag("P", tag);
  manager->setTagsForPersonID(manager->tagsByPersonID("P"), "P");
  EXPECT_EQ(manager->tagsByPersonID("P"), nullptr);
  EXPECT_EQ(manager->count(), 0U);
}

TEST_F(TagManager, SettingTheLiveListOfAnotherPersonCopiesIt) {
  for (const char* tag : {"A", "B"}) manager->addPersonIDForTag("Q", tag);
  manager->setTagsForPersonID(manager->tagsByPersonID("Q"), "P");
  EXPECT_THAT(texts(manager->tagsByPersonID("P")), ElementsAre("A", "B"));
}

TEST_F(TagManager, SettingAListThatGrowsMeanwhileTakesItAsItWas) {
  for (const char* person : {"W", "V"}) manager->addPersonIDForTag(person, "W");
  manager->setTagsForPersonID(manager->personIDsByTag("W"), "P");
  EXPECT_THAT(texts(manager->tagsByPersonID("P")), ElementsAre("W", "V"));
  EXPECT_THAT(texts(manager->personIDsByTag("W")), ElementsAre("W", "V", "P"));
}

}  // namespace
