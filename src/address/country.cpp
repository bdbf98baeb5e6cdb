// Two views of the countries: the list, which hosts may change, and a dictionary by code. Both are
// built once, by the first call, from the locale's codes.

#include <OVAddressBookSDK/country.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>

#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/locale.h>
#include <OVAddressBookSDK/user_defaults.h>

#include "address/country_names.h"
#include "platform/ascii.h"
#include "platform/built_once.h"
#include "platform/maker.h"

namespace {

constexpr OVString kDefaultCountryKey(ov::detail::kConstant<"Default_Country_Key">);
constexpr OVString kUnitedStates(ov::detail::kConstant<"us">);

struct Countries {
  OVList<OVCountry> list = OVList<OVCountry>::list();
  OVDictionary<OVCountry> byCode = OVDictionary<OVCountry>::dictionary();
  /// Upper case, those without a name included.
  std::unordered_set<std::string> platformCodes;
};

constinit ov::detail::BuiltOnce<Countries> countriesOnce;

ov::detail::CountryName nameRowOf(const OVStringView& code) {
  const std::string_view given = code.view();
  if (given.size() != 2) return {};
  const std::array lower{ov::asciiLower(given[0]), ov::asciiLower(given[1])};
  return ov::detail::countryNameOf({lower.data(), lower.size()});
}

void add(const Countries& countries, const OVStringView& code) {
  const ov::detail::CountryName row = nameRowOf(code);
  if (row.name.isNull()) return;
  const auto country = OVCountry::initWithCodeName(row.code, row.name);
  countries.list.push_back(country);
  try {
    countries.byCode.set(row.code, country);
  } catch (...) {
    countries.list.erase(countries.list.size() - 1);
    throw;
  }
}

// A missing name counts as "", and so does a foreign object in the list.
OVString nameOf(const OVRef<OVCountry>& country) {
  return country == nullptr ? OVString() : country->name();
}

bool comesBefore(const OVRef<OVCountry>& a, const OVRef<OVCountry>& b) {
  return nameOf(a).view() < nameOf(b).view();
}

void sortByName(const OVList<OVCountry>& countries) { countries.sort(comesBefore); }

/// Asks the locale for its codes. That may be the host's, which may do anything, so no lock is
/// held. What it cannot do is ask for a country meanwhile, however many threads it goes through.
OVList<OVString> platformCodes() {
  static thread_local bool isAsking = false;
  static constinit std::atomic<int> asking = 0;
  constexpr int kMaxThreads = 1000;
  if (isAsking || asking > kMaxThreads) {
    throw std::logic_error(
        "OVCountry: a locale that is asked for its country codes asked for a country; the "
        "countries are made of these codes");
  }
  struct Asking {
    Asking() {
      isAsking = true;
      ++asking;
    }
    Asking(const Asking&) = delete;
    Asking& operator=(const Asking&) = delete;
    ~Asking() {
      isAsking = false;
      --asking;
    }
  };
  const Asking now;
  return OVLocale::currentLocale()->isoCountryCodes();
}

Countries buildCountries(const OVList<OVString>& codes) {
  Countries countries;
  for (const OVString& code : codes) {
    if (code.isNull()) continue;
    countries.platformCodes.insert(code.str());
    add(countries, code);
  }
  sortByName(countries.list);
  return countries;
}

const Countries& allCountries() {
  if (const Countries* countries = countriesOnce.peek()) return *countries;
  const auto codes = platformCodes();
  return countriesOnce.get([&] { return buildCountries(codes); });
}

OVRef<OVCountry> countryOf(const OVStringView& code) {
  const Countries& countries = allCountries();
  if (auto country = countries.byCode[code]) return country;
  const bool isPlatformCode = countries.platformCodes.contains(ov::asciiUpper(code.view()));
  return isPlatformCode ? countries.byCode[kUnitedStates] : nullptr;
}

}  // namespace

OVCountry::OVCountry(OVString code, OVString name)
    : code_(std::move(code)), name_(std::move(name)) {}

OVRef<OVCountry> OVCountry::initWithCodeName(OVString code, OVString name) {
  return ov::detail::Maker::make<OVCountry>(std::move(code), std::move(name));
}

OVList<OVCountry> OVCountry::allCountry() { return allCountries().list; }

OVRef<OVCountry> OVCountry::countryWithCode(const OVStringView& code) {
  return code.isNull() ? countryOf(localeCode()) : countryOf(code);
}

OVString OVCountry::countryNameByCode(const OVStringView& code) { return nameRowOf(code).name; }

void OVCountry::addCountryByCode(const OVStringView& code) {
  if (const Countries* countries = countriesOnce.peek()) add(*countries, code);
}

void OVCountry::sort() {
  if (const Countries* countries = countriesOnce.peek()) sortByName(countries->list);
}

OVString OVCountry::localeCode() {
  return standCode(OVLocale::currentLocale()->currentLocaleIdentifier());
}

OVRef<OVCountry> OVCountry::local() { return countryWithCode(localeCode()); }

OVString OVCountry::standCode(const OVString& localeIdentifier) {
  if (localeIdentifier.isNull()) return nullptr;
  const std::string_view identifier = localeIdentifier.view();
  const std::size_t underscore = identifier.find('_');
  if (underscore == std::string_view::npos) {
    throw std::out_of_range("The locale identifier \"" + localeIdentifier.str() +
                            "\" names no country: a language, an underscore and a region are "
                            "needed, as in \"en_US\"");
  }
  return ov::asciiLower(identifier.substr(underscore + 1));
}

OVRef<OVCountry> OVCountry::defaultCountry() {
  const auto defaults = OVUserDefaults::standardUserDefaults();
  const OVString chosen = defaults->stringForKey(kDefaultCountryKey);
  if (!chosen.isNull())
    if (auto country = countryWithCode(chosen)) return country;
  return local();
}

void OVCountry::setDefaultCountry(const OVRef<OVCountry>& country) {
  if (country == nullptr) return;
  const auto defaults = OVUserDefaults::standardUserDefaults();
  defaults->setObjectForKey(country->code(), kDefaultCountryKey);
  defaults->synchronize();
}
