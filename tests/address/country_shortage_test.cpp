// The list of countries while memory runs out.

#include <OVAddressBookSDK/country.h>

#include <new>

#include "support/fakes/fake_locale.h"
#include "support/memory/failing_memory.h"
#include "support/printers.h"
#include "support/processes/own_process.h"

namespace {

TEST(CountryShortage, ACountryIsAddedToListAndCodesOrToNeither) {
  expectInOwnProcess([] {
    const FakeLocale locale("en_US", OVList<OVString>::list({"DE", "US"}));
    const auto countries = OVCountry::allCountry();
    for (const auto kind : {MemoryShortage::Kind::passing, MemoryShortage::Kind::lasting}) {
      for (const char* code : {"fr", "it", "es", "pt", "gr", "de"}) {
        const OVString given(code);
        long failures = 0;
        for (bool occurred = true; occurred;) {
          const auto before = OVCountry::countryWithCode(given);
          const std::size_t size = countries.size();
          try {
            const MemoryShortage shortage(kind, failures + 1);
            OVCountry::addCountryByCode(given);
            occurred = MemoryShortage::occurred();
            EXPECT_EQ(countries.size(), size + 1);
            EXPECT_EQ(OVCountry::countryWithCode(given), countries.back());
          } catch (const std::bad_alloc&) {
            ++failures;
            EXPECT_EQ(countries.size(), size);
            EXPECT_EQ(OVCountry::countryWithCode(given), before);
          }
        }
        EXPECT_GT(failures, 0);
      }
    }
  });
}

TEST(CountryShortage, TheListIsMadeWholeByACallThatHasTheMemory) {
  expectInOwnProcess([] {
    const FakeLocale locale("en_US", OVList<OVString>::list({"DE", "US", "AF"}));
    long failures = 0;
    for (bool occurred = true; occurred;) {
      try {
        const MemoryShortage shortage(MemoryShortage::Kind::lasting, failures + 1);
        EXPECT_EQ(OVCountry::allCountry().size(), 3U);
        occurred = MemoryShortage::occurred();
      } catch (const std::bad_alloc&) {
        ++failures;
      }
    }
    EXPECT_GT(failures, 3);
    EXPECT_EQ(OVCountry::countryWithCode("af")->name(), "Afghanistan");
  });
}

}  // namespace
