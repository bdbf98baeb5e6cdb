#include <OVAddressBookSDK/country.h>

#include <chrono>
#include <cstdlib>

#include <OVAddressBookSDK/number.h>

#include "platform/services/deadline.h"
#include "support/fakes/fake_locale.h"
#include "support/fakes/recording_defaults.h"
#include "support/printers.h"
#include "support/processes/child_process.h"
#include "support/processes/temporary_folder.h"

namespace {

class DefaultCountry : public testing::Test {
 protected:
  void store(const OVRef<OVObject>& object) const {
    OVUserDefaults::standardUserDefaults()->setObjectForKey(object, "Default_Country_Key");
  }

  const RecordedDefaults defaults;
  const FakeLocale locale{"de_DE"};
};

TEST_F(DefaultCountry, IsTheLocalOneAtFirst) {
  EXPECT_EQ(OVCountry::defaultCountry(), OVCountry::countryWithCode("de"));
  EXPECT_TRUE(defaults->writes.empty());
}

TEST_F(DefaultCountry, IsTheStoredOne) {
  store(OVString("fr"));
  EXPECT_EQ(OVCountry::defaultCountry()->name(), "France");
}

TEST_F(DefaultCountry, IsTheLocalOneWhenTheStoredCodeIsUnknown) {
  store(OVString("zz"));
  EXPECT_EQ(OVCountry::defaultCountry(), OVCountry::local());
}

TEST_F(DefaultCountry, IsTheLocalOneWhenNoTextIsStored) {
  store(OVNumber::numberWithInteger(33));
  EXPECT_EQ(OVCountry::defaultCountry(), OVCountry::local());
}

TEST_F(DefaultCountry, IsReadAgainOnEachCall) {
  store(OVString("fr"));
  EXPECT_EQ(OVCountry::defaultCountry()->code(), "fr");
  store(OVString("it"));
  EXPECT_EQ(OVCountry::defaultCountry()->code(), "it");
  store(nullptr);
  EXPECT_EQ(OVCountry::defaultCountry()->code(), "de");
}

TEST_F(DefaultCountry, FollowsTheRulesOfCodes) {
  store(OVString("FR"));
  EXPECT_EQ(OVCountry::defaultCountry()->code(), "us");
}

TEST_F(DefaultCountry, IsStoredByItsCodeAndWrittenThrough) {
  OVCountry::setDefaultCountry(OVCountry::countryWithCode("fr"));
  ASSERT_EQ(defaults->writes.size(), 1U);
  EXPECT_EQ(defaults->writes[0].key, "Default_Country_Key");
  EXPECT_EQ(ov::cast<OVString>(defaults->writes[0].object), "fr");
  EXPECT_EQ(defaults->synchronizations, 1);
}

TEST_F(DefaultCountry, KeepsTheCodeOfACountryOfTheHostAsItIs) {
  OVCountry::setDefaultCountry(OVCountry::initWithCodeName("Atlantis", "Atlantis"));
  EXPECT_EQ(ov::cast<OVString>(defaults->writes.at(0).object), "Atlantis");
  EXPECT_EQ(OVCountry::defaultCountry(), OVCountry::local());
}

TEST_F(DefaultCountry, IsNotChangedByNull) {
  OVCountry::setDefaultCountry(OVCountry::countryWithCode("fr"));
  OVCountry::setDefaultCountry(nullptr);
  EXPECT_EQ(defaults->writes.size(), 1U);
  EXPECT_EQ(defaults->synchronizations, 1);
  EXPECT_EQ(OVCountry::defaultCountry()->code(), "fr");
}

TEST_F(DefaultCountry, IsTakenBackByANullCode) {
  OVCountry::setDefaultCountry(OVCountry::countryWithCode("fr"));
  OVCountry::setDefaultCountry(OVCountry::initWithCodeName(nullptr, "Nowhere"));
  EXPECT_EQ(OVCountry::defaultCountry(), OVCountry::local());
}

/// The default country in the user defaults on the disk, in one process after another.
TEST(StoredDefaultCountry, IsThatOfTheLastProcessThatChose) {
  const TemporaryFolder folder;
  ::setenv("XDG_CONFIG_HOME", folder.path().c_str(), 1);
  Pipe isAsked;
  Pipe isChosen;
  ChildProcess other([&] {
    const FakeLocale german("de_DE");
    EXPECT_EQ(OVCountry::defaultCountry()->code(), "de");
    isAsked.write("x");
    (void)isChosen.read();
    ov::Deadline deadline(std::chrono::minutes(1));
    while (OVCountry::defaultCountry()->code() != "fr" && deadline.pause()) {
    }
    EXPECT_EQ(OVCountry::defaultCountry()->code(), "fr");
    OVCountry::setDefaultCountry(OVCountry::countryWithCode("it"));
    return !testing::Test::HasFailure();
  });
  (void)isAsked.read();
  ChildProcess choosing([] {
    OVCountry::setDefaultCountry(OVCountry::countryWithCode("fr"));
    return OVCountry::defaultCountry()->code() == "fr";
  });
  EXPECT_TRUE(choosing.succeeded());
  isChosen.write("x");
  EXPECT_TRUE(other.succeeded());
  ChildProcess last([] { return OVCountry::defaultCountry()->code() == "it"; });
  EXPECT_TRUE(last.succeeded());
  ::unsetenv("XDG_CONFIG_HOME");
}

}  // namespace
