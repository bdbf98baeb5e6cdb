#pragma once

#include <string>

#include <OVAddressBookSDK/keyed_unarchiver.h>

/// Why the archive cannot be read, or "accepted".
inline std::string refusal(const OVRef<OVData>& archive) {
  try {
    static_cast<void>(OVKeyedUnarchiver::unarchiveObjectWithData(archive));
    return "accepted";
  } catch (const OVInvalidArchive& error) {
    return error.what();
  }
}
