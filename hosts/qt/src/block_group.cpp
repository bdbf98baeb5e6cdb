#include "block_group.h"

#include <utility>

namespace ov::qt {

namespace {

/// The list to be changed; `given` where the record had none.
OVList<OVString> orNew(const OVList<OVString>& list) {
  return list == nullptr ? OVList<OVString>::list() : list;
}

}  // namespace

BlockGroup::BlockGroup(OVString id, OVRef<OVGroupGeneral> record,
                       std::weak_ptr<BlockContent> content)
    : id_(std::move(id)), record_(std::move(record)), content_(std::move(content)) {}

OVList<IOVGroup> BlockGroup::subGroups() const {
  auto groups = OVList<IOVGroup>::list();
  const auto content = content_.lock();
  if (content == nullptr) return groups;
  const auto ids = record_->subArray();
  for (const OVString& id : ids) {
    if (const auto group = content->group(id)) groups.push_back(group);
  }
  return groups;
}

OVList<IOVPerson> BlockGroup::persons() const {
  auto persons = OVList<IOVPerson>::list();
  const auto content = content_.lock();
  if (content == nullptr) return persons;
  const auto all = personsOf(*content);
  const auto ids = record_->persons();
  for (const OVString& id : ids) {
    if (const auto person = all[id]) persons.push_back(person);
  }
  return persons;
}

OVRef<OVGroupGeneral> BlockGroup::emptyGeneralGroup() const {
  const OVClass* const kind = record_->classForCoder();
  auto made =
      kind == nullptr || kind->make == nullptr ? nullptr : ov::cast<OVGroupGeneral>(kind->make());
  return made == nullptr ? OVGroupGeneral::init() : made;
}

void BlockGroup::setDisplayName(const OVString& name) {
  record_->setTitle(name.isNull() ? OVString("") : name);
}

bool BlockGroup::addPerson(const OVRef<IOVPerson>& person) {
  const auto content = content_.lock();
  if (content == nullptr || person == nullptr) return false;
  if (OVRef<IOVPerson>(personsOf(*content)[person->ID()]) != person) return false;
  const auto ids = orNew(record_->persons());
  if (ids.contains(person->ID())) return false;
  ids.push_back(person->ID());
  record_->setPersons(ids);
  return true;
}

bool BlockGroup::removePerson(const OVRef<IOVPerson>& person) {
  const auto ids = record_->persons();
  return person != nullptr && ids != nullptr && ids.remove(person->ID()) != 0;
}

bool BlockGroup::addSubGroup(const OVRef<IOVGroup>& group) {
  const auto content = content_.lock();
  if (content == nullptr) return false;
  const OVString inner = content->idOf(group);
  if (inner.isNull() || content->isInside(id_, inner)) return false;
  const auto ids = orNew(record_->subArray());
  if (ids.contains(inner)) return false;
  ids.push_back(inner);
  record_->setSubArray(ids);
  return true;
}

bool BlockGroup::removeSubGroup(const OVRef<IOVGroup>& group) {
  const auto content = content_.lock();
  const auto ids = record_->subArray();
  if (content == nullptr || ids == nullptr) return false;
  const OVString inner = content->idOf(group);
  return !inner.isNull() && ids.remove(inner) != 0;
}

}  // namespace ov::qt
