// A book holds general persons and groups only: whatever is added is copied into one, which shares
// its values and names members and sub-groups by ID.

#include <OVAddressBookSDK/address_book_general.h>

#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "book/general_book_keys.h"
#include "book/listed_person.h"
#include "platform/dispose.h"
#include "platform/maker.h"
#include "platform/owned.h"

using ov::detail::kGroupsKey;
using ov::detail::kPersonsKey;
using ov::detail::ListedPerson;

namespace {

[[noreturn]] void raiseNoID(const std::string& whose) {
  throw std::invalid_argument("OVAddressBookGeneral: " + whose + " has no ID");
}

std::string quoted(const OVString& text) { return '"' + text.str() + '"'; }

/// The IDs of a group's sub-groups or members, each of which is one of `what`.
template <class T>
OVList<OVString> idsOf(const OVList<T>& all, const char* what, const OVGroupGeneral& group) {
  auto IDs = OVList<OVString>::list();
  for (const OVRef<T> each : all) {
    const OVString ID = each == nullptr ? OVString() : each->ID();
    if (ID.isNull()) {
      raiseNoID(what + std::to_string(IDs.size()) + " of the group " + quoted(group.ID()) + " (" +
                quoted(group.title()) + ")");
    }
    IDs.push_back(ID);
  }
  return IDs;
}

}  // namespace

OVRef<OVAddressBookGeneral> OVAddressBookGeneral::init() {
  return ov::detail::Maker::make<OVAddressBookGeneral>();
}

OVAddressBookGeneral::OVAddressBookGeneral()
    : personDic_(OVDictionary<OVPersonGeneral>::dictionary()),
      groupDic_(OVDictionary<OVGroupGeneral>::dictionary()) {}

OVAddressBookGeneral::~OVAddressBookGeneral() {
  ov::detail::dispose(std::move(personDic_));
  ov::detail::dispose(std::move(groupDic_));
}

OVRef<OVObject> OVAddressBookGeneral::addressBookWithData(const OVRef<OVData>& data) {
  return OVKeyedUnarchiver::unarchiveObjectWithData(data);
}

OVRef<OVData> OVAddressBookGeneral::saveToData() const {
  return OVKeyedArchiver::archivedDataWithRootObject(
      ov::detail::owned(*this, "OVAddressBookGeneral"));
}

void OVAddressBookGeneral::addPerson(const OVRef<IOVPerson>& person) {
  const auto persons = personsDic();
  if (person == nullptr || persons.isNull()) return;
  const auto general = generalPersonWithPerson(person);
  const OVString ID = general->ID();
  if (ID.isNull()) raiseNoID("the person to add");
  persons.set(ID, general);
}

void OVAddressBookGeneral::addGroup(const OVRef<IOVGroup>& group) {
  const auto groups = groupsDic();
  if (groups.isNull()) return;
  if (group == nullptr) throw std::invalid_argument("OVAddressBookGeneral: no group to add");
  const OVString ID = group->ID();
  if (ID.isNull()) raiseNoID("the group " + quoted(group->displayName()));
  groups.set(ID, generalGroupByGroup(group));
}

OVRef<OVPersonGeneral> OVAddressBookGeneral::generalPersonWithPerson(
    const OVRef<IOVPerson>& person) const {
  if (person == nullptr) return nullptr;
  if (const auto* listed = dynamic_cast<const ListedPerson*>(person.get())) listed->refuseToKeep();
  auto general = OVPersonGeneral::initWithID(person->ID());
  for (const OVRef<OVProperty> property : OVProperty::StandardPropertyArray()) {
    general->setValueByProperty(person->valueByProperty(property), property);
  }
  general->entries_.shrink_to_fit();
  if (const auto source = ov::cast<OVPersonGeneral>(person)) general->takeWhatReadsAsNull(*source);
  return general;
}

OVRef<OVGroupGeneral> OVAddressBookGeneral::generalGroupByGroup(
    const OVRef<IOVGroup>& group) const {
  if (group == nullptr) return nullptr;
  auto general = group->emptyGeneralGroup();
  if (general == nullptr) general = OVGroupGeneral::init();
  general->setID(group->ID());
  general->setTitle(group->displayName());
  general->setSubArray(idsOf(group->subGroups(), "sub-group ", *general));
  general->setPersons(idsOf(group->persons(), "member ", *general));
  return general;
}

const OVClass& OVAddressBookGeneral::archivedClass() {
  static const OVClass record{"OVAddressBookGeneral", &OVAddressBook::archivedClass(),
                              &ov::detail::Maker::empty<OVAddressBookGeneral>};
  return record;
}

const OVClass* OVAddressBookGeneral::classForCoder() const { return &archivedClass(); }

void OVAddressBookGeneral::encodeWithCoder(OVKeyedArchiver& coder) const {
  if (personDic_ != nullptr) coder.encodeObjectForKey(personDic_, kPersonsKey);
  if (groupDic_ != nullptr) coder.encodeObjectForKey(groupDic_, kGroupsKey);
}

void OVAddressBookGeneral::initWithCoder(OVKeyedUnarchiver& coder) {
  personDic_ = coder.decodeObjectForKey(kPersonsKey);
  groupDic_ = coder.decodeObjectForKey(kGroupsKey);
}
