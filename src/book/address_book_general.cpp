#include <OVAddressBookSDK/address_book_general.h>

#include <stdexcept>
#include <string>
#include <string_view>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "platform/maker.h"

namespace {

constexpr std::string_view kPersonsKey = "personDic";
constexpr std::string_view kGroupsKey = "groupDic";

void requireID(const OVString& ID, const char* whose) {
  if (ID.isNull()) {
    throw std::invalid_argument(std::string("OVAddressBookGeneral: ") + whose + " has no ID");
  }
}

template <class T>
OVList<OVString> idsOf(const OVList<T>& members, const char* whose) {
  auto ids = OVList<OVString>::list();
  for (const OVRef<T> member : members) {
    const OVString ID = member == nullptr ? OVString() : member->ID();
    requireID(ID, whose);
    ids.push_back(ID);
  }
  return ids;
}

}  // namespace

OVRef<OVAddressBookGeneral> OVAddressBookGeneral::init() {
  auto made = ov::detail::Maker::make<OVAddressBookGeneral>();
  made->personDic_ = OVDictionary<OVPersonGeneral>::dictionary();
  made->groupDic_ = OVDictionary<OVGroupGeneral>::dictionary();
  return made;
}

OVRef<OVObject> OVAddressBookGeneral::addressBookWithData(const OVRef<OVData>& data) {
  return OVKeyedUnarchiver::unarchiveObjectWithData(data);
}

OVRef<OVData> OVAddressBookGeneral::saveToData() const {
  return OVKeyedArchiver::archivedDataWithRootObject(
      std::const_pointer_cast<OVAddressBookGeneral>(shared_from_this()));
}

void OVAddressBookGeneral::addPerson(const OVRef<IOVPerson>& person) {
  if (person == nullptr || personDic_ == nullptr) return;
  const auto general = generalPersonWithPerson(person);
  requireID(general->ID(), "the person to add");
  personDic_.set(general->ID(), general);
}

void OVAddressBookGeneral::addGroup(const OVRef<IOVGroup>& group) {
  if (groupDic_ == nullptr) return;
  if (group == nullptr) throw std::invalid_argument("OVAddressBookGeneral: no group to add");
  const OVString ID = group->ID();
  requireID(ID, "the group to add");
  groupDic_.set(ID, generalGroupByGroup(group));
}

OVRef<OVPersonGeneral> OVAddressBookGeneral::generalPersonWithPerson(
    const OVRef<IOVPerson>& person) const {
  if (person == nullptr) return nullptr;
  auto general = OVPersonGeneral::initWithID(person->ID());
  for (const OVRef<OVProperty> property : OVProperty::StandardPropertyArray()) {
    general->setValueByProperty(person->valueByProperty(property), property);
  }
  return general;
}

OVRef<OVGroupGeneral> OVAddressBookGeneral::generalGroupByGroup(
    const OVRef<IOVGroup>& group) const {
  if (group == nullptr) return nullptr;
  auto general = group->emptyGeneralGroup();
  general->setID(group->ID());
  general->setTitle(group->displayName());
  general->setSubArray(idsOf(group->subGroups(), "a sub-group"));
  general->setPersons(idsOf(group->persons(), "a member of the group"));
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
  personDic_ = coder.decodeObjectForKey<OVDictionary<OVPersonGeneral>>(kPersonsKey);
  groupDic_ = coder.decodeObjectForKey<OVDictionary<OVGroupGeneral>>(kGroupsKey);
}
