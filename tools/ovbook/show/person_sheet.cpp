// A sheet says nothing twice: a label that only repeats the property is left out, and a main value
// has its star only beside others.

#include "show/person_sheet.h"

#include <optional>
#include <ostream>
#include <utility>

#include <OVAddressBookSDK/locale.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/property.h>
#include <OVAddressBookSDK/single_value.h>
#include <OVAddressBookVCard/vcard_readable.h>

#include "output/escape.h"
#include "output/table.h"
#include "show/datum_lines.h"
#include "show/entry.h"

namespace ovbook {

namespace {

/// Whether both are the same except for case and blanks.
bool isSameWord(const OVString& a, const OVString& b) {
  const auto locale = OVLocale::currentLocale();
  const auto letters = [&](const OVString& text) {
    std::string lower = locale->lowercase(text).str();
    std::erase(lower, ' ');
    return lower;
  };
  return letters(a) == letters(b);
}

/// The label's display name, and its name where that says more. A label that only repeats the
/// property says nothing.
std::string labelText(const OVRef<OVLabel>& label, const OVProperty& property) {
  if (label == nullptr) return {};
  const OVString name = label->name();
  const OVString displayName = label->displayName();
  const bool nameSaysMore = !name.isNull() && !isSameWord(name, displayName);
  if (!nameSaysMore) {
    return displayName == property.displayName() ? std::string() : printable(displayName);
  }
  return printable(displayName.str() + (displayName.empty() ? "(" : " (") + name.str() + ")");
}

Entry entryOf(const OVRef<OVSingleValue>& value, const OVProperty& property) {
  if (value == nullptr) return {"", {"[not a value]"}};
  return {labelText(value->label(), property), datumLines(value->value())};
}

/// The same as a person would write it; nothing for an entry that says nothing of its own.
std::optional<Entry> readableEntryOf(const OVRef<OVSingleValue>& value,
                                     const OVProperty& property) {
  const bool isText = value != nullptr && !ov::cast<OVString>(value->value()).isNull();
  if (!isText || property.name() != OVProPertyOther) return entryOf(value, property);
  const auto other = ov::vcard::readableOther(*value);
  if (!other) return std::nullopt;
  if (!other->isLine) return entryOf(value, property);
  return Entry{printable(other->label), datumLines(other->text)};
}

std::vector<Entry> entriesOf(const OVMultipleValue& values, const OVProperty& property) {
  const auto mainValue = values.mainValue();
  std::vector<Entry> entries;
  std::vector<std::size_t> mains;
  const auto add = [&](const OVRef<OVSingleValue>& value) {
    std::optional<Entry> entry = readableEntryOf(value, property);
    if (!entry) return;
    if (value != nullptr && value == mainValue) mains.push_back(entries.size());
    entries.push_back(std::move(*entry));
  };
  // The main value need not be one of the list.
  const bool standsAlone = mainValue != nullptr && values.indexOfValue(mainValue) >= values.count();
  if (standsAlone) add(mainValue);
  for (std::uint64_t i = 0; i < values.count(); ++i) add(values.valueAtIndex(i));
  if (!standsAlone && entries.size() == 1) mains.clear();
  for (const std::size_t main : mains) {
    entries[main].label += entries[main].label.empty() ? "*" : " *";
  }
  if (entries.empty() && values.count() == 0) entries.push_back({"", {"[no entries]"}});
  return entries;
}

void addValue(Table& table, const OVRef<OVValue>& value, const OVProperty& property) {
  const auto multiple = ov::cast<OVMultipleValue>(value);
  addEntries(table, printable(property.displayName()),
             multiple != nullptr
                 ? entriesOf(*multiple, property)
                 : std::vector<Entry>{entryOf(ov::cast<OVSingleValue>(value), property)});
}

}  // namespace

void printPerson(const OVString& ID, const OVRef<OVPersonGeneral>& person,
                 const OVList<OVString>& tags, std::ostream& out) {
  if (person == nullptr) {
    out << printable(ID) << " [not a person]\n";
    return;
  }
  Table table;
  table.add({"ID", printable(ID)});
  const auto properties = OVProperty::StandardPropertyArray();
  for (const auto& property : properties) {
    const auto value = person->valueByProperty(property);
    if (value != nullptr) addValue(table, value, *property);
  }
  if (tags != nullptr && !tags.empty()) addEntries(table, "Tag store", {{"", datumLines(tags)}});
  const ov::vcard::Heading heading = ov::vcard::headingOf(*person);
  out << printable(heading.main.isNull() ? ID : heading.main) << '\n';
  if (!heading.below.empty()) out << printable(heading.below) << '\n';
  table.print(out, "  ");
}

}  // namespace ovbook
