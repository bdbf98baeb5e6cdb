#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <OVAddressBookSDK/single_value.h>

#include "bindings.h"

namespace ov::vcard {

/// Keeps a line as an entry of "Other".
void keepLine(const Field& field, PersonDraft& draft);

/// Keeps the line of the formatted name, at its place among the others.
void keepFormattedName(PersonDraft& draft);

/// Keeps the parameters of a line that `binding` does not understand, as entries of "Other".
void keepParameters(const Field& field, const Binding& binding, PersonDraft& draft);

/// A line without group and fold: what an entry of "Other" stands for.
struct KeptLine {
  std::string name;
  std::string parameters;
  std::string value;
};

/// The line as it is kept; base64 as a data URI.
[[nodiscard]] KeptLine keptLine(const Field& field);

/// The line that the entry was made from; nothing for an entry of another making.
[[nodiscard]] std::optional<KeptLine> lineOf(const OVSingleValue& entry);

/// True when the person has an entry of "Other" that was made from a line of this name.
[[nodiscard]] bool hasLine(const PersonValues& values, std::string_view name);

bool readOther(const Field& field, const Binding& binding, PersonDraft& draft);
void writeOthers(const Binding& binding, const PersonValues& values, CardWriter& card);

}  // namespace ov::vcard
