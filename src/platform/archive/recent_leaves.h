#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/archive/plist_writer.h"

namespace ov::detail {

/// Finds objects of a property list again by their bytes, among those written lately: few enough
/// for the processor's caches, so that it costs next to nothing to learn that there is none.
///
/// Only for objects without references: their bytes are all they are. What is found depends on
/// nothing but what was written before, so that a graph gives the same bytes everywhere.
class RecentLeaves {
 public:
  explicit RecentLeaves(PlistWriter& writer) : writer_(writer), sets_(kMinSets) {}

  struct Result {
    PlistWriter::Number object;
    bool isNew;
  };
  /// If an object with the bytes of the one written last is known, removes the last one and returns
  /// the earlier one; otherwise knows it from now on.
  Result add(PlistWriter::Number last);

 private:
  struct Leaf {
    std::uint32_t hash = 0;  // 0: none
    PlistWriter::Number object = 0;
    std::uint64_t offset = 0;
  };
  /// The latest first.
  using Set = std::array<Leaf, 4>;

  static constexpr std::size_t kMinSets = 1 << 6;
  static constexpr std::size_t kMaxSets = 1 << 12;

  [[nodiscard]] Set& setOf(std::uint32_t hash);
  static void put(Set& set, Leaf leaf);
  void grow();

  PlistWriter& writer_;
  std::vector<Set> sets_;
  std::size_t added_ = 0;
};

}  // namespace ov::detail
