#include <OVAddressBookSDK/address_book.h>

#include "platform/maker.h"
#include "platform/services/name_order.h"

OVRef<OVAddressBook> OVAddressBook::init() { return ov::detail::Maker::make<OVAddressBook>(); }

OVAddressBook::~OVAddressBook() = default;

bool OVAddressBook::lastNameInFront() { return ov::lastNameInFront(); }

void OVAddressBook::setlastNameInFront(bool flag) { ov::setLastNameInFront(flag); }

OVString OVAddressBook::ID() const { return nullptr; }

OVString OVAddressBook::name() const { return nullptr; }

bool OVAddressBook::canCreateGroup() const { return true; }

bool OVAddressBook::canCreateSubGroup() const { return true; }

bool OVAddressBook::canOprate() const { return true; }

void OVAddressBook::loadWithData(const OVRef<OVData>& /*data*/) {}

OVRef<OVData> OVAddressBook::saveData() { return nullptr; }

OVList<OVProperty> OVAddressBook::supportProperty() const { return OVList<OVProperty>::list(); }

OVList<OVProperty> OVAddressBook::commonProperty() const { return OVList<OVProperty>::list(); }

std::uint64_t OVAddressBook::allPersonsCount() const { return 0; }

OVList<IOVPerson> OVAddressBook::allPersons() const { return OVList<IOVPerson>::list(); }

std::uint64_t OVAddressBook::rootGroupsCount() const { return 0; }

OVList<IOVGroup> OVAddressBook::rootGroups() const { return OVList<IOVGroup>::list(); }

OVRef<IOVGroup> OVAddressBook::addGroupByName(const OVString& /*name*/) { return nullptr; }

bool OVAddressBook::removeGroup(const OVRef<IOVGroup>& /*group*/) { return true; }

void OVAddressBook::removePersons(const OVList<IOVPerson>& /*persons*/) {}

OVRef<IOVPerson> OVAddressBook::newPerson() { return nullptr; }

void OVAddressBook::save() {}

OVRef<OVTagManager> OVAddressBook::tagManager() const { return nullptr; }

OVRef<IOVPerson> OVAddressBook::addOneFromOtherPerson(const OVRef<IOVPerson>& /*person*/) {
  return nullptr;
}

OVList<IOVPerson> OVAddressBook::personsForIDs(const OVList<OVString>& /*personIDs*/) const {
  return nullptr;
}

OVRef<IOVGroup> OVAddressBook::groupByID(const OVString& /*groupID*/) const { return nullptr; }

void OVAddressBook::loadWithDataProgressBlock(const OVRef<OVData>& /*data*/,
                                              const std::function<void()>& /*progressBlock*/) {}

void OVAddressBook::saveDataBlock(const std::function<void()>& /*block*/) {}

void OVAddressBook::addPersonStart() {}

void OVAddressBook::addPersonEnd() {}

void OVAddressBook::addBatchPersonStart(std::int64_t /*count*/) {}

OVRef<IOVPerson> OVAddressBook::addBatchPersonForOther(const OVRef<IOVPerson>& /*person*/) {
  return nullptr;
}

void OVAddressBook::addBatchPersonEnd() {}

OVRef<OVImage> OVAddressBook::thumbnail() const { return thumbnail_.load(); }

OVRef<OVImage> OVAddressBook::logo1() const { return logo1_.load(); }

OVRef<OVImage> OVAddressBook::logo2() const { return logo2_.load(); }

OVRef<OVImage> OVAddressBook::logo3() const { return logo3_.load(); }

OVRef<OVImage> OVAddressBook::logo4() const { return logo4_.load(); }

const OVClass& OVAddressBook::archivedClass() {
  static constexpr OVClass record{"OVAddressBook", nullptr, nullptr};
  return record;
}
