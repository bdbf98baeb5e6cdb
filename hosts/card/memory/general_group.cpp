#include "general_group.h"

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>

namespace ov::card {

namespace {

constexpr std::string_view kCardKey = "card";

}  // namespace

OVRef<GeneralGroup> GeneralGroup::make(OVString oddLines) {
  OVRef<GeneralGroup> group(new GeneralGroup);
  group->oddLines_ = std::move(oddLines);
  return group;
}

const OVClass& GeneralGroup::archivedClass() {
  static const OVClass record{"OVCardGroup", &OVGroupGeneral::archivedClass(),
                              []() -> OVRef<OVObject> { return make(nullptr); },
                              &OVGroupGeneral::archivedClass(), true};
  return record;
}

void GeneralGroup::registerClass() { OVKeyedUnarchiver::registerClass(archivedClass()); }

const OVClass* GeneralGroup::classForCoder() const { return &archivedClass(); }

void GeneralGroup::encodeWithCoder(OVKeyedArchiver& coder) const {
  OVGroupGeneral::encodeWithCoder(coder);
  if (!oddLines_.isNull()) coder.encodeObjectForKey(oddLines_, kCardKey);
}

void GeneralGroup::initWithCoder(OVKeyedUnarchiver& coder) {
  OVGroupGeneral::initWithCoder(coder);
  oddLines_ = coder.decodeStringForKey(kCardKey);
}

}  // namespace ov::card
