#include <OVAddressBookSDK/country.h>

#include <algorithm>
#include <functional>
#include <stdexcept>
#include <string_view>
#include <unordered_set>
#include <utility>

#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/locale.h>
#include <OVAddressBookSDK/user_defaults.h>

#include "address/country_names.h"
#include "platform/built_once.h"
#include "platform/maker.h"

namespace {

constexpr OVString kDefaultCountryKey(ov::detail::kConstant<"Default_Country_Key">);
constexpr OVString kUnitedStates(ov::detail::kConstant<"us">);

struct Countries {
  OVList<OVCountry> list = OVList<OVCountry>::list();
  OVDictionary<OVCountry> byCode = OVDictionary<OVCountry>::dictionary();
  /// Upper case, those without a name included.
  std::unordered_set<OVString> platformCodes;
};

constinit ov::detail::BuiltOnce<Countries> countriesOnce;

ov::detail::CountryName nameRowOf(const OVString& code) {
  return ov::detail::countryNameOf(OVLocale::currentLocale()->lowercase(code));
}

void add(const Countries& countries, const OVString& code) {
  const ov::detail::CountryName row = nameRowOf(code);
  if (row.name.isNull()) return;
  const auto country = OVCountry::initWithCodeName(row.code, row.name);
  countries.list.push_back(country);
  countries.byCode.set(row.code, country);
}

// A missing name counts as "".
bool comesBefore(const OVRef<OVCountry>& a, const OVRef<OVCountry>& b) {
  return a->name().view() < b->name().view();
}

void sortByName(const OVList<OVCountry>& countries) { countries.sort(comesBefore); }

Countries build() {
  Countries countries;
  const auto codes = OVLocale::currentLocale()->isoCountryCodes();
  for (const OVString& code : codes) {
    countries.platformCodes.insert(code);
    add(countries, code);
  }
  sortByName(countries.list);
  return countries;
}

const Countries& allCountries() { return countriesOnce.get(build); }

}  // namespace

OVCountry::OVCountry(OVString code, OVString name)
    : code_(std::move(code)), name_(std::move(name)) {}

OVRef<OVCountry> OVCountry::initWithCodeName(OVString code, OVString name) {
  return ov::detail::Maker::make<OVCountry>(std::move(code), std::move(name));
}

OVList<OVCountry> OVCountry::allCountry() { return allCountries().list; }

OVRef<OVCountry> OVCountry::countryWithCode(const OVString& code) {
  const OVString wanted = code.isNull() ? localeCode() : code;
  const Countries& countries = allCountries();
  if (auto country = countries.byCode[wanted]) return country;
  const bool isPlatformCode =
      countries.platformCodes.contains(OVLocale::currentLocale()->uppercase(wanted));
  return isPlatformCode ? countries.byCode[kUnitedStates] : nullptr;
}

OVString OVCountry::countryNameByCode(const OVString& code) { return nameRowOf(code).name; }

void OVCountry::addCountryByCode(const OVString& code) {
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
  return OVLocale::currentLocale()->lowercase(identifier.substr(underscore + 1));
}

OVRef<OVCountry> OVCountry::defaultCountry() {
  const auto defaults = OVUserDefaults::standardUserDefaults();
  const auto chosen = ov::cast<OVString>(defaults->objectForKey(kDefaultCountryKey));
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
