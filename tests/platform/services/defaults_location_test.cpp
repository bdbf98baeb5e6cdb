#include "platform/services/defaults_location.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <map>
#include <stdexcept>
#include <string>

#include <OVAddressBookSDK/user_defaults.h>

#include "support/processes/temporary_folder.h"

namespace {

class DefaultsLocation : public testing::Test {
 protected:
  std::string directory() const {
    return ov::defaultsDirectory("app", [this](const char* name) {
      const auto at = variables_.find(name);
      return at == variables_.end() ? nullptr : at->second.c_str();
    });
  }

  std::map<std::string, std::string> variables_ = {{"XDG_CONFIG_HOME", "/c"}, {"HOME", "/h"}};
};

TEST_F(DefaultsLocation, IsTheApplicationsFolderUnderXdgConfigHome) {
  EXPECT_EQ(directory(), "/c/app");
}

TEST_F(DefaultsLocation, IsUnderDotConfigInTheHomeWithoutXdgConfigHome) {
  variables_.erase("XDG_CONFIG_HOME");
  EXPECT_EQ(directory(), "/h/.config/app");
}

TEST_F(DefaultsLocation, AnEmptyOrRelativeXdgConfigHomeCountsAsAbsent) {
  for (const char* value : {"", "c", "./c", "~/c"}) {
    variables_["XDG_CONFIG_HOME"] = value;
    EXPECT_EQ(directory(), "/h/.config/app") << value;
  }
}

TEST_F(DefaultsLocation, TheHomeOfThePasswordDatabaseComesLast) {
  variables_.erase("XDG_CONFIG_HOME");
  const passwd* user = ::getpwuid(::geteuid());
  const std::string expected = user == nullptr ? "" : std::string(user->pw_dir) + "/.config/app";
  for (const char* value : {"", "h", "."}) {
    variables_["HOME"] = value;
    EXPECT_EQ(directory(), expected) << value;
  }
  variables_.erase("HOME");
  EXPECT_EQ(directory(), expected);
}

TEST(ApplicationIdentifier, NamesAFolder) {
  for (const char* name :
       {"a", "org.example.contacts", "My Contacts", "...", ".hidden", "-x", "\u00E4"}) {
    EXPECT_TRUE(ov::isApplicationIdentifier(name)) << name;
  }
  EXPECT_TRUE(ov::isApplicationIdentifier(std::string(200, 'a')));
}

TEST(ApplicationIdentifier, WhatCannotNameAFolderIsRefused) {
  EXPECT_THROW(OVUserDefaults::setApplicationIdentifier(nullptr), std::invalid_argument);
  for (const std::string& name :
       {std::string(), std::string("."), std::string(".."), std::string("/"), std::string("a/b"),
        std::string("../a"), std::string("a\nb"), std::string("a\0b", 3), std::string("a\x7F"),
        std::string(201, 'a')}) {
    EXPECT_THROW(OVUserDefaults::setApplicationIdentifier(name), std::invalid_argument) << name;
  }
}

TEST(ApplicationIdentifier, IsTheProgramsNameAtFirst) {
  EXPECT_EQ(ov::defaultApplicationIdentifier(),
            std::filesystem::read_symlink("/proc/self/exe").filename());
}

class StandardUserDefaults : public testing::Test {
 protected:
  StandardUserDefaults() { ::setenv("XDG_CONFIG_HOME", home_.path().c_str(), 1); }

  const TemporaryFolder home_;
};

TEST_F(StandardUserDefaults, AreKeptInTheApplicationsFolder) {
  OVUserDefaults::setApplicationIdentifier("one");
  OVUserDefaults::standardUserDefaults()->setBoolForKey(true, "key");
  EXPECT_TRUE(std::filesystem::is_regular_file(home_.path() / "one" / "user-defaults.db"));
}

TEST_F(StandardUserDefaults, EachApplicationHasItsOwn) {
  OVUserDefaults::setApplicationIdentifier("one");
  OVUserDefaults::standardUserDefaults()->setBoolForKey(true, "key");
  OVUserDefaults::setApplicationIdentifier("two");
  EXPECT_FALSE(OVUserDefaults::standardUserDefaults()->boolForKey("key"));
  OVUserDefaults::setApplicationIdentifier("one");
  EXPECT_TRUE(OVUserDefaults::standardUserDefaults()->boolForKey("key"));
}

TEST_F(StandardUserDefaults, ReadingMakesNoFile) {
  OVUserDefaults::setApplicationIdentifier("one");
  EXPECT_FALSE(OVUserDefaults::standardUserDefaults()->boolForKey("key"));
  EXPECT_TRUE(OVUserDefaults::standardUserDefaults()->synchronize());
  EXPECT_TRUE(std::filesystem::is_empty(home_.path()));
}

}  // namespace
