#pragma once

#include <span>
#include <string_view>

#include <OVAddressBookSDK/property.h>

#include "card_writer.h"
#include "field.h"
#include "person_draft.h"
#include "person_values.h"

namespace ov::vcard {

struct Binding;

/// Makes a line part of a person. False when it does not fit: the line is then kept as it stands.
using Read = bool (*)(const Field& field, const Binding& binding, PersonDraft& draft);

/// Writes what the person has for the property.
using Write = void (*)(const Binding& binding, const PersonValues& values, CardWriter& card);

/// Which vCard property carries which property of a person.
struct Binding {
  /// In upper case.
  std::string_view name;
  /// The property; a line may speak of others beside it.
  const OVString* property;
  Read read;
  /// Null for spellings that are only read.
  Write write = nullptr;
  /// The parameters that `read` understands, each between commas.
  std::string_view parameters = ",VALUE,";
  /// The type that the name implies for its entries.
  std::string_view impliedType = {};
  /// "X-...-NAME" is read like NAME.
  bool vendorForms = false;
  /// Where one name is not enough: whether a name belongs here.
  bool (*takesName)(std::string_view name) = nullptr;

  [[nodiscard]] const OVProperty& descriptor() const {
    return *OVProperty::propertyWithName(*property);
  }
  [[nodiscard]] bool understands(std::string_view parameter) const;
  /// True when entries carry labels.
  [[nodiscard]] bool isLabelled() const { return understands("TYPE") && understands("PREF"); }
};

/// All of them, in the order in which they are written. A line belongs to the first that fits.
[[nodiscard]] std::span<const Binding> bindings();

/// Null when the line speaks of no property of a person.
[[nodiscard]] const Binding* bindingOf(const Field& field);

}  // namespace ov::vcard
