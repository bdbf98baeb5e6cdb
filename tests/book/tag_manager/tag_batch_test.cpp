#include <functional>
#include <new>
#include <stdexcept>

#include "book/tag_manager/tag_lists.h"
#include "support/fakes/fake_platform.h"
#include "support/fakes/recording_defaults.h"

namespace {

using testing::ElementsAre;

class TagBatch : public testing::Test {
 protected:
  const RecordedDefaults defaults;
  const OVRef<OVTagManager> manager = OVTagManager::tagManagerWithID("book");
};

TEST_F(TagBatch, SavesOnceAtTheEnd) {
  {
    const OVTagManager::Batch batch(manager);
    manager->addPersonIDForTag("P", "A");
    manager->setTagsForPersonID(listOf({"B", "C"}), "P");
    manager->save();
    EXPECT_TRUE(defaults->writes.empty());
    EXPECT_THAT(tagsOf(*manager), ElementsAre("B", "C"));
  }
  EXPECT_EQ(defaults->writes.size(), 1U);
  EXPECT_THAT(tagsOf(*OVTagManager::tagManagerWithID("book")), ElementsAre("B", "C"));
}

TEST_F(TagBatch, WithoutAChangeSavesNothing) {
  { const OVTagManager::Batch batch(manager); }
  EXPECT_TRUE(defaults->writes.empty());
}

TEST_F(TagBatch, SavesWhenAnExceptionEndsIt) {
  const auto tagHalf = [&] {
    const OVTagManager::Batch batch(manager);
    manager->addPersonIDForTag("P", "A");
    throw std::runtime_error("half way");
  };
  EXPECT_THROW(tagHalf(), std::runtime_error);
  EXPECT_EQ(defaults->writes.size(), 1U);
  EXPECT_THAT(tagsOf(*OVTagManager::tagManagerWithID("book")), ElementsAre("A"));
}

TEST_F(TagBatch, InsideAnotherLeavesTheSavingToIt) {
  {
    const OVTagManager::Batch outer(manager);
    {
      const OVTagManager::Batch inner(manager);
      manager->addPersonIDForTag("P", "A");
    }
    EXPECT_TRUE(defaults->writes.empty());
  }
  EXPECT_EQ(defaults->writes.size(), 1U);
}

TEST_F(TagBatch, MayEndEarly) {
  OVTagManager::Batch batch(manager);
  manager->addPersonIDForTag("P", "A");
  batch.end();
  EXPECT_EQ(defaults->writes.size(), 1U);
  manager->addPersonIDForTag("Q", "A");
  EXPECT_EQ(defaults->writes.size(), 2U);
  batch.end();
  EXPECT_EQ(defaults->writes.size(), 2U);
}

TEST_F(TagBatch, SavesUnderTheIdOfItsEnd) {
  {
    const OVTagManager::Batch batch(manager);
    manager->addPersonIDForTag("P", "A");
    manager->setTagID("other");
  }
  ASSERT_EQ(defaults->writes.size(), 1U);
  EXPECT_EQ(defaults->writes[0].key, "other");
}

TEST_F(TagBatch, KeepsItsManagerAlive) {
  auto tags = OVTagManager::tagManagerWithID("book");
  OVTagManager::Batch batch(tags);
  tags->addPersonIDForTag("P", "A");
  tags = nullptr;
  batch.end();
  EXPECT_EQ(defaults->writes.size(), 1U);
}

TEST_F(TagBatch, OfNoManagerDoesNothing) {
  OVTagManager::Batch batch(nullptr);
  batch.end();
  EXPECT_TRUE(defaults->writes.empty());
}

/// A store that accepts nothing.
class RefusingDefaults final : public OVUserDefaults {
  OVRef<OVObject> load(const OVString& /*key*/) const override { return nullptr; }
  void store(const OVRef<OVObject>& /*object*/, const OVString& /*key*/) override {
    throw std::runtime_error("no room");
  }
  bool writeThrough() override { return false; }
};

TEST_F(TagBatch, WhatCannotBeSavedGoesToTheLogAndStaysInMemory) {
  const auto log = std::make_shared<RecordingLog>();
  OVLog::setSharedLog(log);
  OVUserDefaults::setStandardUserDefaults(std::make_shared<RefusingDefaults>());
  {
    const OVTagManager::Batch batch(manager);
    manager->addPersonIDForTag("P", "A");
  }
  EXPECT_THAT(log->lines(), ElementsAre("Tags \"book\" were not saved: no room"));
  EXPECT_THAT(tagsOf(*manager), ElementsAre("A"));
  EXPECT_THROW(manager->save(), std::runtime_error);
  OVTagManager::Batch batch(manager);
  manager->save();
  EXPECT_THROW(batch.end(), std::runtime_error);
  OVLog::setSharedLog(nullptr);
}

}  // namespace
