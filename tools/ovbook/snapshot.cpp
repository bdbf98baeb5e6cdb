#include "snapshot.h"

#include <utility>
#include <vector>

#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/group.h>
#include <OVAddressBookSDK/person.h>

namespace ovbook {

namespace {

/// Every group once, each before its sub-groups.
void addGroups(OVAddressBookGeneral& snapshot, const OVAddressBook& book) {
  std::vector<OVRef<IOVGroup>> waiting;
  const auto waitInOrder = [&](const OVList<IOVGroup>& groups) {
    if (groups == nullptr) return;
    for (std::size_t i = groups.size(); i > 0; --i) waiting.push_back(groups[i - 1]);
  };
  const auto added = OVDictionary<IOVGroup>::dictionary();  // of any IDs in little time
  waitInOrder(book.rootGroups());
  while (!waiting.empty()) {
    const OVRef<IOVGroup> group = std::move(waiting.back());
    waiting.pop_back();
    if (added.contains(group->ID())) continue;
    added.set(group->ID(), group);
    snapshot.addGroup(group);
    waitInOrder(group->subGroups());
  }
}

}  // namespace

OVRef<OVAddressBookGeneral> snapshotOf(OVRef<const OVAddressBook> book) {
  auto snapshot = OVAddressBookGeneral::init();
  addGroups(*snapshot, *book);
  auto all = book->allPersons();
  std::vector<OVRef<IOVPerson>> persons(all.begin(), all.end());
  all = nullptr;
  book = nullptr;
  for (auto& person : persons) snapshot->addPerson(std::exchange(person, nullptr));
  return snapshot;
}

}  // namespace ovbook
