#include "show/person_sheet.h"

#include <ostream>

#include <OVAddressBookSDK/locale.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/property.h>
#include <OVAddressBookSDK/single_value.h>

#include "output/escape.h"
#include "output/table.h"
#include "show/datum_lines.h"
#include "show/entry.h"

namespace ovbook {

namespace {

bool isSameWord(const OVString& a, const OVString& b) {
  const auto locale = OVLocale::currentLocale();
  return locale->lowercase(a) == locale->lowercase(b);
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

Entry mainEntryOf(const OVRef<OVSingleValue>& value, const OVProperty& property) {
  Entry entry = entryOf(value, property);
  entry.label += entry.label.empty() ? "*" : " *";
  return entry;
}

/// What an import keeps beside the values, so that an export can write lines as they were.
bool isRecordOfLines(const OVRef<OVSingleValue>& value, const OVProperty& property) {
  const auto label = value == nullptr ? nullptr : value->label();
  return property.name() == OVProPertyOther && label != nullptr && label->name() == "vCard";
}

std::vector<Entry> entriesOf(const OVMultipleValue& values, const OVProperty& property) {
  const auto mainValue = values.mainValue();
  std::vector<Entry> entries;
  // The main value need not be one of the list.
  if (mainValue != nullptr && values.indexOfValue(mainValue) >= values.count()) {
    entries.push_back(mainEntryOf(mainValue, property));
  }
  std::vector<OVRef<OVSingleValue>> shown;
  for (std::uint64_t i = 0; i < values.count(); ++i) {
    if (!isRecordOfLines(values.valueAtIndex(i), property)) shown.push_back(values.valueAtIndex(i));
  }
  for (const auto& value : shown) {
    const bool isMainOfSeveral = value != nullptr && value == mainValue && shown.size() > 1;
    entries.push_back(isMainOfSeveral ? mainEntryOf(value, property) : entryOf(value, property));
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

/// The display name, else the company, else the ID.
OVString headingOf(const OVString& ID, const OVPersonGeneral& person) {
  if (OVString name = person.displayName(); !name.empty()) return name;
  const auto company = ov::cast<OVSingleValue>(person.valueByPropertyName(OVProPertyCompany));
  OVString name = company == nullptr ? OVString() : ov::cast<OVString>(company->value());
  return name.empty() ? ID : name;
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
  out << printable(headingOf(ID, *person)) << '\n';
  table.print(out, "  ");
}

}  // namespace ovbook
