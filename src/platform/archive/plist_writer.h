#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include <OVAddressBookSDK/data.h>

#include "platform/archive/byte_buffer.h"

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
  Number dictionary(std::span<const Number> keys, std::span<const Number> values);

  /// Bytes of an object already written.
  [[nodiscard]] std::span<const std::byte> bytesOf(Number object) const;
  [[nodiscard]] Number count() const { return static_cast<Number>(offsets_.size()); }
  /// Takes the object written last back.
  void removeLast();

  /// The finished list; the writer is spent.
  OVRef<OVData> finish(Number top);

 private:
  Number begin();
  void marker(unsigned kind, std::size_t length);
  void references(std::span<const Number> objects);
  void sizedInteger(std::uint64_t value);
  Number eightBytes(unsigned kind, double value);
  void narrowReferences(unsigned width);
  [[nodiscard]] std::uint64_t end(std::size_t object) const;
  void writeTable(Number top, unsigned referenceSize);

  ByteBuffer body_;
  std::vector<std::uint64_t> offsets_;
};

}  // namespace ov::detail
