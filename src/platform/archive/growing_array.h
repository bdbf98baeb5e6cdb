#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <span>
#include <type_traits>
#include <utility>

#include "platform/archive/large_memory.h"

namespace ov::detail {

/// A list of plain values that grows at its end. Large ones grow in place, so that no second copy
/// is ever held, and memory beyond the end is not touched.
template <class T>
class GrowingArray {
  static_assert(std::is_trivially_copyable_v<T>);

 public:
  GrowingArray() = default;
  GrowingArray(const GrowingArray&) = delete;
  GrowingArray& operator=(const GrowingArray&) = delete;
  ~GrowingArray() { LargeMemory::free(values_, capacity_ * sizeof(T)); }

  [[nodiscard]] std::size_t size() const { return size_; }
  [[nodiscard]] T* data() { return values_; }
  [[nodiscard]] const T* data() const { return values_; }
  T& operator[](std::size_t index) { return values_[index]; }
  [[nodiscard]] std::span<const T> span() const { return {values_, size_}; }

  void push_back(T value) {
    if (size_ == capacity_) grow(1);
    values_[size_++] = value;
  }
  void append(const T* values, std::size_t count) {
    T* place = extend(count);
    if (count != 0) std::memcpy(place, values, count * sizeof(T));
  }
  /// Room for `count` more values, to be written by the caller.
  T* extend(std::size_t count) {
    if (count > capacity_ - size_) grow(count);
    T* place = values_ + size_;
    size_ += count;
    return place;
  }
  void truncate(std::size_t size) { size_ = size; }

  /// The values, freed with the last reference; the list is empty afterwards.
  std::shared_ptr<const T> release() {
    if (size_ != 0) resize(size_);
    const auto free = [bytes = capacity_ * sizeof(T)](T* values) {
      LargeMemory::free(values, bytes);
    };
    size_ = capacity_ = 0;
    return {std::exchange(values_, nullptr), free};
  }

 private:
  /// False when there is no memory.
  bool resize(std::size_t capacity) {
    void* resized = LargeMemory::resize(values_, capacity_ * sizeof(T), capacity * sizeof(T));
    if (resized == nullptr) return false;
    values_ = static_cast<T*>(resized);
    capacity_ = capacity;
    return true;
  }

  [[gnu::noinline, gnu::cold]] void grow(std::size_t count) {
    const std::size_t wanted = size_ + count + capacity_ / 2 + 64;
    if (wanted > SIZE_MAX / sizeof(T) || !resize(wanted)) throw std::bad_alloc();
  }

  T* values_ = nullptr;
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
};

}  // namespace ov::detail
