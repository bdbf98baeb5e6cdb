// The table of what vCards and persons have in common: for each line its property, how to read it
// and how to spell it. The first row of a property is the one that is written.

#include "bindings.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <unordered_map>

#include "keyed_hash.h"
#include "properties.h"

namespace ov::card {

namespace {

/// What lines with a label understand.
constexpr std::string_view kEntry = ",TYPE,PREF,VALUE,";

constexpr std::array<const OVString*, 2> kNameParts{&OVProPertyTitle, &OVProPertySuffix};

constexpr std::array kBindings{
    Binding{"FN",
            &OVProPertyName,
            readFormattedName,
            spellFormattedName,
            ",VALUE,",
            {},
            false,
            kNameParts},
    Binding{"N", &OVProPertyName, readName, spellName, ",VALUE,", {}, false, kNameParts},
    Binding{"NICKNAME", &OVProPertyNickname, readListText, spellListText},
    Binding{"X-MAIDENNAME", &OVProPertyMaidenName, readText, spellText},
    Binding{"X-MAIDEN-NAME", &OVProPertyMaidenName, readText},
    Binding{"X-PHONETIC-FIRST-NAME", &OVProPertyFirstNamePhonetic, readText, spellText},
    Binding{"X-PHONETIC-LAST-NAME", &OVProPertyLastNamePhonetic, readText, spellText},
    Binding{"SOUND",
            &OVProPertyLastNamePhonetic,
            readSound,
            nullptr,
            ",VALUE,TYPE,",
            {},
            false,
            {&OVProPertyFirstNamePhonetic}},
    Binding{"KIND", &OVProPertyIsOrganization, readKind, spellKind, ",VALUE,", {}, true},
    Binding{"X-ABSHOWAS", &OVProPertyIsOrganization, readKind},
    Binding{"ORG",
            &OVProPertyCompany,
            readOrganization,
            spellOrganization,
            ",VALUE,",
            {},
            false,
            {&OVProPertyDepartment}},
    Binding{"TITLE", &OVProPertyJobTitle, readText, spellText},
    Binding{"PHOTO", &OVProPertyThumbnail, readPhoto, spellPhoto, ",VALUE,TYPE,MEDIATYPE,"},
    Binding{"BDAY", &OVProPertyBirthday, readBirthday, spellBirthday},
    Binding{"X-ABDATE", &OVProPertyDate, readDate, spellDate, kEntry},
    Binding{"ANNIVERSARY", &OVProPertyDate, readDate, nullptr, kEntry, "ANNIVERSARY", true},
    Binding{"TEL", &OVProPertyPhone, readPhone, spellPhone, kEntry},
    Binding{"EMAIL", &OVProPertyEmail, readEmail, spellEmail, kEntry},
    Binding{"IMPP", &OVProPertyInstantMessage, readAccount, spellAccount,
            ",TYPE,PREF,VALUE,SERVICE-TYPE,"},
    Binding{"IMADDRESS", &OVProPertyInstantMessage, readAccount, nullptr, kEntry, {}, true},
    Binding{"X-AIM", &OVProPertyInstantMessage, readServiceAccount, nullptr, kEntry},
    Binding{"ADR", &OVProPertyAddress, readAddress, spellAddress, ",TYPE,PREF,VALUE,CC,"},
    Binding{"URL", &OVProPertyURLs, readTextEntry, spellURL, kEntry},
    Binding{"RELATED", &OVProPertyRelatedNames, readTextEntry, spellRelatedName, kEntry},
    Binding{"X-ABRELATEDNAMES", &OVProPertyRelatedNames, readTextEntry, nullptr, kEntry},
    Binding{"SPOUSE", &OVProPertyRelatedNames, readTextEntry, nullptr, kEntry, "SPOUSE", true},
    Binding{"SPOUSENAME", &OVProPertyRelatedNames, readTextEntry, nullptr, kEntry, "SPOUSE", true},
    Binding{"SPOUSESNAME", &OVProPertyRelatedNames, readTextEntry, nullptr, kEntry, "SPOUSE", true},
    Binding{"CHILD", &OVProPertyRelatedNames, readTextEntry, nullptr, kEntry, "CHILD", true},
    Binding{"MANAGER", &OVProPertyRelatedNames, readTextEntry, nullptr, kEntry, "MANAGER", true},
    Binding{"MANAGERSNAME", &OVProPertyRelatedNames, readTextEntry, nullptr, kEntry, "MANAGER",
            true},
    Binding{"ASSISTANT", &OVProPertyRelatedNames, readTextEntry, nullptr, kEntry, "ASSISTANT",
            true},
    Binding{"ASSISTANTSNAME", &OVProPertyRelatedNames, readTextEntry, nullptr, kEntry, "ASSISTANT",
            true},
    Binding{"X-ANDROID-CUSTOM", &OVProPertyRelatedNames, readTableRow, nullptr},
    Binding{"CATEGORIES", &OVProPertyTags, readTags, spellTags},
    Binding{"NOTE", &OVProPertyNote, readText, spellText},
    Binding{"X-OTHER", &OVProPertyOther, readOther, spellOther, kEntry},
};

struct Catalogue {
  Catalogue() {
    for (const Binding& binding : kBindings) {
      byName.emplace(binding.name, &binding);
      descriptors[static_cast<std::size_t>(&binding - kBindings.data())] =
          OVProperty::propertyWithName(*binding.property);
    }
  }
  std::unordered_map<std::string_view, const Binding*> byName;
  std::array<OVRef<OVProperty>, kBindings.size()> descriptors;
};

const Catalogue& catalogue() {
  static const Catalogue& built = *new Catalogue;  // for the life of the process
  return built;
}

}  // namespace

const OVProperty& Binding::descriptor() const {
  const auto position = std::distance(kBindings.data(), this);
  return *catalogue().descriptors[static_cast<std::size_t>(position)];
}

bool Binding::understands(std::string_view parameter) const {
  if (parameter.ends_with("-OMIT-YEAR") && (read == readBirthday || read == readDate)) return true;
  if (parameter.ends_with("-SERVICE-TYPE") && read == readAccount) return true;
  for (std::size_t at = 1; at < parameters.size();) {
    const std::size_t end = parameters.find(',', at);
    if (parameters.substr(at, end - at) == parameter) return true;
    at = end + 1;
  }
  return false;
}

std::span<const Binding> bindings() { return kBindings; }

const Binding& otherBinding() { return kBindings.back(); }

const Binding* bindingOf(const Line& line) {
  const auto at = catalogue().byName.find(line.name());
  if (at != catalogue().byName.end()) return at->second;
  if (!line.name().starts_with("X-")) return nullptr;
  if (isServiceProperty(line.name())) return catalogue().byName.at("X-AIM");
  const auto* const vendor = std::find_if(
      kBindings.begin(), kBindings.end(),
      [&](const Binding& binding) { return binding.vendorForms && line.isNamed(binding.name); });
  return vendor == kBindings.end() ? nullptr : vendor;
}

}  // namespace ov::card
