#pragma once

#include <memory>
#include <stdexcept>
#include <string>

#include <OVAddressBookSDK/object.h>

namespace ov::detail {

/// The reference that owns an object which is to be archived. Throws `std::logic_error` where there
/// is none.
template <class T>
OVRef<T> owned(const T& object, const char* className) {
  if (auto owner = object.weak_from_this().lock()) return std::const_pointer_cast<T>(owner);
  throw std::logic_error(std::string(className) +
                         ": only an object that an OVRef owns can be saved: make it with init() or "
                         "std::make_shared");
}

}  // namespace ov::detail
