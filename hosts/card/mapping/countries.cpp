// Finds the country that the text of an address names: by code or English name in a small table, by
// its name in other languages in a large one, which is built only when it is needed.

#include "countries.h"

#include <unicode/locid.h>
#include <unicode/unistr.h>

#include <array>
#include <string>
#include <unordered_map>

#include <OVAddressBookSDK/country.h>

#include "codec/ascii.h"
#include "keyed_hash.h"

namespace ov::card {

namespace {

using Codes = std::unordered_map<std::string, OVString, KeyedHash, std::equal_to<>>;

struct Alias {
  std::string_view name;
  std::string_view code;
};

/// English names besides those of the country list.
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

/// Those that many people write their addresses in.
constexpr std::array kLanguages{"ar", "bg", "cs", "da", "de", "el", "es", "et", "fi",
                                "fr", "he", "hi", "hr", "hu", "id", "it", "ja", "ko",
                                "lt", "lv", "nb", "nl", "pl", "pt", "ro", "ru", "sk",
                                "sl", "sr", "sv", "th", "tr", "uk", "vi", "zh", "zh_Hant"};

std::string folded(std::string_view text) {
  std::string result;
  icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<int32_t>(text.size())))
      .foldCase()
      .toUTF8String(result);
  return result;
}

/// Codes and English names.
const Codes& commonCodes() {
  static const Codes& built = *[] {
    auto* const made = new Codes;  // for the life of the process
    for (const OVRef<OVCountry> country : OVCountry::allCountry()) {
      made->emplace(folded(country->code()), country->code());
      made->emplace(folded(country->name()), country->code());
    }
    for (const Alias& alias : kAliases) {
      if (made->contains(alias.code)) {
        made->emplace(std::string(alias.name), OVString(alias.code));
      }
    }
    return made;
  }();
  return built;
}

/// The names in other languages: many, and rarely needed.
const Codes& foreignNames() {
  static const Codes& built = *[] {
    auto* const made = new Codes;  // for the life of the process
    for (const OVRef<OVCountry> country : OVCountry::allCountry()) {
      const std::string region = upperASCII(country->code().view());
      const icu::Locale place("und", region.c_str());
      const auto add = [&](const icu::Locale& language) {
        icu::UnicodeString name;
        std::string text;
        place.getDisplayCountry(language, name).foldCase().toUTF8String(text);
        made->emplace(std::move(text), country->code());
      };
      icu::Locale own = place;
      UErrorCode error = U_ZERO_ERROR;
      own.addLikelySubtags(error);
      if (U_SUCCESS(error)) add(own);
      for (const char* language : kLanguages) add(icu::Locale(language));
    }
    return made;
  }();
  return built;
}

}  // namespace

OVString countryCodeOf(std::string_view codeOrName) {
  constexpr std::size_t kLongestName = 200;
  const std::string_view text = trim(codeOrName);
  if (text.empty() || text.size() > kLongestName) return nullptr;
  const std::string name = folded(text);
  if (const auto at = commonCodes().find(name); at != commonCodes().end()) return at->second;
  if (text.size() == 2) return nullptr;  // a code that is none
  const auto at = foreignNames().find(name);
  return at == foreignNames().end() ? OVString() : at->second;
}

}  // namespace ov::card
