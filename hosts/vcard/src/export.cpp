#include <OVAddressBookVCard/vcard_export.h>

#include <memory>
#include <span>
#include <string>
#include <unordered_set>
#include <vector>

#include <OVAddressBookSDK/address_book_general.h>

#include "book_content.h"
#include "book_text.h"
#include "person_writer.h"

namespace ov::vcard {

namespace {

void appendIDs(const OVList<OVString>& ids, std::vector<OVString>& all) {
  if (ids == nullptr) return;
  for (const OVString id : ids) {
    if (!id.isNull()) all.push_back(id);
  }
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
      std::vector<OVString> members;
      appendIDs(group->persons(), members);
      appendIDs(group->subArray(), members);
      writeGroup(id, group->title(), members, {}, out);
    }
  }
}

void writeForeignGroup(const IOVGroup& group, std::string& out) {
  std::vector<OVString> members;
  if (const auto persons = group.persons()) {
    for (const OVRef<IOVPerson> person : persons) members.push_back(person->ID());
  }
  if (const auto subGroups = group.subGroups()) {
    for (const OVRef<IOVGroup> subGroup : subGroups) members.push_back(subGroup->ID());
  }
  writeGroup(group.ID(), group.displayName(), members, {}, out);
}

/// Each group once, also when it stands in several others or in itself.
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
    if (const auto ours = std::dynamic_pointer_cast<OVVCardGroup>(group)) {
      writeGroup(BookContent::recordOf(*ours), out);
    } else {
      writeForeignGroup(*group, out);
    }
    if (const auto subGroups = group->subGroups()) push(subGroups);
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

OVRef<OVData> cardsOf(const OVAddressBook& book) {
  const auto out = std::make_shared<std::string>();
  if (const auto* const general = dynamic_cast<const OVAddressBookGeneral*>(&book)) {
    writeGeneralBook(*general, *out);
  } else {
    writeBook(book, *out);
  }
  return OVData::dataWithBytesNoCopy(std::as_bytes(std::span(*out)), out);
}

OVRef<OVData> exportBook(const OVRef<OVAddressBook>& book) {
  return book == nullptr ? nullptr : cardsOf(*book);
}

}  // namespace ov::vcard
