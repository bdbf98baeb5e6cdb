#pragma once

#include <cstddef>
#include <cstdint>

#include <OVAddressBookSDK/keyed_unarchiver.h>

namespace ov::detail {

/// What reading a block may take: so much memory for each of its bytes, and a little more. Our own
/// blocks ask for about a tenth of it. Work is charged as well, so that time is bounded where the
/// objects of a malicious block overlap.
class ReadingBudget {
 public:
  explicit ReadingBudget(std::size_t blockBytes)
      : left_(std::uint64_t{blockBytes} * kMemoryPerByte + kMemoryForFree) {}

  /// Throws `OVInvalidArchive` where that is more than is left.
  void charge(std::uint64_t bytes) {
    if (bytes > left_) refuse();
    left_ -= bytes;
  }

 private:
  static constexpr std::uint64_t kMemoryPerByte = 40;
  static constexpr std::uint64_t kMemoryForFree = 1 << 18;

  [[noreturn, gnu::cold]] static void refuse() {
    throw OVInvalidArchive("the block would take far more memory than its size allows");
  }

  std::uint64_t left_;
};

}  // namespace ov::detail
