#include <OVAddressBookVCard/vcard_other.h>

#include <algorithm>
#include <string>

#include "codec/ascii.h"
#include "codec/escapes.h"
#include "mapping/others.h"

namespace ov::vcard {

namespace {

constexpr std::string_view kRow = "vnd.android.cursor.item/";

/// True for the name of a line with its parameters.
bool isLineName(std::string_view label) {
  const std::string_view name = label.substr(0, label.find(';'));
  return !name.empty() && ov::card::upperASCII(name) == name &&
         name.find_first_of(" :.\"") == std::string_view::npos;
}

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
  return {label, text};
}

}  // namespace

std::optional<ReadableOther> readableOther(const OVSingleValue& entry) {
  if (ov::card::isOddLinesEntry(entry)) return std::nullopt;
  const OVRef<OVLabel> label = entry.label();
  const OVString shown = label == nullptr ? OVString() : label->displayName();
  const OVString text = ov::cast<OVString>(entry.value());
  if (label == nullptr || !isLineName(label->name())) return ReadableOther{shown, text};
  if (text.view().starts_with(kRow)) return readableRow(text);
  return ReadableOther{shown, OVString(ov::card::unescape(text))};
}

}  // namespace ov::vcard
