// A general book is written from its dictionaries, whose keys are the IDs. Any other book is
// written through the interface, where a group is met in every group that contains it, and written
// once.

#include <OVAddressBookVCard/vcard_export.h>

#include <memory>
#include <span>
#include <string>
#include <unordered_set>
#include <vector>

#include <OVAddressBookSDK/address_book_general.h>

#include "mapping/group_card.h"
#include "mapping/person_card.h"
#include "memory/general_group.h"

namespace ov::vcard {

using ov::card::GeneralGroup;
using ov::card::GroupContent;
using ov::card::writeGroup;
using ov::card::writePerson;

namespace {

void appendIDs(const OVList<OVString>& ids, std::vector<OVString>& all) {
  if (ids == nullptr) return;
  for (const OVString id : ids) {
    if (!id.isNull()) all.push_back(id);
  }
}

/// What a group's card says besides name and members; null for nothing.
OVString oddLinesOf(const OVRef<OVGroupGeneral>& group) {
  const auto ours = ov::cast<GeneralGroup>(group);
  return ours == nullptr ? OVString() : ours->oddLines();
}

void writeGeneralBook(const OVAddressBookGeneral& book, std::string& out) {
  if (const auto persons = book.personsDic()) {
    for (const auto& [id, person] : persons) {
      if (person != nullptr) writePerson(*person, id, out);
    }
  }
  if (const auto groups = book.groupsDic()) {
    for (const auto& [id, group] : groups) {
      if (group == nullptr) continue;
      GroupContent content{id, group->title(), {}, oddLinesOf(group)};
      appendIDs(group->persons(), content.members);
      appendIDs(group->subArray(), content.members);
      writeGroup(content, out);
    }
  }
}

void writeAnyGroup(const IOVGroup& group, std::string& out) {
  GroupContent content{group.ID(), group.displayName(), {}, oddLinesOf(group.emptyGeneralGroup())};
  for (const OVRef<IOVPerson>& person : group.persons()) content.members.push_back(person->ID());
  for (const OVRef<IOVGroup>& sub : group.subGroups()) content.members.push_back(sub->ID());
  writeGroup(content, out);
}

/// Each group once, even if several others or itself contain it.
void writeGroups(const OVList<IOVGroup>& roots, std::string& out) {
  if (roots == nullptr) return;
  std::vector<OVRef<IOVGroup>> open;
  std::unordered_set<const IOVGroup*> seen;
  const auto push = [&](const OVList<IOVGroup>& groups) {
    for (std::size_t i = groups.size(); i-- > 0;) open.push_back(groups[i]);
  };
  push(roots);
  while (!open.empty()) {
    const OVRef<IOVGroup> group = open.back();
    open.pop_back();
    if (group == nullptr || !seen.insert(group.get()).second) continue;
    writeAnyGroup(*group, out);
    push(group->subGroups());
  }
}

void writeBook(const OVAddressBook& book, std::string& out) {
  if (const auto persons = book.allPersons()) {
    for (const OVRef<IOVPerson> person : persons) {
      if (person != nullptr) writePerson(*person, person->ID(), out);
    }
  }
  writeGroups(book.rootGroups(), out);
}

}  // namespace

OVRef<OVData> exportBook(const OVRef<OVAddressBook>& book) {
  if (book == nullptr) return nullptr;
  const auto out = std::make_shared<std::string>();
  if (const auto* const general = dynamic_cast<const OVAddressBookGeneral*>(book.get())) {
    writeGeneralBook(*general, *out);
  } else {
    writeBook(*book, *out);
  }
  return OVData::dataWithBytesNoCopy(std::as_bytes(std::span(*out)), out);
}

void registerClasses() { GeneralGroup::registerClass(); }

}  // namespace ov::vcard
