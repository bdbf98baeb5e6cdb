#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/archive/growing_array.h"

namespace ov::detail {

/// The lengths of a list's objects, one after the other: what its offsets follow from. Most take a
/// byte, where an offset takes four.
class ObjectLengths {
 public:
  /// No object is empty.
  void push_back(std::uint64_t length) {
    if (length <= UINT8_MAX) {
      bytes_.push_back(static_cast<std::uint8_t>(length));
    } else {
      bytes_.push_back(kLong);
      bytes_.append(reinterpret_cast<const std::uint8_t*>(&length), sizeof length);
    }
  }

  /// Takes the lengths in their order.
  class Walk {
   public:
    explicit Walk(const ObjectLengths& lengths) : at_(lengths.bytes_.data()) {}
    std::uint64_t next() {
      if (*at_ != kLong) return *at_++;
      std::uint64_t length = 0;
      std::memcpy(&length, at_ + 1, sizeof length);
      at_ += 1 + sizeof length;
      return length;
    }

   private:
    const std::uint8_t* at_;
  };

 private:
  static constexpr std::uint8_t kLong = 0;

  GrowingArray<std::uint8_t> bytes_;
};

}  // namespace ov::detail
