#include <OVAddressBookVCard/vcard_readable.h>

#include <algorithm>
#include <string>

#include "codec/ascii.h"
#include "codec/escapes.h"
#include "mapping/others.h"

namespace ov::vcard {

namespace {

constexpr std::string_view kRow = "vnd.android.cursor.item/";

/// A row of a table: what it is about, and its fields.
ReadableOther readableRow(std::string_view value) {
  const auto fields = ov::card::splitValue(value.substr(kRow.size()), ';');
  std::string label = ov::card::unescape(fields.front());
  std::replace(label.begin(), label.end(), '_', ' ');
  if (!label.empty()) label.front() = ov::card::upperASCII(label.front());
  std::string text;
  for (std::size_t i = 1; i < fields.size(); ++i) {
    if (fields[i].empty()) continue;
    text.append(text.empty() ? "" : ", ").append(ov::card::unescape(fields[i]));
  }
  return {label, text, true};
}

}  // namespace

std::optional<ReadableOther> readableOther(const OVSingleValue& entry) {
  if (ov::card::isOddLinesEntry(entry)) return std::nullopt;
  const OVRef<OVLabel> label = entry.label();
  const OVString name = label == nullptr ? OVString() : label->name();
  const OVString shown = label == nullptr ? OVString() : label->displayName();
  const OVString text = ov::cast<OVString>(entry.value());
  if (!ov::card::isLineEntry(entry)) return ReadableOther{shown.empty() ? name : shown, text};
  if (text.view().starts_with(kRow)) return readableRow(text);
  const OVString lineName = name.view().substr(0, name.view().find(';'));
  return ReadableOther{shown.empty() ? lineName : shown, ov::card::unescape(text), true};
}

}  // namespace ov::vcard
