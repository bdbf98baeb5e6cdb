#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/archive/plist_writer.h"

namespace ov::detail {

/// Finds objects of a property list again by their bytes, so that equal ones are written once.
///
/// Only for objects without references: their bytes are all they are.
class LeafTable {
 public:
  explicit LeafTable(PlistWriter& writer) : writer_(writer) {}

  /// If an object with the bytes of the one written last was added before, takes the last one back
  /// and returns the earlier one; otherwise adds it and returns it.
  struct Result {
    PlistWriter::Number object;
    bool isNew;
  };
  Result addLast();

 private:
  [[nodiscard]] std::string_view bytesOf(PlistWriter::Number object) const;
  void grow();

  PlistWriter& writer_;
  std::vector<PlistWriter::Number> slots_;  // object + 1, or 0
  std::size_t used_ = 0;
};

}  // namespace ov::detail
