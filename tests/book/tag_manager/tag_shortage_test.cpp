// Tagging while memory runs out, at each allocation in turn.

#include "book/tag_manager/tag_lists.h"
#include "support/fakes/recording_defaults.h"
#include "support/memory/failing_memory.h"

namespace {

using testing::ElementsAre;

class TagShortage : public testing::Test {
 protected:
  TagShortage() {
    const auto manager = OVTagManager::tagManagerWithID("book");
    manager->addPersonIDForTag("P", "A");
    manager->addPersonIDForTag("Q", "B");
  }

  const RecordedDefaults defaults;
};

void expectTags(const OVRef<OVTagManager>& manager) {
  ASSERT_NE(manager, nullptr);
  EXPECT_THAT(tagsOf(*manager), ElementsAre("A", "B"));
  EXPECT_THAT(texts(manager->personIDsByTag("A")), ElementsAre("P"));
  EXPECT_THAT(texts(manager->tagsByPersonID("Q")), ElementsAre("B"));
}

TEST_F(TagShortage, AManagerIsReadWholeOrNotAtAll) {
  failEachAllocation([] { return OVTagManager::tagManagerWithID("book"); }, expectTags);
  EXPECT_EQ(defaults->writes.size(), 2U);
}

TEST_F(TagShortage, TheStoreIsWrittenWholeOrNotAtAll) {
  const auto manager = OVTagManager::tagManagerWithID("book");
  const auto save = [&] {
    manager->save();
    defaults->writes.clear();
    return manager;
  };
  failEachAllocation(save, [](const OVRef<OVTagManager>& saved) {
    expectTags(saved);
    expectTags(OVTagManager::tagManagerWithID("book"));
  });
}

/// Everything that the manager holds, the order included.
std::vector<Texts> everything(const OVTagManager& manager) {
  std::vector<Texts> all{tagsOf(manager)};
  for (const char* tag : {"A", "B", "new"}) all.push_back(texts(manager.personIDsByTag(tag)));
  for (const char* person : {"P", "Q", "new"}) all.push_back(texts(manager.tagsByPersonID(person)));
  return all;
}

/// Tags the person while ever later allocations fail.
void expectTagsWhole(const OVString& person, const OVString& tag) {
  bool occurred = true;
  for (long failing = 1; occurred; failing = nextToFail(failing)) {
    const auto manager = OVTagManager::tagManagerWithID("book");
    manager->setTagID(nullptr);  // a manager without an ID does not save
    const auto before = everything(*manager);
    try {
      const MemoryShortage shortage(MemoryShortage::Kind::lasting, failing);
      manager->addPersonIDForTag(person, tag);
      occurred = MemoryShortage::occurred();
    } catch (const std::bad_alloc&) {
      EXPECT_EQ(everything(*manager), before) << "allocation " << failing;
    }
    manager->addPersonIDForTag(person, tag);
    EXPECT_EQ(texts(manager->tagsByPersonID(person)).back(), tag);
    EXPECT_EQ(texts(manager->personIDsByTag(tag)).back(), person);
  }
}

TEST_F(TagShortage, APersonIsTaggedInAllListsOrInNone) {
  for (const char* person : {"P", "Q", "new"}) {
    for (const char* tag : {"A", "B", "new"}) expectTagsWhole(person, tag);
  }
}

}  // namespace
