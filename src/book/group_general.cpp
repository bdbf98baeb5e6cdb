#include <OVAddressBookSDK/group_general.h>

#include <string_view>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "platform/dispose.h"
#include "platform/maker.h"

namespace {

constexpr std::string_view kTitleKey = "title";
constexpr std::string_view kSubGroupsKey = "subArray";
constexpr std::string_view kPersonsKey = "persons";

}  // namespace

OVRef<OVGroupGeneral> OVGroupGeneral::init() { return ov::detail::Maker::make<OVGroupGeneral>(); }

OVGroupGeneral::~OVGroupGeneral() {
  for (OVAtomic<OVRef<OVObject>>* each : {&subArray_, &persons_, &extend_}) {
    ov::detail::dispose(each->take());
  }
}

const OVClass& OVGroupGeneral::archivedClass() {
  static constexpr OVClass record{"OVGroupGeneral", nullptr,
                                  &ov::detail::Maker::empty<OVGroupGeneral>};
  return record;
}

const OVClass* OVGroupGeneral::classForCoder() const { return &archivedClass(); }

void OVGroupGeneral::encodeWithCoder(OVKeyedArchiver& coder) const {
  title_.peek().encode(coder, kTitleKey);
  if (subArray_.peek() != nullptr) coder.encodeObjectForKey(subArray_.peek(), kSubGroupsKey);
  if (persons_.peek() != nullptr) coder.encodeObjectForKey(persons_.peek(), kPersonsKey);
}

void OVGroupGeneral::initWithCoder(OVKeyedUnarchiver& coder) {
  title_.place(ov::detail::TextField::decoded(coder, kTitleKey));
  subArray_.place(coder.decodeObjectForKey(kSubGroupsKey));
  persons_.place(coder.decodeObjectForKey(kPersonsKey));
  extend_.place(nullptr);
}
