#pragma once

#include <memory>

#include <OVAddressBookVCard/vcard_group.h>

#include "memory/group.h"

namespace ov::vcard {

/// The way from groups to what programs see of them, and back.
struct GroupObjects {
  [[nodiscard]] static OVRef<IOVGroup> make(std::shared_ptr<ov::card::Group> record);
  [[nodiscard]] static const std::shared_ptr<ov::card::Group>& recordOf(const OVVCardGroup& group);
};

}  // namespace ov::vcard
