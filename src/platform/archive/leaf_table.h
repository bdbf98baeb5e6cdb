#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/archive/growing_array.h"
#include "platform/archive/plist_writer.h"

namespace ov::detail {

/// Finds objects of a property list again by their bytes, so that equal ones are written once.
///
/// Only for objects without references: their bytes are all they are.
class LeafTable {
 public:
  explicit LeafTable(PlistWriter& writer) : writer_(writer) {}

  struct Result {
    PlistWriter::Number object;
    bool isNew;
  };
  /// If an object with the bytes of the one written last was added before, takes the last one back
  /// and returns the earlier one; otherwise adds it and returns it.
  Result addLast();
  /// Forgets everything and frees the memory.
  void reset() { slots_.reset(); }

 private:
  struct Slot {
    std::uint32_t hash;
    PlistWriter::Number next;  // object + 1, or 0
  };

  [[nodiscard]] std::size_t firstSlot(std::uint32_t hash) const;
  [[nodiscard]] std::size_t nextSlot(std::size_t slot) const;
  void grow();

  PlistWriter& writer_;
  GrowingArray<Slot> slots_;
  std::size_t used_ = 0;
};

}  // namespace ov::detail
