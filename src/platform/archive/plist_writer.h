#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include <OVAddressBookSDK/data.h>

#include "platform/archive/big_endian.h"
#include "platform/archive/growing_array.h"
#include "platform/archive/plist_format.h"

namespace ov::detail {

/// Writes a binary property list, object by object, straight into the block.
///
/// Each call appends one object and returns its number, by which containers written later refer to
/// it. References take the fewest bytes that the finished list allows.
class PlistWriter {
 public:
  using Number = std::uint32_t;

  PlistWriter();

  Number null();
  Number boolean(bool value);
  Number integer(std::int64_t value);
  Number unsignedInteger(std::uint64_t value);
  Number real(double value);
  /// Seconds since 2001-01-01 00:00:00 UTC.
  Number date(double seconds);
  Number data(std::span<const std::byte> bytes);
  /// Well-formed UTF-8.
  Number text(std::string_view text);
  Number uid(std::uint32_t value);
  Number array(std::span<const Number> elements);
  Number set(std::span<const Number> elements);
  struct Entry {
    Number key;
    Number value;
  };
  Number dictionary(std::span<const Entry> entries);

  /// Bytes of an object already written.
  [[nodiscard]] std::span<const std::byte> bytesOf(Number object) const;
  [[nodiscard]] Number count() const { return static_cast<Number>(offsets_.size()); }
  /// Takes the object written last back.
  void removeLast();

  /// The finished list; the writer is spent.
  OVRef<OVData> finish(Number top);

 private:
  /// Containers are written with references of this size and narrowed at the end.
  static constexpr unsigned kWideReference = 4;

  Number begin();
  [[gnu::cold]] void raiseOffsets();
  void byte(unsigned value) { body_.push_back(static_cast<std::byte>(value)); }
  void marker(unsigned kind, std::size_t length);
  void longMarker(unsigned kind, std::size_t length);
  void references(std::span<const Number> objects);
  void sizedInteger(std::uint64_t value);
  Number eightBytes(unsigned kind, double value);
  Number utf16(std::string_view text);
  [[nodiscard]] std::uint64_t offset(std::size_t object) const;
  [[nodiscard]] std::uint64_t end(std::size_t object) const;
  void narrowReferences(unsigned width);
  static std::byte* narrowObject(const std::byte* from, std::size_t length, std::byte* to,
                                 unsigned width);
  void writeTable(Number top, unsigned referenceSize);

  GrowingArray<std::byte> body_;
  // Offsets rise with the numbers: of each the low half is kept, and the objects at which the
  // high half rises.
  GrowingArray<std::uint32_t> offsets_;
  std::vector<Number> rises_;
  // The body's size at which an offset's high half may rise, or numbers may have run out.
  std::uint64_t checkAt_ = 1ULL << 32;
};

inline PlistWriter::Number PlistWriter::begin() {
  if (body_.size() >= checkAt_) raiseOffsets();
  offsets_.push_back(static_cast<std::uint32_t>(body_.size()));
  return static_cast<Number>(offsets_.size() - 1);
}

inline void PlistWriter::marker(unsigned kind, std::size_t length) {
  if (length < plist::kLengthFollows) {
    byte(kind | static_cast<unsigned>(length));
    return;
  }
  longMarker(kind, length);
}

inline void PlistWriter::references(std::span<const Number> objects) {
  std::byte* place = body_.extend(objects.size() * kWideReference);
  for (std::size_t i = 0; i < objects.size(); ++i) {
    storeAs<std::uint32_t>(place + i * kWideReference, objects[i]);
  }
}

inline PlistWriter::Number PlistWriter::uid(std::uint32_t value) {
  const Number number = begin();
  if (value > 0xFFFF) {
    std::byte* place = body_.extend(5);
    *place = static_cast<std::byte>(plist::kUid | 3);
    storeAs<std::uint32_t>(place + 1, value);
  } else if (value > 0xFF) {
    std::byte* place = body_.extend(3);
    *place = static_cast<std::byte>(plist::kUid | 1);
    storeAs<std::uint16_t>(place + 1, value);
  } else {
    std::byte* place = body_.extend(2);
    *place = static_cast<std::byte>(plist::kUid);
    place[1] = static_cast<std::byte>(value);
  }
  return number;
}

inline PlistWriter::Number PlistWriter::array(std::span<const Number> elements) {
  const Number number = begin();
  marker(plist::kArray, elements.size());
  references(elements);
  return number;
}

inline PlistWriter::Number PlistWriter::dictionary(std::span<const Entry> entries) {
  const Number number = begin();
  marker(plist::kDictionary, entries.size());
  std::byte* keys = body_.extend(2 * entries.size() * kWideReference);
  std::byte* values = keys + entries.size() * kWideReference;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    storeAs<std::uint32_t>(keys + i * kWideReference, entries[i].key);
    storeAs<std::uint32_t>(values + i * kWideReference, entries[i].value);
  }
  return number;
}

inline std::uint64_t PlistWriter::offset(std::size_t object) const {
  std::uint64_t offset = offsets_[object];
  for (const Number rise : rises_) offset += object >= rise ? 1ULL << 32 : 0;
  return offset;
}

inline std::uint64_t PlistWriter::end(std::size_t object) const {
  return object + 1 < offsets_.size() ? offset(object + 1) : body_.size();
}

inline std::span<const std::byte> PlistWriter::bytesOf(Number object) const {
  return {body_.data() + offset(object), body_.data() + end(object)};
}

inline void PlistWriter::removeLast() {
  body_.truncate(static_cast<std::size_t>(offset(offsets_.size() - 1)));
  offsets_.pop_back();
  if (rises_.empty() || rises_.back() != offsets_.size()) return;
  rises_.pop_back();
  checkAt_ = 0;
}

}  // namespace ov::detail
