#include "show/person_sheet.h"

#include <ostream>

#include <OVAddressBookSDK/locale.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/property.h>
#include <OVAddressBookSDK/single_value.h>
#include <OVAddressBookVCard/vcard_other.h>

#include "output/escape.h"
#include "output/lines.h"
#include "output/table.h"
#include "show/datum_lines.h"
#include "show/entry.h"
#include "show/heading.h"

namespace ovbook {

namespace {

/// Whether both are the same but for capitals and blanks.
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
  if (value == nullptr) return {"", {"[something that is no value]"}};
  return {labelText(value->label(), property), datumLines(value->value())};
}

/// An entry of "Other": lines of a card among them read as people would write them.
Entry otherEntryOf(const ov::vcard::ReadableOther& other) {
  Entry entry{printable(other.label == OVProPertyOther ? OVString() : other.label), {}};
  for (const std::string& line : linesOf(other.text)) entry.lines.push_back(printable(line));
  return entry;
}

std::vector<Entry> otherEntriesOf(const OVMultipleValue& values, const OVProperty& property) {
  std::vector<Entry> entries;
  for (std::uint64_t i = 0; i < values.count(); ++i) {
    const auto value = values.valueAtIndex(i);
    if (value == nullptr || ov::cast<OVString>(value->value()).isNull()) {
      entries.push_back(entryOf(value, property));
    } else if (const auto other = ov::vcard::readableOther(*value)) {
      entries.push_back(otherEntryOf(*other));
    }
  }
  return entries;
}

Entry mainEntryOf(const OVRef<OVSingleValue>& value, const OVProperty& property) {
  Entry entry = entryOf(value, property);
  entry.label += entry.label.empty() ? "*" : " *";
  return entry;
}

std::vector<Entry> entriesOf(const OVMultipleValue& values, const OVProperty& property) {
  const auto mainValue = values.mainValue();
  std::vector<Entry> entries;
  // The main value need not be one of the list.
  if (mainValue != nullptr && values.indexOfValue(mainValue) >= values.count()) {
    entries.push_back(mainEntryOf(mainValue, property));
  }
  for (std::uint64_t i = 0; i < values.count(); ++i) {
    const auto value = values.valueAtIndex(i);
    const bool isMainOfSeveral = value != nullptr && value == mainValue && values.count() > 1;
    entries.push_back(isMainOfSeveral ? mainEntryOf(value, property) : entryOf(value, property));
  }
  if (entries.empty()) entries.push_back({"", {"[no entries]"}});
  return entries;
}

void addValue(Table& table, const OVRef<OVValue>& value, const OVProperty& property) {
  const auto multiple = ov::cast<OVMultipleValue>(value);
  if (multiple != nullptr && property.name() == OVProPertyOther) {
    addEntries(table, printable(property.displayName()), otherEntriesOf(*multiple, property));
    return;
  }
  addEntries(table, printable(property.displayName()),
             multiple != nullptr
                 ? entriesOf(*multiple, property)
                 : std::vector<Entry>{entryOf(ov::cast<OVSingleValue>(value), property)});
}

}  // namespace

void printPerson(const OVString& ID, const OVRef<OVPersonGeneral>& person,
                 const OVList<OVString>& tags, std::ostream& out) {
  if (person == nullptr) {
    out << printable(ID) << " [no person]\n";
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
  const Heading heading = headingOf(ID, *person);
  out << printable(heading.main) << '\n';
  if (!heading.below.empty()) out << printable(heading.below) << '\n';
  table.print(out, "  ");
}

}  // namespace ovbook
