// What every thread may ask at any time, while others change it: locale, country, name order, and
// the getters of objects that never change.

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/address_book.h>
#include <OVAddressBookSDK/address_field.h>
#include <OVAddressBookSDK/country.h>
#include <OVAddressBookSDK/email.h>
#include <OVAddressBookSDK/instant_message.h>
#include <OVAddressBookSDK/person_name.h>
#include <OVAddressBookSDK/phone.h>
#include <OVAddressBookSDK/property.h>

#include "support/fakes/fake_platform.h"
#include "support/printers.h"
#include "support/processes/changing.h"
#include "support/processes/together.h"

namespace {

/// Whether all eight threads find it true each time.
bool holdsOnEightThreads(const std::function<bool()>& holds) {
  const auto results = fromEightThreads([&] {
    int rounds = 0;
    while (rounds < 200 && holds()) ++rounds;
    return rounds;
  });
  return results == std::vector<int>(8, 200);
}

class SharedServices : public testing::Test {
 protected:
  const FakePlatform platform_;
};

TEST_F(SharedServices, TheLocaleIsWholeWhileItIsReplaced) {
  const auto isLocale = [] {
    const OVString code = OVCountry::localeCode();
    return code == "de" || code == "fr";
  };
  const OVRef<OVLocale> german = OVLocale::withIdentifier("de_DE");
  const OVRef<OVLocale> french = OVLocale::withIdentifier("fr_FR");
  OVLocale::setCurrentLocale(german);
  expectWholeWhileChanging(
      isLocale, [&](int i) { OVLocale::setCurrentLocale(i % 2 == 0 ? german : french); });
}

TEST_F(SharedServices, TheSystemsLocaleServesAllThreads) {
  EXPECT_TRUE(holdsOnEightThreads([] {
    const auto locale = OVLocale::currentLocale();
    return locale->lowercase("ÄÖ") == "äö" && locale->isoCountryCodes().size() > 200 &&
           !locale->currentLocaleIdentifier().empty();
  }));
}

TEST_F(SharedServices, TheDefaultCountryIsWholeWhileItIsReplaced) {
  const auto countries = {OVCountry::countryWithCode("de"), OVCountry::countryWithCode("fr")};
  OVCountry::setDefaultCountry(*countries.begin());
  expectWholeWhileChanging(
      [&] { return std::ranges::find(countries, OVCountry::defaultCountry()) != countries.end(); },
      [&](int i) { OVCountry::setDefaultCountry(countries.begin()[i % 2]); });
}

TEST_F(SharedServices, TheNameOrderMayChangeWhileNamesAreShown) {
  const auto name = OVObjectPersonName::initWithFirstMiddleLast("First", nullptr, "Last");
  expectWholeWhileChanging(
      [&] {
        const OVString shown = name->displayString();
        return shown == "First Last" || shown == "Last First";
      },
      [](int i) { OVAddressBook::setlastNameInFront(i % 2 == 0); });
}

TEST_F(SharedServices, ObjectsThatNeverChangeServeAllThreads) {
  const auto name = OVObjectPersonName::initWithFirstMiddleLast("First", "Middle", "Last");
  const auto phone = OVObjectPhone::initWithPhoneNumber("1");
  const auto email = OVObjectEmail::initWithEmail("a@b");
  const auto account = OVObjectInstantMessage::initWithUserNameServer(
      "user", OVInstantMessageServer::serverWithName("Jabber"));
  EXPECT_TRUE(holdsOnEightThreads([&] {
    return name->first() == "First" && name->middle() == "Middle" && name->last() == "Last" &&
           phone->phoneNumber() == "1" && phone->displayString() == "1" &&
           email->email() == "a@b" && account->userName() == "user" &&
           account->server()->name() == "Jabber" && account->server()->displayName() == "Jabber";
  }));
}

TEST_F(SharedServices, BuiltCataloguesServeAllThreads) {
  EXPECT_TRUE(holdsOnEightThreads([] {
    return OVProperty::propertyWithName("Note")->name() == "Note" &&
           OVProperty::StandardPropertyArray().size() == 23 &&
           OVInstantMessageServer::serverWithDisplayName("qq")->name().size() > 0 &&
           OVCountry::countryWithCode("de")->name() == "Germany" &&
           OVAdressField::fieldWithName(OVAddressFieldCity) != nullptr;
  }));
}

}  // namespace
