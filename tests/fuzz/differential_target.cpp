// Python's plistlib reads the same values as we do in every property list that we accept, and in
// what we write of every archive that we accept.

#include <cstdint>
#include <optional>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "fuzz/finding.h"
#include "fuzz/plistlib_peer.h"
#include "fuzz/reachable.h"
#include "support/archive/plist_text.h"
#include "support/memory/leaks_tolerated.h"

namespace {

/// Our description of the values in a block; nothing when it is refused.
std::optional<std::string> described(const OVRef<OVData>& block) {
  try {
    return plistText(block);
  } catch (const OVInvalidArchive&) {
    return std::nullopt;
  }
}

void compare(const OVRef<OVData>& block) {
  static PlistlibPeer peer;
  const auto ours = described(block);
  if (!ours) return;
  const std::string difference = peer.difference(block->bytes(), *ours);
  if (!difference.empty()) finding(difference);
}

/// The archive of what the block holds; null when it is refused.
OVRef<OVData> rewritten(const OVRef<OVData>& block) {
  const LeaksTolerated tolerated;
  try {
    const auto root = OVKeyedUnarchiver::unarchiveObjectWithData(block);
    auto written = OVKeyedArchiver::archivedDataWithRootObject(root);
    release(reachable(root));
    return written;
  } catch (const OVInvalidArchive&) {
    return nullptr;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto block = OVData::dataWithBytes(std::as_bytes(std::span(data, size)));
  compare(block);
  if (const auto written = rewritten(block)) compare(written);
  return 0;
}
