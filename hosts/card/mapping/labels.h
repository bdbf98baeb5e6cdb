#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include <OVAddressBookSDK/label.h>
#include <OVAddressBookSDK/property.h>

#include "codec/line.h"
#include "keyed_hash.h"

namespace ov::card {

/// The texts of a label, and whether writing them gives the parameters that they came from.
struct LabelTexts {
  OVString name;
  OVString displayName;
  bool isUsual = true;
};

/// What an X-ABLabel line says.
struct OwnLabel {
  /// Counts where the types of the labelled line say nothing.
  OVString name;
  OVString displayName;
  /// The name counts whatever the types say.
  bool isWhole = false;
};
[[nodiscard]] OwnLabel ownLabelOf(const Line& labelLine);

/// The label that lines of a card give their entries. Equal texts are one text.
class LabelReader {
 public:
  /// From the TYPE parameters; that of the property where they say nothing. `impliedType` is what
  /// the property's very name says, `own` a label on a line of its own, or null.
  [[nodiscard]] LabelTexts read(const Line& line, const OVProperty& property,
                                std::string_view impliedType, const OwnLabel* own);
  /// A text that other cards are likely to say too, such as a city: one text for all of them, as
  /// long as there are not too many.
  [[nodiscard]] OVString shared(std::string_view text);

 private:
  std::unordered_map<std::string, LabelTexts, KeyedHash, std::equal_to<>> known_;
  std::unordered_map<std::string_view, OVString, KeyedHash> texts_;  // the keys view the texts
};

/// How a label is written.
struct LabelSpelling {
  /// The value of TYPE, empty for none.
  std::string types;
  /// Whether there is an X-ABLabel line, its parameters, and its text.
  bool hasLine = false;
  std::string lineParameters;
  OVString lineText;
};

/// The spelling that is read as this label. Null is the property's own label.
[[nodiscard]] LabelSpelling spellingOf(const OVRef<OVLabel>& label, const OVProperty& property,
                                       std::string_view lineName);

/// A new label.
[[nodiscard]] OVRef<OVLabel> makeLabel(const OVString& name, const OVString& displayName);

}  // namespace ov::card
