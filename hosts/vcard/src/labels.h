#pragma once

#include <string>
#include <string_view>

#include <OVAddressBookSDK/label.h>
#include <OVAddressBookSDK/property.h>

#include "field.h"

namespace ov::vcard {

/// The label that a line gives its entry: from its TYPE parameters and its X-ABLabel line; that of
/// the property where it has neither. `impliedType` is what the property's very name says.
[[nodiscard]] OVRef<OVLabel> labelOf(const Field& field, const OVProperty& property,
                                     std::string_view impliedType = {});

/// How a label is written.
struct LabelSpelling {
  /// The value of TYPE, empty for none.
  std::string types;
  /// The parameters and the value of an X-ABLabel line, with the colon; empty for none.
  std::string line;
};

/// The spelling that `labelOf` reads as this label. Null is the property's own label.
[[nodiscard]] LabelSpelling spellingOf(const OVRef<OVLabel>& label, const OVProperty& property,
                                       std::string_view vcardName);

/// The text of an X-ABLabel line: "Sister" for the well-known `_$!<Sister>!$_`.
[[nodiscard]] std::string labelText(const Field& labelLine);

/// A new label.
[[nodiscard]] OVRef<OVLabel> makeLabel(const OVString& name, const OVString& displayName);

}  // namespace ov::vcard
