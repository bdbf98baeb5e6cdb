#include <OVAddressBookVCard/vcard_group.h>

#include <algorithm>
#include <vector>

#include "book_content.h"

using ov::vcard::BookContent;
using ov::vcard::GroupRecord;
using ov::vcard::Person;

namespace {

/// True when `wanted` is `start` or stands anywhere inside it.
bool holds(const OVRef<OVVCardGroup>& start, const OVVCardGroup* wanted) {
  std::vector<OVRef<OVVCardGroup>> open{start};
  std::unordered_set<const OVVCardGroup*> seen;
  while (!open.empty()) {
    const OVRef<OVVCardGroup> group = open.back();
    open.pop_back();
    if (group.get() == wanted) return true;
    if (!seen.insert(group.get()).second) continue;
    for (const auto& weak : BookContent::recordOf(*group).subGroups) {
      if (auto sub = weak.lock()) open.push_back(std::move(sub));
    }
  }
  return false;
}

}  // namespace

OVVCardGroup::OVVCardGroup(std::unique_ptr<GroupRecord> record) : record_(std::move(record)) {}

OVVCardGroup::~OVVCardGroup() = default;

OVString OVVCardGroup::ID() const { return record_->id; }

OVString OVVCardGroup::displayName() const { return record_->name; }

void OVVCardGroup::setDisplayName(const OVString& name) {
  record_->name = name.isNull() ? OVString("") : name;
}

OVList<IOVGroup> OVVCardGroup::subGroups() const {
  auto groups = OVList<IOVGroup>::list();
  for (const auto& weak : record_->subGroups) {
    if (const auto group = weak.lock()) groups.push_back(group);
  }
  return groups;
}

OVList<IOVPerson> OVVCardGroup::persons() const {
  auto persons = OVList<IOVPerson>::list();
  for (const OVRef<Person>& person : record_->persons) persons.push_back(person);
  return persons;
}

bool OVVCardGroup::addPerson(const OVRef<IOVPerson>& person) {
  const auto book = record_->book.lock();
  const OVRef<Person> ours = book == nullptr ? nullptr : book->personOf(person);
  if (ours == nullptr || !record_->personSet.insert(ours.get()).second) return false;
  record_->persons.push_back(ours);
  return true;
}

bool OVVCardGroup::removePerson(const OVRef<IOVPerson>& person) {
  const auto ours = std::dynamic_pointer_cast<Person>(person);
  if (record_->personSet.erase(ours.get()) == 0) return false;
  std::erase(record_->persons, ours);
  return true;
}

bool OVVCardGroup::addSubGroup(const OVRef<IOVGroup>& group) {
  const auto book = record_->book.lock();
  const OVRef<OVVCardGroup> ours = book == nullptr ? nullptr : book->groupOf(group);
  if (ours == nullptr || holds(ours, this)) return false;
  const bool isThere = std::any_of(record_->subGroups.begin(), record_->subGroups.end(),
                                   [&](const auto& sub) { return sub.lock() == ours; });
  if (isThere) return false;
  record_->subGroups.push_back(ours);
  ++ours->record_->parents;
  return true;
}

bool OVVCardGroup::removeSubGroup(const OVRef<IOVGroup>& group) {
  const auto ours = std::dynamic_pointer_cast<OVVCardGroup>(group);
  if (ours == nullptr) return false;
  const std::size_t removed =
      std::erase_if(record_->subGroups, [&](const auto& sub) { return sub.lock() == ours; });
  if (removed > 0) --ours->record_->parents;
  return removed > 0;
}
