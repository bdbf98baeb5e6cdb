#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include <OVAddressBookSDK/data.h>
#include <OVAddressBookSDK/property.h>

#include "codec/line.h"
#include "labels.h"
#include "values.h"

namespace ov::card {

class PersonReading;
struct Binding;

/// What became of a line.
enum class Fit : std::uint8_t {
  /// It says nothing.
  Nothing,
  /// The person says the same, and writing the person gives the line again, or one of the same
  /// meaning.
  Usual,
  /// The person says the same, but the line says more, or says it in its own way.
  Unusual,
  /// It does not fit: an entry of "Other" holds it verbatim.
  Other,
};

/// A line that is to be written.
struct Spelling {
  std::string_view name;
  /// Canonical, without preference and label.
  std::string parameters;
  /// Canonical.
  std::string value;
  /// Replaces the value unless null.
  OVRef<OVData> bytes;
  std::string mediaType;
  LabelSpelling label;
};

using Read = Fit (*)(const Line& line, const Binding& binding, PersonReading& reading);

/// Spells what the person has for the property: of several values the one of `entry`, else the
/// single one. False when there is nothing that a card could say.
using Spell = bool (*)(const Binding& binding, const PersonValues& values,
                       const OVSingleValue* entry, Spelling& spelling);

/// Which lines carry which property of a person.
struct Binding {
  /// In upper case.
  std::string_view name;
  /// The property; a line may be about others besides it.
  const OVString* property;
  Read read;
  /// Null for spellings that are only read.
  Spell spell = nullptr;
  /// The parameters that `read` understands, each between commas.
  std::string_view parameters = ",VALUE,";
  /// The type that the name implies for its entries.
  std::string_view impliedType = {};
  /// "X-...-NAME" is read like NAME.
  bool vendorForms = false;
  /// The other properties that the line is about; null for none.
  std::array<const OVString*, 2> beside = {};

  [[nodiscard]] const OVProperty& descriptor() const;
  /// Whether the property holds several values, and lines carry labels.
  [[nodiscard]] bool isLabelled() const { return descriptor().valueType() == OVValueTypeMultiple; }
  [[nodiscard]] bool understands(std::string_view parameter) const;
  /// Whether both are about the same property.
};

/// All of them, in the order in which they are written.
[[nodiscard]] std::span<const Binding> bindings();

/// Null when lines of this name are about no property of a person.
[[nodiscard]] const Binding* bindingOf(const Line& line);

/// That of lines of any name, which go into "Other".
[[nodiscard]] const Binding& otherBinding();

}  // namespace ov::card
