#pragma once

#include <memory>

#include <OVAddressBookEDS/eds_group.h>

#include "memory/group.h"

namespace ov::eds {

/// The way from groups to what programs see of them, and back.
struct GroupObjects {
  [[nodiscard]] static OVRef<IOVGroup> make(std::shared_ptr<ov::card::Group> record);
  [[nodiscard]] static const std::shared_ptr<ov::card::Group>& recordOf(const OVEDSGroup& group);
};

}  // namespace ov::eds
