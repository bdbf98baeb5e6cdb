#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <span>
#include <utility>

#include <OVAddressBookSDK/data.h>

namespace ov::detail {

/// Bytes that grow at the end. Large buffers grow in place, so that no second copy is ever held.
class ByteBuffer {
 public:
  [[nodiscard]] std::size_t size() const { return size_; }
  [[nodiscard]] std::byte* data() { return bytes_.get(); }
  [[nodiscard]] const std::byte* data() const { return bytes_.get(); }

  void append(const void* bytes, std::size_t count) {
    std::byte* place = extend(count);
    if (count != 0) std::memcpy(place, bytes, count);
  }
  void append(std::uint8_t byte) { *extend(1) = static_cast<std::byte>(byte); }
  /// The low `width` bytes of `number`, most significant first.
  void appendBigEndian(std::uint64_t number, unsigned width) {
    storeBigEndian(extend(width), number, width);
  }
  /// Room for `count` more bytes, to be written by the caller.
  std::byte* extend(std::size_t count) {
    if (count > capacity_ - size_) grow(count);
    std::byte* place = bytes_.get() + size_;
    size_ += count;
    return place;
  }
  void truncate(std::size_t size) { size_ = size; }

  static void storeBigEndian(std::byte* place, std::uint64_t number, unsigned width) {
    for (unsigned i = width; i-- > 0; number >>= 8) place[i] = static_cast<std::byte>(number);
  }

  /// The bytes as a data block; the buffer is empty afterwards.
  OVRef<OVData> release() {
    if (void* fitted = std::realloc(bytes_.get(), size_); fitted != nullptr) adopt(fitted);
    const std::span<const std::byte> all(bytes_.get(), size_);
    size_ = capacity_ = 0;
    return OVData::dataWithBytesNoCopy(all, std::shared_ptr<std::byte>(std::move(bytes_)));
  }

 private:
  struct Free {
    void operator()(std::byte* bytes) const { std::free(bytes); }
  };

  void adopt(void* bytes) {
    static_cast<void>(bytes_.release());
    bytes_.reset(static_cast<std::byte*>(bytes));
  }

  void grow(std::size_t count) {
    const std::size_t wanted = size_ + count + capacity_ / 4 + 4096;
    void* grown = std::realloc(bytes_.get(), wanted);
    if (grown == nullptr) throw std::bad_alloc();
    adopt(grown);
    capacity_ = wanted;
  }

  std::unique_ptr<std::byte, Free> bytes_;
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
};

}  // namespace ov::detail
