#include "bindings.h"

#include <algorithm>
#include <array>
#include <string>

#include "addresses.h"
#include "dates.h"
#include "entries.h"
#include "instant_messages.h"
#include "names.h"
#include "others.h"
#include "photos.h"
#include "texts.h"

namespace ov::vcard {

namespace {

/// What lines with a label understand.
constexpr std::string_view kEntry = ",TYPE,PREF,VALUE,";

/// The line is kept as a whole where it says more than its text.
constexpr std::string_view kEverything = "*";

constexpr std::array kBindings{
    Binding{"FN", &OVProPertyName, readFormattedName, nullptr, kEverything},
    Binding{"N", &OVProPertyName, readName, writeName},
    Binding{"NICKNAME", &OVProPertyNickname, readText, writeListText},
    Binding{"X-MAIDENNAME", &OVProPertyMaidenName, readText, writeText},
    Binding{"X-MAIDEN-NAME", &OVProPertyMaidenName, readText},
    Binding{"X-PHONETIC-FIRST-NAME", &OVProPertyFirstNamePhonetic, readText, writeText},
    Binding{"X-PHONETIC-LAST-NAME", &OVProPertyLastNamePhonetic, readText, writeText},
    Binding{"SOUND", &OVProPertyLastNamePhonetic, readSound, nullptr, ",VALUE,TYPE,"},
    Binding{"KIND", &OVProPertyIsOrganization, readKind, writeKind, ",VALUE,", {}, true},
    Binding{"X-ABSHOWAS", &OVProPertyIsOrganization, readKind},
    Binding{"ORG", &OVProPertyCompany, readOrganization, writeOrganization},
    Binding{"TITLE", &OVProPertyJobTitle, readText, writeText},
    Binding{"PHOTO", &OVProPertyThumbnail, readPhoto, writePhoto, ",VALUE,TYPE,MEDIATYPE,"},
    Binding{"BDAY", &OVProPertyBirthday, readBirthday, writeBirthday},
    Binding{"X-ABDATE", &OVProPertyDate, readDate, writeDates, kEntry},
    Binding{"ANNIVERSARY", &OVProPertyDate, readDate, nullptr, kEntry, "ANNIVERSARY", true},
    Binding{"TEL", &OVProPertyPhone, readPhone, writePhones, kEntry},
    Binding{"EMAIL", &OVProPertyEmail, readEmail, writeEmails, kEntry},
    Binding{"IMPP", &OVProPertyInstantMessage, readInstantMessage, writeInstantMessages,
            ",TYPE,PREF,VALUE,SERVICE-TYPE,"},
    Binding{"X-AIM",
            &OVProPertyInstantMessage,
            readServiceAccount,
            nullptr,
            kEntry,
            {},
            false,
            isServiceProperty},
    Binding{"ADR", &OVProPertyAddress, readAddress, writeAddresses, ",TYPE,PREF,VALUE,CC,"},
    Binding{"URL", &OVProPertyURLs, readURL, writeURLs, kEntry},
    Binding{"RELATED", &OVProPertyRelatedNames, readRelatedName, writeRelatedNames, kEntry},
    Binding{"X-ABRELATEDNAMES", &OVProPertyRelatedNames, readRelatedName, nullptr, kEntry},
    Binding{"SPOUSE", &OVProPertyRelatedNames, readRelatedName, nullptr, kEntry, "SPOUSE", true},
    Binding{"CHILD", &OVProPertyRelatedNames, readRelatedName, nullptr, kEntry, "CHILD", true},
    Binding{"MANAGER", &OVProPertyRelatedNames, readRelatedName, nullptr, kEntry, "MANAGER", true},
    Binding{"ASSISTANT", &OVProPertyRelatedNames, readRelatedName, nullptr, kEntry, "ASSISTANT",
            true},
    Binding{"CATEGORIES", &OVProPertyTags, readTags, writeTags},
    Binding{"NOTE", &OVProPertyNote, readText, writeText},
    Binding{"X-OTHER", &OVProPertyOther, readOther, writeOthers, kEntry},
};

}  // namespace

bool Binding::understands(std::string_view parameter) const {
  if (parameter.ends_with("-OMIT-YEAR") && (read == readBirthday || read == readDate)) return true;
  if (parameter.ends_with("-SERVICE-TYPE") && read == readInstantMessage) return true;
  if (parameters == kEverything) return true;
  return parameters.find("," + std::string(parameter) + ",") != std::string_view::npos;
}

std::span<const Binding> bindings() { return kBindings; }

const Binding* bindingOf(const Field& field) {
  const auto* const at =
      std::find_if(kBindings.begin(), kBindings.end(), [&](const Binding& binding) {
        return binding.takesName == nullptr ? field.isNamed(binding.name, binding.vendorForms)
                                            : binding.takesName(field.name);
      });
  return at == kBindings.end() ? nullptr : &*at;
}

}  // namespace ov::vcard
