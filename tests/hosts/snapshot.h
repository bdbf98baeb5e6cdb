#pragma once

#include <vector>

#include <OVAddressBookSDK/address_book_general.h>

/// A snapshot of the book, with all its groups.
inline OVRef<OVAddressBookGeneral> snapshotOf(const OVAddressBook& book) {
  auto general = OVAddressBookGeneral::init();
  const auto persons = book.allPersons();
  for (const OVRef<IOVPerson> one : persons) general->addPerson(one);
  std::vector<OVRef<IOVGroup>> open;
  const auto openAll = [&](const OVList<IOVGroup>& groups) {
    for (std::size_t i = groups.size(); i-- > 0;) open.push_back(groups[i]);
  };
  openAll(book.rootGroups());
  while (!open.empty()) {
    const auto group = open.back();
    open.pop_back();
    general->addGroup(group);
    openAll(group->subGroups());
  }
  return general;
}
