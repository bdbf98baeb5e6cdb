#include <OVAddressBookSDK/group_general.h>

#include <string_view>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "platform/dispose.h"
#include "platform/maker.h"

namespace {

constexpr std::string_view kTitleKey = "title";
constexpr std::string_view kSubGroupsKey = "subArray";
constexpr std::string_view kPersonIDsKey = "persons";

}  // namespace

OVRef<OVGroupGeneral> OVGroupGeneral::init() { return ov::detail::Maker::make<OVGroupGeneral>(); }

OVGroupGeneral::~OVGroupGeneral() { ov::detail::dispose(extend_.take()); }

const OVClass& OVGroupGeneral::archivedClass() {
  static constexpr OVClass record{"OVGroupGeneral", nullptr,
                                  &ov::detail::Maker::empty<OVGroupGeneral>};
  return record;
}

const OVClass* OVGroupGeneral::classForCoder() const { return &archivedClass(); }

void OVGroupGeneral::encodeWithCoder(OVKeyedArchiver& coder) const {
  if (!title_.peek().isNull()) coder.encodeObjectForKey(title_.peek(), kTitleKey);
  if (subArray_.peek() != nullptr) coder.encodeObjectForKey(subArray_.peek(), kSubGroupsKey);
  if (persons_.peek() != nullptr) coder.encodeObjectForKey(persons_.peek(), kPersonIDsKey);
}

void OVGroupGeneral::initWithCoder(OVKeyedUnarchiver& coder) {
  setTitle(coder.decodeStringForKey(kTitleKey));
  setSubArray(coder.decodeObjectForKey<OVList<OVString>>(kSubGroupsKey));
  setPersons(coder.decodeObjectForKey<OVList<OVString>>(kPersonIDsKey));
  setExtend(nullptr);
}
