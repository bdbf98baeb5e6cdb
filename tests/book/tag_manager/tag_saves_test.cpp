#include <functional>
#include <string>
#include <vector>

#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "book/tag_manager/tag_lists.h"
#include "support/fakes/recording_defaults.h"

namespace {

using testing::ElementsAre;

class TagSaves : public testing::Test {
 protected:
  TagSaves() {
    for (const char* tag : {"A", "B", "C"}) manager->addPersonIDForTag("P", tag);
    manager->addPersonIDForTag("Q", "B");
  }

  /// How often the store is written while `change` runs.
  std::size_t savesOf(const std::function<void()>& change) const {
    defaults->writes.clear();
    change();
    return defaults->writes.size();
  }

  const RecordedDefaults defaults;
  const OVRef<OVTagManager> manager = OVTagManager::tagManagerWithID("book");
};

TEST_F(TagSaves, WriteTheWholeStoreUnderTheIdWithoutForcingItToDisk) {
  EXPECT_EQ(savesOf([&] { manager->save(); }), 1U);
  EXPECT_EQ(defaults->writes[0].key, "book");
  const auto data = ov::cast<OVData>(defaults->writes[0].object);
  ASSERT_NE(data, nullptr);
  const auto stored = ov::cast<OVTagManager>(OVKeyedUnarchiver::unarchiveObjectWithData(data));
  ASSERT_NE(stored, nullptr);
  EXPECT_THAT(tagsOf(*stored), ElementsAre("A", "B", "C"));
  EXPECT_EQ(defaults->synchronizations, 0);
}

TEST_F(TagSaves, GoToTheIdThatTheManagerHasThen) {
  manager->setTagID("other");
  EXPECT_EQ(savesOf([&] { manager->addPersonIDForTag("R", "A"); }), 1U);
  EXPECT_EQ(defaults->writes[0].key, "other");
  EXPECT_EQ(OVTagManager::tagManagerWithID("book")->tagsByPersonID("R"), nullptr);
}

TEST_F(TagSaves, LookingWritesNothing) {
  EXPECT_EQ(savesOf([&] {
              (void)OVTagManager::tagManagerWithID("book");
              (void)manager->tagAtIndex(0);
              (void)manager->personIDsByTag("A");
              (void)manager->tagsByPersonID("P");
            }),
            0U);
}

TEST_F(TagSaves, OnceForTagging) {
  EXPECT_EQ(savesOf([&] { manager->addPersonIDForTag("P", "D"); }), 1U);
  EXPECT_EQ(savesOf([&] { manager->addPersonIDForTag("P", "D"); }), 1U);
}

TEST_F(TagSaves, NeverForTaggingWithNull) {
  EXPECT_EQ(savesOf([&] {
              manager->addPersonIDForTag(nullptr, "A");
              manager->addPersonIDForTag("P", nullptr);
            }),
            0U);
}

TEST_F(TagSaves, OnceForTakingATag) {
  EXPECT_EQ(savesOf([&] { manager->removePersonIDFromTag("P", "A"); }), 1U);
  EXPECT_EQ(savesOf([&] { manager->removePersonIDFromTag("P", "A"); }), 1U);
}

TEST_F(TagSaves, NeverForTakingNull) {
  EXPECT_EQ(savesOf([&] {
              manager->removePersonIDFromTag(nullptr, "A");
              manager->removePersonIDFromTag("P", nullptr);
            }),
            0U);
}

TEST_F(TagSaves, OnceForEachTagOfAPersonAndOnceMore) {
  EXPECT_EQ(savesOf([&] { manager->removeForPersonID("P"); }), 4U);
  EXPECT_EQ(savesOf([&] { manager->removeForPersonID("P"); }), 1U);
  EXPECT_EQ(savesOf([&] { manager->removeForPersonID(nullptr); }), 0U);
}

TEST_F(TagSaves, OnceForRemovingATag) {
  EXPECT_EQ(savesOf([&] { manager->removeTag("B"); }), 1U);
  EXPECT_EQ(savesOf([&] { manager->removeTag("B"); }), 1U);
}

TEST_F(TagSaves, OnceForRemovingANullTagToo) {
  EXPECT_EQ(savesOf([&] { manager->removeTag(nullptr); }), 1U);
  EXPECT_THAT(tagsOf(*manager), ElementsAre("A", "B", "C"));
}

TEST_F(TagSaves, SettingTagsSavesEachRemovalAndEachAddition) {
  // Three tags removed and one save for that, two added, one save at the end.
  EXPECT_EQ(savesOf([&] { manager->setTagsForPersonID(listOf({"X", "B"}), "P"); }), 7U);
  EXPECT_EQ(savesOf([&] { manager->setTagsForPersonID(listOf({}), "new"); }), 2U);
}

/// What each of the writes holds, in their order: the tags, then those of P.
std::vector<std::string> statesIn(const std::vector<RecordingDefaults::Write>& writes) {
  std::vector<std::string> states;
  for (const auto& write : writes) {
    const auto stored = ov::cast<OVTagManager>(
        OVKeyedUnarchiver::unarchiveObjectWithData(ov::cast<OVData>(write.object)));
    std::string state;
    for (const OVString& tag : tagsOf(*stored)) state += tag.str();
    state += '|';
    for (const OVString& tag : texts(stored->tagsByPersonID("P"))) state += tag.str();
    states.push_back(stored->tagsByPersonID("P") == nullptr ? state + "-" : state);
  }
  return states;
}

TEST_F(TagSaves, HoldEachStepOfTakingAllTags) {
  EXPECT_EQ(savesOf([&] { manager->removeForPersonID("P"); }), 4U);
  EXPECT_THAT(statesIn(defaults->writes), ElementsAre("BC|BC", "BC|C", "B|-", "B|-"));
}

TEST_F(TagSaves, HoldEachStepOfSettingTags) {
  EXPECT_EQ(savesOf([&] { manager->setTagsForPersonID(listOf({"X", "C", "X"}), "P"); }), 8U);
  EXPECT_THAT(statesIn(defaults->writes),
              ElementsAre("BC|BC", "BC|C", "B|-", "B|-", "BX|X", "BXC|XC", "BXC|XC", "BXC|XC"));
}

TEST_F(TagSaves, HoldTheEmptyListThatARemovedTagLeaves) {
  manager->setTagsForPersonID(listOf({"A"}), "P");
  EXPECT_EQ(savesOf([&] { manager->removeTag("A"); }), 1U);
  EXPECT_THAT(statesIn(defaults->writes), ElementsAre("B|"));
  EXPECT_EQ(savesOf([&] { manager->removeForPersonID("P"); }), 1U);
  EXPECT_THAT(statesIn(defaults->writes), ElementsAre("B|"));
}

TEST_F(TagSaves, NeverForSettingNull) {
  EXPECT_EQ(savesOf([&] {
              manager->setTagsForPersonID(nullptr, "P");
              manager->setTagsForPersonID(listOf({"A"}), nullptr);
            }),
            0U);
}

}  // namespace
