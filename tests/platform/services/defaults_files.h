#pragma once

#include <sys/stat.h>

#include <string>

#include <OVAddressBookSDK/data.h>

#include "stored_defaults.h"

/// Stores whose files something is the matter with.
class DefaultsFiles : public StoredDefaults {
 protected:
  [[nodiscard]] std::filesystem::path aside(int number, const std::string& suffix = "") const {
    return database().string() + ".aside-" + std::to_string(number) + suffix;
  }
  /// The store works on disk and has logged one line.
  void expectWorks() const {
    const auto defaults = openStore();
    setInteger(*defaults, 5, "works");
    EXPECT_TRUE(defaults->synchronize());
    EXPECT_EQ(integer(*openStore(), "works"), 5);
    ASSERT_EQ(log_->lines().size(), 1U);
    EXPECT_THAT(log_->lines()[0].str(), testing::HasSubstr(".aside-"));
  }
  /// The store works in memory only and has logged one line.
  void expectWorksInMemory() const {
    const auto defaults = openStore();
    EXPECT_EQ(integer(*defaults, "key"), -1);
    setInteger(*defaults, 5, "key");
    setInteger(*defaults, 6, "other");
    EXPECT_EQ(integer(*defaults, "key"), 5);
    EXPECT_FALSE(defaults->synchronize());
    EXPECT_FALSE(defaults->synchronize());
    EXPECT_EQ(integer(*defaults, "key"), 5);
    EXPECT_EQ(integer(*defaults, "other"), 6);
    ASSERT_EQ(log_->lines().size(), 1U);
    EXPECT_THAT(log_->lines()[0].str(), testing::HasSubstr("stay in memory"));
  }
  void fillDatabase(int entries) const {
    const auto defaults = openStore();
    for (int i = 0; i < entries; ++i) {
      defaults->setObjectForKey(OVData::dataWithText(std::string(1000, 'x')), std::to_string(i));
    }
    EXPECT_TRUE(defaults->synchronize());
  }
};
