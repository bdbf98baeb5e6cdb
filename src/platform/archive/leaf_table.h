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
  using Hash = std::uint32_t;

  explicit LeafTable(PlistWriter& writer) : writer_(writer) {}

  struct Result {
    PlistWriter::Number object;
    bool isNew;
  };
  /// If an object with the bytes of the one written last was added before, takes the last one back
  /// and returns the earlier one; otherwise adds it and returns it.
  Result addLast();
  /// The same, under a hash that equal objects have in common.
  Result addLast(Hash hash);

  [[nodiscard]] Hash hashOf(std::string_view bytes) const;

  /// The steps of a look-up, for a caller who takes each for several objects at once, so that the
  /// waits for memory overlap. Only hints: `addLast` looks again.
  void touchTag(Hash hash) const;
  void touchSlot(Hash hash) const;
  void touchOffset(Hash hash) const;
  void touchBytes(Hash hash) const;

  [[nodiscard]] std::size_t size() const { return used_; }
  /// Forgets everything and frees the memory.
  void reset();

 private:
  struct Slot {
    Hash hash;
    PlistWriter::Number object;
  };

  [[nodiscard]] std::size_t firstSlot(Hash hash) const;
  [[nodiscard]] std::size_t nextSlot(std::size_t slot) const;
  template <class Matches>
  [[nodiscard]] std::size_t find(Hash hash, Matches matches) const;
  void grow();

  PlistWriter& writer_;
  // A byte of each slot's hash stands apart, and is 0 where the slot is free: most of what is
  // looked up is new, and these bytes tell so out of a part of the memory.
  GrowingArray<std::uint8_t> tags_;
  GrowingArray<Slot> slots_;
  std::size_t used_ = 0;
};

}  // namespace ov::detail
