// Long lists are not walked for every change, and hold what short ones would.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "book/tag_manager/tag_lists.h"

namespace {

using testing::Contains;
using testing::Not;

constexpr int kMany = 500;

OVString id(int number) { return {"P" + std::to_string(number)}; }

class LongTagLists : public testing::Test {
 protected:
  LongTagLists() {
    for (int i = 0; i < kMany; ++i) manager->addPersonIDForTag(id(i), "W");
  }
  [[nodiscard]] Texts persons() const { return texts(manager->personIDsByTag("W")); }

  const OVRef<OVTagManager> manager = OVTagManager::init();
};

TEST_F(LongTagLists, HoldEachTextOnceInItsOrder) {
  for (int i = 0; i < kMany; ++i) manager->addPersonIDForTag(id(i), "W");
  ASSERT_EQ(persons().size(), static_cast<std::size_t>(kMany));
  for (int i = 0; i < kMany; ++i) EXPECT_EQ(persons()[static_cast<std::size_t>(i)], id(i));
}

TEST_F(LongTagLists, LoseWhatIsRemoved) {
  manager->removePersonIDFromTag(id(3), "W");
  EXPECT_THAT(persons(), Not(Contains(id(3))));
  manager->addPersonIDForTag(id(3), "W");
  EXPECT_EQ(persons().back(), id(3));
  manager->removeTag("W");
  EXPECT_EQ(manager->count(), 0U);
  manager->addPersonIDForTag(id(3), "W");
  EXPECT_EQ(persons().size(), 1U);
}

TEST_F(LongTagLists, ShowWhatOthersChangeInThem) {
  const auto live = manager->personIDsByTag("W");
  live.set(7, "X");
  manager->addPersonIDForTag("X", "W");
  EXPECT_EQ(persons().size(), static_cast<std::size_t>(kMany));
  manager->addPersonIDForTag(id(7), "W");
  EXPECT_EQ(persons().back(), id(7));
  live.erase(0);
  manager->addPersonIDForTag(id(0), "W");
  EXPECT_EQ(persons().back(), id(0));
  live.push_back("Y");
  manager->addPersonIDForTag("Y", "W");
  manager->removePersonIDFromTag("Y", "W");
  EXPECT_THAT(persons(), Not(Contains("Y")));
}

TEST_F(LongTagLists, LoseEveryOccurrence) {
  manager->personIDsByTag("W").push_back(id(1));
  manager->personIDsByTag("W").push_back(id(1));
  manager->removePersonIDFromTag(id(1), "W");
  EXPECT_THAT(persons(), Not(Contains(id(1))));
}

TEST_F(LongTagLists, MayBeReplacedMoreOftenThanIsCounted) {
  const auto live = manager->personIDsByTag("W");
  manager->addPersonIDForTag(id(0), "W");
  for (int i = 0; i < 70000; ++i) live.set(0, "Z");
  manager->addPersonIDForTag("Z", "W");
  manager->addPersonIDForTag(id(0), "W");
  live.set(0, id(0));
  manager->addPersonIDForTag("Z", "W");
  EXPECT_EQ(persons().size(), static_cast<std::size_t>(kMany) + 2);
}

}  // namespace
