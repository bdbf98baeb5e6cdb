#include "country_codes.h"

#include <array>
#include <string>
#include <unordered_map>

#include <OVAddressBookSDK/country.h>

#include "ascii.h"

namespace ov::vcard {

namespace {

struct Alias {
  std::string_view name;
  std::string_view code;
};

/// English names beside those of the country list.
constexpr std::array kAliases{
    Alias{"bahamas, the", "bs"},
    Alias{"bermuda", "bm"},
    Alias{"burkina faso", "bf"},
    Alias{"cambodia", "kh"},
    Alias{"cook islands", "ck"},
    Alias{"czechia", "cz"},
    Alias{"dominican republic", "do"},
    Alias{"el salvador", "sv"},
    Alias{"england", "gb"},
    Alias{"eswatini", "sz"},
    Alias{"gambia, the", "gm"},
    Alias{"great britain", "gb"},
    Alias{"holland", "nl"},
    Alias{"hong kong", "hk"},
    Alias{"kazakhstan", "kz"},
    Alias{"macau", "mo"},
    Alias{"moldova", "md"},
    Alias{"montserrat", "ms"},
    Alias{"myanmar", "mm"},
    Alias{"northern ireland", "gb"},
    Alias{"papua new guinea", "pg"},
    Alias{"republic of ireland", "ie"},
    Alias{"republic of korea", "kr"},
    Alias{"russian federation", "ru"},
    Alias{"saint lucia", "lc"},
    Alias{"saint vincent and the grenadines", "vc"},
    Alias{"scotland", "gb"},
    Alias{"solomon islands", "sb"},
    Alias{"somalia", "so"},
    Alias{"south korea", "kr"},
    Alias{"tajikistan", "tj"},
    Alias{"the netherlands", "nl"},
    Alias{"turkiye", "tr"},
    Alias{"u.k.", "gb"},
    Alias{"u.s.", "us"},
    Alias{"u.s.a.", "us"},
    Alias{"uk", "gb"},
    Alias{"united states of america", "us"},
    Alias{"usa", "us"},
    Alias{"viet nam", "vn"},
    Alias{"wales", "gb"},
};

using Codes = std::unordered_map<std::string, OVString>;

const Codes& codes() {
  static const Codes& built = *[] {
    auto* const made = new Codes;  // for the life of the process
    for (const OVRef<OVCountry> country : OVCountry::allCountry()) {
      made->emplace(lowerASCII(country->code()), country->code());
      made->emplace(lowerASCII(country->name()), country->code());
    }
    for (const Alias& alias : kAliases) {
      if (made->contains(std::string(alias.code))) {
        made->emplace(std::string(alias.name), OVString(alias.code));
      }
    }
    return made;
  }();
  return built;
}

}  // namespace

OVString countryCodeOf(std::string_view codeOrName) {
  const auto at = codes().find(lowerASCII(trim(codeOrName)));
  return at == codes().end() ? OVString() : at->second;
}

}  // namespace ov::vcard
