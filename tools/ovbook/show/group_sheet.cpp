#include "show/group_sheet.h"

#include <functional>
#include <ostream>

#include "book_file.h"
#include "output/escape.h"
#include "output/table.h"

namespace ovbook {

namespace {

using NameOf = std::function<OVString(const OVString& ID)>;

void addMembers(Table& table, const char* what, const OVRef<OVList<OVString>>& IDs,
                const NameOf& nameOf) {
  if (IDs == nullptr) return;
  std::string cell = what;
  for (const OVString& ID : *IDs) {
    table.add({std::exchange(cell, ""), printable(ID), printable(nameOf(ID))});
  }
}

}  // namespace

void printGroup(const OVString& ID, const OVRef<OVGroupGeneral>& group,
                const OVAddressBookGeneral& book, std::ostream& out) {
  const OVString title = group == nullptr ? nullptr : group->title();
  out << printable(title.empty() ? ID : title) << (group == nullptr ? " [no group]" : " [group]")
      << '\n';
  Table table;
  table.add({"ID", printable(ID)});
  if (group != nullptr) {
    addMembers(table, "Groups", group->subArray(), [&](const OVString& subID) -> OVString {
      const auto subGroup = (*groupsOf(book))[subID];
      return subGroup == nullptr ? nullptr : subGroup->title();
    });
    addMembers(table, "Persons", group->persons(), [&](const OVString& personID) -> OVString {
      const auto person = (*personsOf(book))[personID];
      return person == nullptr ? nullptr : person->displayName();
    });
  }
  table.print(out, "  ");
}

}  // namespace ovbook
