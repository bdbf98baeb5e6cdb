#include <OVAddressBookSDK/group_general.h>

#include <string_view>
#include <utility>

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
  title_.load().encode(coder, kTitleKey);
  if (auto list = subArray_.load()) coder.encodeObjectForKey(std::move(list), kSubGroupsKey);
  if (auto list = persons_.load()) coder.encodeObjectForKey(std::move(list), kPersonIDsKey);
}

void OVGroupGeneral::initWithCoder(OVKeyedUnarchiver& coder) {
  title_.place(ov::detail::TextField::decoded(coder, kTitleKey));
  subArray_.place(coder.decodeObjectForKey(kSubGroupsKey));
  persons_.place(coder.decodeObjectForKey(kPersonIDsKey));
  extend_.place(nullptr);
}
