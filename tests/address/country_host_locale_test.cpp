// Countries under a locale service of the host's.

#include <OVAddressBookSDK/country.h>
#include <OVAddressBookSDK/locale.h>

#include <atomic>
#include <functional>
#include <future>
#include <stdexcept>
#include <utility>

#include "support/fakes/recording_defaults.h"
#include "support/printers.h"
#include "support/processes/own_process.h"

namespace {

/// The platform's countries, with something to do while they are asked for, and the case of
/// Turkish.
class HostLocale final : public OVLocale {
 public:
  explicit HostLocale(std::function<void()> whenAsked = [] {}) : whenAsked_(std::move(whenAsked)) {}

  mutable std::atomic<int> asked = 0;

  OVList<OVString> isoCountryCodes() const override {
    ++asked;
    whenAsked_();
    return platform_->isoCountryCodes();
  }
  OVString currentLocaleIdentifier() const override { return "tr_IN"; }
  OVString lowercase(const OVString& text) const override {
    std::string changed;
    for (const char c : text.view()) changed += c == 'I' ? "\u0131" : std::string(1, c);
    return changed;
  }

 private:
  const std::function<void()> whenAsked_;
  const OVRef<OVLocale> platform_ = OVLocale::withIdentifier("en_US");
};

OVRef<HostLocale> install(std::function<void()> whenAsked = [] {}) {
  auto locale = std::make_shared<HostLocale>(std::move(whenAsked));
  OVLocale::setCurrentLocale(locale);
  return locale;
}

std::size_t countriesOfThePlatform() {
  std::size_t count = 0;
  const auto codes = OVLocale::withIdentifier("en_US")->isoCountryCodes();
  for (const OVString& code : codes) {
    if (!OVCountry::countryNameByCode(code).isNull()) ++count;
  }
  return count;
}

TEST(HostLocale, ItsCaseMappingTakesNoCountryAway) {
  expectInOwnProcess([] {
    install();
    EXPECT_EQ(OVCountry::allCountry().size(), countriesOfThePlatform());
    EXPECT_EQ(OVCountry::countryNameByCode("IT"), "Italy");
    EXPECT_EQ(OVCountry::countryWithCode("IT"), OVCountry::countryWithCode("us"));
    EXPECT_EQ(OVCountry::standCode("tr_IN"), "in");
    EXPECT_EQ(OVCountry::local()->name(), "India");
    OVCountry::addCountryByCode("IT");
    EXPECT_EQ(OVCountry::allCountry().back()->code(), "it");
  });
}

TEST(HostLocale, IsAskedByTheFirstCallThatNeedsTheList) {
  using Call = void (*)();
  const std::pair<Call, int> calls[] = {
      {[] { (void)OVCountry::allCountry(); }, 1},
      {[] { (void)OVCountry::countryWithCode("de"); }, 1},
      {[] { (void)OVCountry::countryWithCode(nullptr); }, 1},
      {[] { (void)OVCountry::local(); }, 1},
      {[] { (void)OVCountry::defaultCountry(); }, 1},
      {[] { (void)OVCountry::countryNameByCode("de"); }, 0},
      {[] { (void)OVCountry::localeCode(); }, 0},
      {[] { (void)OVCountry::standCode("de_DE"); }, 0},
      {[] { (void)OVCountry::initWithCodeName("de", "Germany"); }, 0},
      {[] { OVCountry::setDefaultCountry(OVCountry::initWithCodeName("de", "Germany")); }, 0},
      {[] { OVCountry::addCountryByCode("de"); }, 0},
      {[] { OVCountry::sort(); }, 0}};
  for (const auto& [call, times] : calls) {
    expectInOwnProcess([&, call = call, times = times] {
      const RecordedDefaults defaults;
      const auto locale = install();
      call();
      EXPECT_EQ(locale->asked, times) << "call " << &call - &calls[0].first;
      for (const auto& [other, ignored] : calls) other();
      EXPECT_EQ(locale->asked, 1);
    });
  }
}

TEST(HostLocale, ThatAsksForACountryWhileItIsAskedGetsAClearError) {
  expectInOwnProcess([] {
    install([] { (void)OVCountry::countryWithCode("de"); });
    for (int call = 0; call < 2; ++call) {
      try {
        (void)OVCountry::allCountry();
        ADD_FAILURE() << "nothing was thrown";
      } catch (const std::logic_error& error) {
        EXPECT_THAT(error.what(), testing::HasSubstr("asked for a country"));
      }
    }
    install();
    EXPECT_EQ(OVCountry::countryWithCode("de")->name(), "Germany");
  });
}

TEST(HostLocale, MayAskForWhatNeedsNoList) {
  expectInOwnProcess([] {
    install([] {
      EXPECT_EQ(OVCountry::countryNameByCode("de"), "Germany");
      EXPECT_EQ(OVCountry::localeCode(), "in");
      OVCountry::sort();
    });
    EXPECT_EQ(OVCountry::countryWithCode("de")->name(), "Germany");
  });
}

TEST(HostLocale, MayWaitForAThreadThatAsksForACountryOnce) {
  expectInOwnProcess([] {
    std::atomic<bool> isFirst = true;
    const auto locale = install([&] {
      if (!isFirst.exchange(false)) return;
      const auto found =
          std::async(std::launch::async, [] { return OVCountry::countryWithCode("de"); }).get();
      EXPECT_EQ(found->name(), "Germany");
    });
    const auto list = OVCountry::allCountry();
    EXPECT_EQ(OVCountry::allCountry(), list);
    EXPECT_EQ(OVCountry::countryWithCode("de")->name(), "Germany");
    EXPECT_EQ(locale->asked, 2);
  });
}

TEST(HostLocale, ThatAlwaysWaitsForAThreadThatAsksForACountryGetsAClearError) {
  expectInOwnProcess([] {
    install([] {
      std::async(std::launch::async, [] { return OVCountry::countryWithCode("de"); }).get();
    });
    EXPECT_THROW((void)OVCountry::allCountry(), std::logic_error);
    install();
    EXPECT_EQ(OVCountry::countryWithCode("de")->name(), "Germany");
  });
}

TEST(HostLocale, ThatThrowsIsAskedAgain) {
  expectInOwnProcess([] {
    int failures = 1;
    const auto locale = install([&] {
      if (failures-- > 0) throw std::runtime_error("not yet");
    });
    EXPECT_THROW((void)OVCountry::allCountry(), std::runtime_error);
    EXPECT_EQ(OVCountry::countryWithCode("de")->name(), "Germany");
    EXPECT_EQ(locale->asked, 2);
  });
}

}  // namespace
