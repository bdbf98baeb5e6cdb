// In a data block, groups may contain each other, so whoever walks down them remembers where they
// have been. Tags are texts of the persons: a manager gathers them when it is asked for, and
// `writeTags` gives them back to the persons.

#include "block_content.h"

#include <QtCore/QUuid>

#include <algorithm>
#include <vector>

#include <OVAddressBookSDK/person_general.h>

#include "block_group.h"

namespace ov::qt {

namespace {

bool areEqual(const OVList<OVString>& a, const OVList<OVString>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end());
}

}  // namespace

OVList<OVString> tagsIn(const OVPersonGeneral& person) {
  const auto value = ov::cast<OVSingleValue>(person.valueByPropertyName(OVProPertyTags));
  return value == nullptr ? nullptr : ov::cast<OVList<OVString>>(value->value());
}

OVString randomID() { return QUuid::createUuid().toString(QUuid::WithoutBraces).toStdString(); }

OVDictionary<OVPersonGeneral> personsOf(const BlockContent& content) {
  auto persons = content.book->personsDic();
  return persons == nullptr ? OVDictionary<OVPersonGeneral>::dictionary() : persons;
}

OVDictionary<OVGroupGeneral> groupsOf(const BlockContent& content) {
  auto all = content.book->groupsDic();
  return all == nullptr ? OVDictionary<OVGroupGeneral>::dictionary() : all;
}

OVRef<IOVGroup> BlockContent::group(const OVString& groupID) {
  const auto record = groupsOf(*this)[groupID];
  if (record == nullptr) return nullptr;
  OVRef<IOVGroup>& place = groups[groupID];
  if (place == nullptr) place = std::make_shared<BlockGroup>(groupID, record, weak_from_this());
  return place;
}

OVString BlockContent::idOf(const OVRef<IOVGroup>& group) const {
  if (group == nullptr) return nullptr;
  const auto at = groups.find(group->ID());
  return at == groups.end() || at->second != group ? OVString() : at->first;
}

void BlockContent::addAllBelow(const OVString& groupID, std::unordered_set<OVString>& ids) const {
  const auto all = groupsOf(*this);
  std::vector<OVString> open{groupID};
  while (!open.empty()) {
    const OVString id = open.back();
    open.pop_back();
    const auto record = all[id];
    if (!ids.insert(id).second || record == nullptr) continue;
    const auto below = record->subArray();
    for (const OVString& each : below) open.push_back(each);
  }
}

bool BlockContent::isInside(const OVString& inner, const OVString& outer) const {
  std::unordered_set<OVString> below;
  addAllBelow(outer, below);
  return below.contains(inner);
}

void BlockContent::removeFromGroups(const OVString& personID) {
  const auto all = groupsOf(*this);
  for (const auto& [id, record] : all) {
    const auto members = record == nullptr ? nullptr : record->persons();
    if (members != nullptr) members.remove(personID);
  }
}

void BlockContent::makeTags() {
  auto made = OVTagManager::init();
  const auto all = personsOf(*this);
  for (const auto& [id, person] : all) {
    const auto its = person == nullptr ? nullptr : tagsIn(*person);
    for (const OVString& tag : its) {
      if (!tag.isNull()) made->addPersonIDForTag(id, tag);
    }
  }
  tags = std::move(made);
}

void BlockContent::writeTags() {
  if (tags == nullptr) return;
  const auto property = OVProperty::propertyWithName(OVProPertyTags);
  const auto all = personsOf(*this);
  for (const auto& [id, person] : all) {
    if (person == nullptr) continue;
    const auto now = tags->tagsByPersonID(id);
    if (areEqual(now, tagsIn(*person))) continue;
    if (now.empty()) {
      person->removeValueByPropertyName(OVProPertyTags);
    } else {
      person->setValueByProperty(
          OVPersonGeneral::singleValueByMacValueProperty(now.copy(), property), property);
    }
  }
}

}  // namespace ov::qt
