#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>

#include <OVAddressBookSDK/data.h>

#include "platform/archive/big_endian.h"
#include "platform/archive/growing_array.h"
#include "platform/archive/plist_format.h"

namespace ov::detail {

class Utf16Units;

/// Writes a binary property list, object by object, straight into the block.
///
/// Each call appends one object and returns its number, by which containers written later refer to
/// it. References take the fewest bytes that the finished list allows.
class PlistWriter {
 public:
  using Number = std::uint32_t;

  PlistWriter();

  Number null() { return begin(plist::kNull); }
  Number boolean(bool value) { return begin(value ? plist::kTrue : plist::kFalse); }
  Number integer(std::int64_t value);
  Number unsignedInteger(std::uint64_t value);
  Number real(double value) { return eightBytes(plist::kReal, value); }
  /// Seconds since 2001-01-01 00:00:00 UTC.
  Number date(double seconds) { return eightBytes(plist::kDate, seconds); }
  Number data(std::span<const std::byte> bytes);
  /// Well-formed UTF-8.
  Number text(std::string_view text);
  Number uid(std::uint32_t value);
  Number array(std::span<const Number> elements) { return references(plist::kArray, elements); }
  Number set(std::span<const Number> elements) { return references(plist::kSet, elements); }
  struct Entry {
    Number key;
    Number value;
  };
  Number dictionary(std::span<const Entry> entries);

  [[nodiscard]] Number count() const { return count_; }
  /// The object written last; where it begins stays the same while the list is written.
  [[nodiscard]] std::uint64_t lastOffset() const { return last_; }
  [[nodiscard]] std::span<const std::byte> lastBytes() const {
    return {body_.data() + last_, body_.data() + body_.size()};
  }
  /// Whether an object that begins at `offset` has the bytes of the one written last.
  [[nodiscard]] bool isLike(std::uint64_t offset) const {
    // Its first bytes give its length: it is as long if they are the same.
    const std::span<const std::byte> bytes = lastBytes();
    return std::memcmp(body_.data() + offset, bytes.data(), bytes.size()) == 0;
  }
  /// Removes the object written last; there is none until the next.
  void removeLast() {
    body_.truncate(static_cast<std::size_t>(last_));
    --count_;
  }

  /// The finished list; the writer is spent.
  OVRef<OVData> finish(Number top);

 private:
  /// Containers are written with references of this size and narrowed at the end.
  static constexpr unsigned kWideReference = 4;
  static constexpr Number kMaxObjects = 0xFFFFFFFE;

  /// Begin an object: with nothing, with its first byte, with its kind and length.
  Number begin() {
    if (count_ == kMaxObjects) refuseMore();
    last_ = body_.size();
    return count_++;
  }
  Number begin(unsigned first);
  Number begin(unsigned kind, std::size_t length);
  [[noreturn, gnu::cold]] static void refuseMore();
  void byte(unsigned value) { body_.push_back(static_cast<std::byte>(value)); }
  Number references(unsigned kind, std::span<const Number> objects);
  void sizedInteger(std::uint64_t value);
  Number eightBytes(unsigned kind, double value);
  Number utf16(const Utf16Units& units);
  void narrowReferences(unsigned width);
  void writeTable(Number top, unsigned referenceSize);

  GrowingArray<std::byte> body_;
  std::uint64_t last_ = 0;  // where the object written last begins
  Number count_ = 0;
};

inline PlistWriter::Number PlistWriter::begin(unsigned kind, std::size_t length) {
  const Number number = begin();
  if (length < plist::kLengthFollows) {
    byte(kind | static_cast<unsigned>(length));
  } else {
    byte(kind | plist::kLengthFollows);
    sizedInteger(length);
  }
  return number;
}

inline PlistWriter::Number PlistWriter::references(unsigned kind, std::span<const Number> objects) {
  const Number number = begin(kind, objects.size());
  std::byte* place = body_.extend(objects.size() * kWideReference);
  for (std::size_t i = 0; i < objects.size(); ++i) {
    storeAs<std::uint32_t>(place + i * kWideReference, objects[i]);
  }
  return number;
}

inline PlistWriter::Number PlistWriter::uid(std::uint32_t value) {
  const Number number = begin();
  const unsigned width = value > 0xFFFF ? 4 : value > 0xFF ? 2 : 1;
  std::byte* place = body_.extend(1 + width);
  *place = static_cast<std::byte>(plist::kUid | (width - 1));
  storeBigEndian(place + 1, value, width);
  return number;
}

inline PlistWriter::Number PlistWriter::dictionary(std::span<const Entry> entries) {
  const Number number = begin(plist::kDictionary, entries.size());
  std::byte* keys = body_.extend(2 * entries.size() * kWideReference);
  std::byte* values = keys + entries.size() * kWideReference;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    storeAs<std::uint32_t>(keys + i * kWideReference, entries[i].key);
    storeAs<std::uint32_t>(values + i * kWideReference, entries[i].value);
  }
  return number;
}

}  // namespace ov::detail
