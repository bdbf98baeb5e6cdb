#include "show/group_sheet.h"

#include <functional>
#include <ostream>

#include <OVAddressBookVCard/vcard_readable.h>

#include "book_file.h"
#include "output/escape.h"
#include "show/entry.h"

namespace ovbook {

namespace {

using NameOf = std::function<OVString(const OVString& ID)>;

void addMembers(Table& table, const char* heading, const OVList<OVString>& IDs,
                const NameOf& nameOf) {
  if (IDs == nullptr) return;
  std::vector<Entry> entries;
  for (const OVString& ID : IDs) entries.push_back({printable(ID), {printable(nameOf(ID))}});
  addEntries(table, heading, entries);
}

}  // namespace

void printGroup(const OVString& ID, const OVRef<OVGroupGeneral>& group,
                const OVAddressBookGeneral& book, std::ostream& out) {
  if (group == nullptr) {
    out << printable(ID) << " [not a group]\n";
    return;
  }
  Table table;
  table.add({"ID", printable(ID)});
  addMembers(table, "Groups", group->subArray(), [&](const OVString& subID) -> OVString {
    const auto subGroup = groupsOf(book)[subID];
    return subGroup == nullptr ? nullptr : subGroup->title();
  });
  addMembers(table, "Persons", group->persons(), [&](const OVString& personID) -> OVString {
    const auto person = personsOf(book)[personID];
    return person == nullptr ? nullptr : ov::vcard::headingOf(*person).main;
  });
  const OVString title = group->title();
  out << printable(title.empty() ? ID : title) << " [group]\n";
  table.print(out, "  ");
}

}  // namespace ovbook
