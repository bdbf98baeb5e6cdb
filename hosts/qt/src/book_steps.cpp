// Steps name persons and groups by ID, since one that was removed comes back as another object. The
// book may give it another ID, too: `laterIDs` says which.

#include "book_steps.h"

#include <OVAddressBookSDK/notification_names.h>

#include "all_groups.h"

namespace ov::qt {

namespace {

template <class List>
IDs idsOf(const List& list) {
  IDs ids;
  for (const auto& each : list) ids.push_back(each->ID());
  return ids;
}

}  // namespace

OVString notificationFor(const OVString& property) {
  if (property == OVProPertyName) return OVPersonChangeNameNotification;
  if (property == OVProPertyPhone) return OVPersonChangePhoneNotification;
  return property == OVProPertyEmail ? OVPersonChangeEmailNotification : OVString();
}

OVString BookSteps::currentID(OVString id) const {
  for (auto at = laterIDs.find(id); at != laterIDs.end(); at = laterIDs.find(id)) id = at->second;
  return id;
}

OVRef<IOVPerson> BookSteps::person(const OVString& id) const {
  const auto found = book->personsForIDs(OVList<OVString>::list({currentID(id)}));
  return found.empty() ? nullptr : found.front();
}

OVRef<IOVGroup> BookSteps::group(const OVString& id) const {
  return id.isNull() ? nullptr : book->groupByID(currentID(id));
}

std::vector<OVRef<IOVGroup>> BookSteps::allGroups() const {
  return withAllBelow(book->rootGroups());
}

RemovedGroup BookSteps::removeGroup(const OVString& id) {
  const auto leaving = group(id);
  if (leaving == nullptr) return {};
  RemovedGroup removed{leaving->ID(),
                       leaving->displayName(),
                       idsOf(leaving->persons()),
                       idsOf(leaving->subGroups()),
                       {}};
  for (const auto& each : allGroups()) {
    if (each->subGroups().contains(leaving)) removed.parents.push_back(each->ID());
  }
  book->removeGroup(leaving);
  emit shown.groupsChanged();
  return removed;
}

void BookSteps::bringBack(const RemovedGroup& removed) {
  const auto came = removed.id.isNull() ? nullptr : book->addGroupByName(removed.name);
  if (came == nullptr) return;
  if (came->ID() != removed.id) laterIDs[removed.id] = came->ID();
  for (const OVString& id : removed.persons) came->addPerson(person(id));
  for (const OVString& id : removed.subGroups) came->addSubGroup(group(id));
  for (const OVString& id : removed.parents) {
    if (const auto parent = group(id)) parent->addSubGroup(came);
  }
  emit shown.groupsChanged();
}

void BookSteps::rename(const OVString& id, const OVString& name) {
  if (const auto renamed = group(id)) renamed->setDisplayName(name);
  emit shown.groupsChanged();
}

void BookSteps::join(const OVString& groupID, const IDs& persons) {
  const auto joined = group(groupID);
  for (const OVString& id : persons) {
    if (joined != nullptr) joined->addPerson(person(id));
  }
  emit shown.groupsChanged();
}

void BookSteps::leave(const OVString& groupID, const IDs& persons) {
  const auto left = group(groupID);
  for (const OVString& id : persons) {
    if (left != nullptr) left->removePerson(person(id));
  }
  emit shown.groupsChanged();
}

}  // namespace ov::qt
