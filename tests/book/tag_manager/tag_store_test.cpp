#include <atomic>
#include <cstdlib>
#include <random>

#include "book/tag_manager/tag_lists.h"
#include "support/processes/child_process.h"
#include "support/processes/temporary_folder.h"

namespace {

using testing::ElementsAre;

/// A folder for the preferences of child processes. This process, which forks them, must not touch
/// the user defaults itself.
class Preferences {
 public:
  Preferences() { ::setenv("XDG_CONFIG_HOME", folder_.path().c_str(), 1); }
  Preferences(const Preferences&) = delete;
  Preferences& operator=(const Preferences&) = delete;
  ~Preferences() { ::unsetenv("XDG_CONFIG_HOME"); }

 private:
  const TemporaryFolder folder_;
};

OVRef<OVTagManager> stored() { return OVTagManager::tagManagerWithID("book"); }

/// Runs a part of a test, with its expectations, in a process of its own.
template <class Work>
bool holdsInNewProcess(Work work) {
  return ChildProcess([&] {
           work();
           return !testing::Test::HasFailure();
         })
      .succeeded();
}

TEST(TagStore, IsReadWholeByTheNextProcess) {
  const Preferences preferences;
  ASSERT_TRUE(holdsInNewProcess([] {
    const auto manager = stored();
    manager->addPersonIDForTag("P", "W");
    manager->addPersonIDForTag("Q", "V");
    manager->addPersonIDForTag("Q", "W");
  }));
  EXPECT_TRUE(holdsInNewProcess([] {
    const auto manager = stored();
    EXPECT_THAT(tagsOf(*manager), ElementsAre("W", "V"));
    EXPECT_THAT(texts(manager->personIDsByTag("W")), ElementsAre("P", "Q"));
    EXPECT_THAT(texts(manager->tagsByPersonID("Q")), ElementsAre("V", "W"));
  }));
}

TEST(TagStore, IsReadWithWhatAnotherProcessHasTaggedSince) {
  const Preferences preferences;
  Pipe opened;
  Pipe tagged;
  ChildProcess reader([&] {
    EXPECT_EQ(stored()->count(), 0U);
    for (std::size_t tags = 1; tags < 5; ++tags) {
      opened.write("x");
      (void)tagged.read();
      EXPECT_EQ(tagsOf(*stored()).size(), tags);
    }
    return !testing::Test::HasFailure();
  });
  for (int tag = 1; tag < 5; ++tag) {
    (void)opened.read();
    EXPECT_TRUE(
        holdsInNewProcess([&] { stored()->addPersonIDForTag("P", "tag " + std::to_string(tag)); }));
    tagged.write("x");
  }
  EXPECT_TRUE(reader.succeeded());
}

TEST(TagStore, HoldsWhatTheLastOfTwoProcessesSaved) {
  const Preferences preferences;
  Pipe loaded;
  Pipe changed;
  ChildProcess last([&] {
    const auto manager = stored();
    loaded.write("x");
    (void)changed.read();
    manager->addPersonIDForTag("P", "W");
    return true;
  });
  (void)loaded.read();
  EXPECT_TRUE(holdsInNewProcess([] { stored()->addPersonIDForTag("Q", "V"); }));
  changed.write("x");
  ASSERT_TRUE(last.succeeded());
  EXPECT_TRUE(holdsInNewProcess([] { EXPECT_THAT(tagsOf(*stored()), ElementsAre("W")); }));
}

/// The change at the given place of an endless row: four taggings, then one taken back.
void change(OVTagManager& manager, unsigned number) {
  const unsigned target = number % 5 == 4 ? number - 1 : number;
  const OVString person = "person " + std::to_string(target % 7);
  const OVString tag = "tag " + std::to_string(target % 11);
  if (target == number) {
    manager.addPersonIDForTag(person, tag);
  } else {
    manager.removePersonIDFromTag(person, tag);
  }
}

/// Everything that can be seen of a manager.
std::string content(const OVTagManager& manager) {
  std::string text;
  for (const OVString& tag : tagsOf(manager)) {
    text += tag.str() + ':';
    for (const OVString& person : texts(manager.personIDsByTag(tag))) text += person.str() + ',';
  }
  for (unsigned person = 0; person < 7; ++person) {
    text += std::to_string(person) + '=';
    for (const OVString& tag : texts(manager.tagsByPersonID("person " + std::to_string(person))))
      text += tag.str() + ',';
  }
  return text;
}

std::string contentAfter(std::size_t changes) {
  const auto manager = OVTagManager::init();
  for (unsigned i = 0; i < changes; ++i) change(*manager, i);
  return content(*manager);
}

/// Kills a process that tags, in the middle of whatever it does, and returns how many of its calls
/// had returned.
std::size_t killWhileTagging(std::mt19937& random) {
  Pipe reports;
  ChildProcess tagging([&]() -> bool {
    const auto manager = stored();
    for (unsigned number = 0;; ++number) {
      change(*manager, number);
      reports.write("x");
    }
  });
  const auto awaited = std::uniform_int_distribution<std::size_t>(0, 40)(random);
  std::string returned;
  while (returned.size() < awaited) returned += reports.read();
  // Some more instructions, so that the signal meets every phase of a change.
  const auto delay = std::uniform_int_distribution(0U, 200'000U)(random);
  for (unsigned i = 0; i < delay; ++i) std::atomic_signal_fence(std::memory_order_seq_cst);
  tagging.kill();
  return returned.size() + reports.readAll().size();
}

TEST(TagStore, SurvivesDeathAtAnyMoment) {
  const char* const wanted = std::getenv("OV_KILL_ROUNDS");
  const int rounds = wanted == nullptr ? 20 : std::atoi(wanted);
  const unsigned seed = std::random_device()();
  std::mt19937 random(seed);
  for (int round = 0; round < rounds; ++round) {
    SCOPED_TRACE("seed " + std::to_string(seed) + ", round " + std::to_string(round));
    const Preferences preferences;
    const std::size_t returned = killWhileTagging(random);
    // The change that was under way may have been saved or not.
    EXPECT_TRUE(holdsInNewProcess([&] {
      EXPECT_THAT(content(*stored()),
                  testing::AnyOf(contentAfter(returned), contentAfter(returned + 1)))
          << returned << " calls had returned";
    }));
  }
}

}  // namespace
