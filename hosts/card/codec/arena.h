#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <memory_resource>
#include <span>
#include <string_view>

#include "ascii.h"

namespace ov::card {

/// Memory of one card, given back as a whole.
class Arena {
 public:
  [[nodiscard]] std::string_view copy(std::string_view text) {
    if (text.empty()) return {};
    auto* const place = static_cast<char*>(memory_.allocate(text.size(), 1));
    std::copy(text.begin(), text.end(), place);
    return {place, text.size()};
  }

  template <class T>
  [[nodiscard]] std::span<const T> copy(std::span<const T> items) {
    if (items.empty()) return {};
    auto* const place = static_cast<T*>(memory_.allocate(items.size_bytes(), alignof(T)));
    std::uninitialized_copy(items.begin(), items.end(), place);
    return {place, items.size()};
  }

  /// The text itself where it is in upper case already.
  [[nodiscard]] std::string_view upper(std::string_view text) {
    if (std::none_of(text.begin(), text.end(), [](char c) { return upperASCII(c) != c; })) {
      return text;
    }
    auto* const place = static_cast<char*>(memory_.allocate(text.size(), 1));
    std::transform(text.begin(), text.end(), place, [](char c) { return upperASCII(c); });
    return {place, text.size()};
  }

  [[nodiscard]] std::pmr::memory_resource* resource() { return &memory_; }
  void release() { memory_.release(); }

 private:
  std::array<std::byte, 16384> first_;
  std::pmr::monotonic_buffer_resource memory_{first_.data(), first_.size()};
};

}  // namespace ov::card
