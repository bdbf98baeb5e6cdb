#include "platform/archive/leaf_table.h"

#include <functional>

namespace ov::detail {

std::string_view LeafTable::bytesOf(PlistWriter::Number object) const {
  const auto bytes = writer_.bytesOf(object);
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

LeafTable::Result LeafTable::addLast() {
  if (used_ * 4 >= slots_.size() * 3) grow();
  const PlistWriter::Number last = writer_.count() - 1;
  const std::string_view bytes = bytesOf(last);
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = std::hash<std::string_view>()(bytes) & mask;
  for (; slots_[slot] != 0; slot = (slot + 1) & mask) {
    const PlistWriter::Number earlier = slots_[slot] - 1;
    if (bytesOf(earlier) == bytes) {
      writer_.removeLast();
      return {earlier, false};
    }
  }
  slots_[slot] = last + 1;
  ++used_;
  return {last, true};
}

void LeafTable::grow() {
  std::vector<PlistWriter::Number> old(slots_.empty() ? 256 : slots_.size() * 2);
  old.swap(slots_);
  const std::size_t mask = slots_.size() - 1;
  for (const PlistWriter::Number entry : old) {
    if (entry == 0) continue;
    std::size_t slot = std::hash<std::string_view>()(bytesOf(entry - 1)) & mask;
    while (slots_[slot] != 0) slot = (slot + 1) & mask;
    slots_[slot] = entry;
  }
}

}  // namespace ov::detail
