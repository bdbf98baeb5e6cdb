// User defaults on disk while memory runs out, that of SQLite included.

#include <sqlite3.h>

#include <functional>
#include <string>

#include "stored_defaults.h"
#include "support/memory/failing_memory.h"
#include "support/printers.h"

namespace {

using Kind = MemoryShortage::Kind;

sqlite3_mem_methods sqliteMemory;

void* allocate(int size) {
  return MemoryShortage::shouldFail() ? nullptr : sqliteMemory.xMalloc(size);
}
void* reallocate(void* block, int size) {
  return MemoryShortage::shouldFail() ? nullptr : sqliteMemory.xRealloc(block, size);
}

/// Makes SQLite feel each shortage.
void letSqliteFeelShortages() {
  sqlite3_shutdown();
  sqlite3_config(SQLITE_CONFIG_GETMALLOC, &sqliteMemory);
  sqlite3_mem_methods felt = sqliteMemory;
  felt.xMalloc = &allocate;
  felt.xRealloc = &reallocate;
  ASSERT_EQ(sqlite3_config(SQLITE_CONFIG_MALLOC, &felt), SQLITE_OK);
  ASSERT_EQ(sqlite3_config(SQLITE_CONFIG_LOOKASIDE, 0, 0), SQLITE_OK);
}

class DefaultsShortage : public StoredDefaults {
 protected:
  static void SetUpTestSuite() { letSqliteFeelShortages(); }

  DefaultsShortage() {
    const auto defaults = openStore();
    setInteger(*defaults, 7, "kept");
    defaults->setObjectForKey(OVString(kLong), "long");
  }

  /// Calls `work` with a store that nobody has used yet while ever later allocations fail, and then
  /// `check` with that store and whether the work was given up.
  template <class Work, class Check>
  void forEachShortage(
      Work work, Check check,
      const std::function<void(OVUserDefaults&)>& prepare = [](OVUserDefaults&) {}) const {
    for (const Kind kind : {Kind::passing, Kind::lasting}) {
      bool occurred = true;
      for (long failing = 1; occurred && !HasFailure(); failing += 1 + failing / 50) {
        SCOPED_TRACE(failing);
        auto defaults = openStore();
        prepare(*defaults);
        bool isGivenUp = false;
        try {
          const MemoryShortage shortage(kind, failing);
          work(*defaults);
        } catch (const std::bad_alloc&) {
          isGivenUp = true;
        }
        occurred = MemoryShortage::occurred();
        check(*defaults, isGivenUp);
        EXPECT_EQ(integer(*defaults, "kept"), 7);
        EXPECT_EQ(ov::cast<OVString>(defaults->objectForKey("long")), kLong);
        defaults = nullptr;
        EXPECT_EQ(sqlite3_memory_used(), 0);
      }
    }
    for (const OVString& line : log_->lines()) {
      EXPECT_THAT(line.str(), testing::HasSubstr("stay in memory: no memory"));
    }
    EXPECT_FALSE(std::filesystem::exists(database().string() + ".aside-1"));
  }

  const std::string kLong = std::string(5000, 'x') + "\u00E4";
};

TEST_F(DefaultsShortage, WhatCannotBeReadDoesNotPassForAbsent) {
  const OVString key = "kept";
  OVRef<OVObject> read;
  forEachShortage([&](OVUserDefaults& defaults) { read = defaults.objectForKey(key); },
                  [&](OVUserDefaults&, bool isGivenUp) {
                    EXPECT_TRUE(isGivenUp || read != nullptr);
                    read = nullptr;
                  });
}

TEST_F(DefaultsShortage, AValueIsSetOrTheStoreIsAsBefore) {
  const OVString key = "key";
  std::int64_t value = 0;
  setInteger(*openStore(), value, key);
  OVRef<OVObject> next = OVNumber::numberWithInteger(1);
  const auto set = [&](OVUserDefaults& defaults) { defaults.setObjectForKey(next, key); };
  const auto check = [&](OVUserDefaults& defaults, bool isGivenUp) {
    if (!isGivenUp) ++value;
    EXPECT_EQ(integer(defaults, key), value);
    defaults.setBoolForKey(true, "another");
    EXPECT_EQ(integer(*openStore(), key), value);
    next = OVNumber::numberWithInteger(value + 1);
  };
  forEachShortage(set, check);
  forEachShortage(set, check, [](OVUserDefaults& defaults) { (void)defaults.boolForKey("read"); });
}

TEST_F(DefaultsShortage, WhatWasSetIsSynchronizedLater) {
  forEachShortage([](OVUserDefaults& defaults) { static_cast<void>(defaults.synchronize()); },
                  [](OVUserDefaults& defaults, bool isGivenUp) {
                    EXPECT_FALSE(isGivenUp);
                    EXPECT_TRUE(defaults.synchronize());
                  });
}

TEST_F(DefaultsShortage, ADatabaseIsMadeWholeOrLater) {
  const OVString key = "key";
  const auto value = OVNumber::numberWithInteger(1);
  forEachShortage([&](OVUserDefaults& defaults) { defaults.setObjectForKey(value, key); },
                  [&](OVUserDefaults& defaults, bool isGivenUp) {
                    EXPECT_EQ(integer(defaults, key), isGivenUp ? -1 : 1);
                    setInteger(defaults, 7, "kept");
                    defaults.setObjectForKey(OVString(kLong), "long");
                    EXPECT_TRUE(defaults.synchronize());
                    EXPECT_EQ(integer(*openStore(), key), isGivenUp ? -1 : 1);
                    EXPECT_EQ(integer(*openStore(), "kept"), 7);
                  },
                  [&](OVUserDefaults&) { std::filesystem::remove_all(directory()); });
}

}  // namespace
