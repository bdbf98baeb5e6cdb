#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
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
  [[nodiscard]] std::size_t size() const { return size_; }
  [[nodiscard]] bool empty() const { return size_ == 0; }
  [[nodiscard]] T* data() { return values_.get(); }
  [[nodiscard]] const T* data() const { return values_.get(); }
  T& operator[](std::size_t index) { return values_.get()[index]; }
  const T& operator[](std::size_t index) const { return values_.get()[index]; }
  [[nodiscard]] const T& back() const { return values_.get()[size_ - 1]; }
  [[nodiscard]] std::span<const T> span() const { return {values_.get(), size_}; }
  /// The values from position `first` on.
  [[nodiscard]] std::span<const T> from(std::size_t first) const { return span().subspan(first); }

  void push_back(T value) {
    if (size_ == capacity_) grow(1);
    values_.get()[size_++] = value;
  }
  void pop_back() { --size_; }
  void append(const T* values, std::size_t count) {
    T* place = extend(count);
    if (count != 0) std::memcpy(place, values, count * sizeof(T));
  }
  /// Room for `count` more values, to be written by the caller.
  T* extend(std::size_t count) {
    if (count > capacity_ - size_) grow(count);
    T* place = values_.get() + size_;
    size_ += count;
    return place;
  }
  void truncate(std::size_t size) { size_ = size; }
  void clear() { size_ = 0; }

  /// The values, in memory to be freed with `std::free`; the list is empty afterwards.
  std::unique_ptr<T, void (*)(void*)> release() {
    if (void* fitted = std::realloc(values_.get(), size_ * sizeof(T)); fitted != nullptr) {
      adopt(fitted);
    }
    size_ = capacity_ = 0;
    return {values_.release(), &std::free};
  }
  /// Frees the memory as well.
  void reset() { *this = GrowingArray(); }

  GrowingArray() = default;
  GrowingArray(GrowingArray&& other) noexcept
      : values_(std::move(other.values_)),
        size_(std::exchange(other.size_, 0)),
        capacity_(std::exchange(other.capacity_, 0)) {}
  GrowingArray& operator=(GrowingArray&& other) noexcept {
    values_ = std::move(other.values_);
    size_ = std::exchange(other.size_, 0);
    capacity_ = std::exchange(other.capacity_, 0);
    return *this;
  }
  ~GrowingArray() = default;

 private:
  struct Free {
    void operator()(T* values) const { std::free(values); }
  };

  void adopt(void* values) {
    static_cast<void>(values_.release());
    values_.reset(static_cast<T*>(values));
  }

  [[gnu::noinline, gnu::cold]] void grow(std::size_t count) {
    const std::size_t wanted = size_ + count + capacity_ / 2 + 64;
    void* grown =
        wanted > SIZE_MAX / sizeof(T) ? nullptr : std::realloc(values_.get(), wanted * sizeof(T));
    if (grown == nullptr) throw std::bad_alloc();
    adopt(grown);
    capacity_ = wanted;
    adviseLarge(grown, wanted * sizeof(T));
  }

  std::unique_ptr<T, Free> values_;
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
};

}  // namespace ov::detail
