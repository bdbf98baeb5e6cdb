#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <span>
#include <type_traits>

namespace ov::detail {

/// A list of plain values that grows at its end. A large one grows in place, so that no second copy
/// is ever held, and memory beyond the end is not touched.
template <class T>
class GrowingArray {
  static_assert(std::is_trivially_copyable_v<T>);

 public:
  [[nodiscard]] std::size_t size() const { return size_; }
  [[nodiscard]] T* data() { return values_.get(); }
  [[nodiscard]] const T* data() const { return values_.get(); }
  T& operator[](std::size_t index) { return values_[index]; }
  [[nodiscard]] std::span<const T> span() const { return {data(), size_}; }

  void push_back(T value) { *extend(1) = value; }
  void append(const T* values, std::size_t count) {
    T* place = extend(count);
    if (count != 0) std::memcpy(place, values, count * sizeof(T));
  }
  /// Room for `count` more values, to be written by the caller.
  T* extend(std::size_t count) {
    if (count > capacity_ - size_) grow(count);
    T* place = data() + size_;
    size_ += count;
    return place;
  }
  void truncate(std::size_t size) { size_ = size; }

  /// The values, freed with the last reference; the list is empty afterwards.
  std::shared_ptr<const T> release() {
    if (size_ != 0) resize(size_);
    size_ = capacity_ = 0;
    return {values_.release(), &std::free};
  }
  /// Frees the memory as well.
  void reset() { *this = GrowingArray(); }

 private:
  struct Free {
    void operator()(T* values) const { std::free(values); }
  };

  /// False when there is no memory.
  bool resize(std::size_t capacity) {
    // The heap moves large pieces without copying them.
    void* resized = std::realloc(values_.get(), capacity * sizeof(T));
    if (resized == nullptr) return false;
    static_cast<void>(values_.release());
    values_.reset(static_cast<T*>(resized));
    capacity_ = capacity;
    return true;
  }

  [[gnu::noinline, gnu::cold]] void grow(std::size_t count) {
    const std::size_t wanted = size_ + count + capacity_ / 2 + 64;
    if (wanted > SIZE_MAX / sizeof(T) || !resize(wanted)) throw std::bad_alloc();
  }

  std::unique_ptr<T[], Free> values_;
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
};

}  // namespace ov::detail
