#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <memory_resource>
#include <span>
#include <string_view>
#include <vector>

#include "ascii.h"

namespace ov::card {

/// Memory of one card, freed as a whole. Pieces do not grow, so little is wasted.
class Arena final : public std::pmr::memory_resource {
 public:
  /// Never null.
  [[nodiscard]] std::string_view copy(std::string_view text) {
    if (text.empty()) return "";
    auto* const place = static_cast<char*>(allocate(text.size(), 1));
    std::copy(text.begin(), text.end(), place);
    return {place, text.size()};
  }

  template <class T>
  [[nodiscard]] std::span<const T> copy(std::span<const T> items) {
    if (items.empty()) return {};
    auto* const place = static_cast<T*>(allocate(items.size_bytes(), alignof(T)));
    std::uninitialized_copy(items.begin(), items.end(), place);
    return {place, items.size()};
  }

  /// The text itself where it is in upper case already.
  [[nodiscard]] std::string_view upper(std::string_view text) {
    if (std::none_of(text.begin(), text.end(), [](char c) { return upperASCII(c) != c; })) {
      return text;
    }
    auto* const place = static_cast<char*>(allocate(text.size(), 1));
    std::transform(text.begin(), text.end(), place, [](char c) { return upperASCII(c); });
    return {place, text.size()};
  }

  void release() {
    pieces_.clear();
    free_ = first_.data();
    left_ = first_.size();
  }

 private:
  static constexpr std::size_t kPiece = 32768;
  static constexpr std::size_t kLarge = kPiece / 8;  // gets a piece of its own

  void* do_allocate(std::size_t size, std::size_t alignment) override {
    if (std::align(alignment, size, free_, left_) == nullptr) {
      const std::size_t room = size + alignment;
      if (room > kLarge) return inNewPiece(room, alignment, size);
      free_ = newPiece(kPiece);
      left_ = kPiece;
      std::align(alignment, size, free_, left_);
    }
    void* const place = free_;
    free_ = static_cast<std::byte*>(free_) + size;
    left_ -= size;
    return place;
  }
  void do_deallocate(void* /*place*/, std::size_t /*size*/, std::size_t /*alignment*/) override {}
  [[nodiscard]] bool do_is_equal(const memory_resource& other) const noexcept override {
    return this == &other;
  }

  void* inNewPiece(std::size_t room, std::size_t alignment, std::size_t size) {
    void* place = newPiece(room);
    return std::align(alignment, size, place, room);
  }
  std::byte* newPiece(std::size_t size) {
    return pieces_.emplace_back(std::make_unique_for_overwrite<std::byte[]>(size)).get();
  }

  std::array<std::byte, 16384> first_;
  std::vector<std::unique_ptr<std::byte[]>> pieces_;
  void* free_ = first_.data();
  std::size_t left_ = first_.size();
};

}  // namespace ov::card
