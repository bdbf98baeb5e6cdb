#pragma once

#include <vector>

#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>

#include "platform/archive/pointer_map.h"

namespace ov::detail {

/// References to objects that may be met again. The objects are known by their addresses, and kept
/// so that no address is used twice.
class MetObjects {
 public:
  using Result = PointerMap::Result;

  MetObjects() = default;
  MetObjects(const MetObjects&) = delete;
  MetObjects& operator=(const MetObjects&) = delete;
  ~MetObjects() {
    for (const TextObject* text : texts_) text->release();
  }

  /// Valid until the next call. Where the object is new its reference is to be put there.
  Result at(const OVRef<OVObject>& object) {
    const Result met = byAddress_.at(object.get());
    if (met.isNew) objects_.push_back(object);
    return met;
  }
  Result at(const TextObject& text) {
    const Result met = byAddress_.at(&text);
    if (met.isNew) {
      texts_.push_back(&text);
      text.retain();
    }
    return met;
  }

 private:
  PointerMap byAddress_;
  std::vector<OVRef<OVObject>> objects_;
  std::vector<const TextObject*> texts_;
};

}  // namespace ov::detail
