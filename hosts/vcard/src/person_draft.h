#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/label.h>
#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/text.h>
#include <OVAddressBookSDK/value.h>

#include "field.h"

namespace ov::vcard {

using Values = OVDictionary<OVValue>;

/// Gathers the values of one person while the lines of its card are read.
class PersonDraft {
 public:
  /// Sets a property that holds a single value. False when it has one already.
  bool set(const OVString& property, const OVRef<OVObject>& datum);

  /// Adds an entry to a property that holds several. `preference` as in `Field`.
  void add(const OVString& property, const OVRef<OVObject>& datum, const OVRef<OVLabel>& label,
           int preference);

  void addOther(const OVString& text, OVRef<OVLabel> label, int preference);

  void addTag(const OVString& tag);

  /// The line of the name as one text. What it is good for shows when the card has been read.
  void setFormattedName(const Field& field);
  [[nodiscard]] const Field* formattedName() const { return formattedName_; }
  /// Adds to "Other" at the place where the formatted name stands in the card.
  void addOtherForFormattedName(const OVString& text, OVRef<OVLabel> label, int preference);

  [[nodiscard]] bool has(const OVString& property) const;
  [[nodiscard]] OVRef<OVObject> datum(const OVString& property) const;

  /// The values; the draft is not to be used afterwards.
  [[nodiscard]] Values takeValues();
  [[nodiscard]] const OVList<OVString>& tags() const { return tags_; }

 private:
  struct Other {
    OVString text;
    OVRef<OVLabel> label;
    int preference;
  };

  Values values_ = Values::dictionary();
  std::vector<std::pair<OVString, int>> bestPreferences_;
  OVList<OVString> tags_ = OVList<OVString>::list();
  std::vector<Other> others_;
  const Field* formattedName_ = nullptr;
  std::size_t formattedNamePlace_ = 0;
};

}  // namespace ov::vcard
