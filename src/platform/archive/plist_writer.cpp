// Writes objects straight into the block, with references as wide as they may have to be; when
// their number is known, `finish` narrows the references and, from one object to the next, tells
// where each begins.

#include "platform/archive/plist_writer.h"

#include <bit>
#include <cstring>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <utility>

#include "platform/utf16.h"
#include "platform/utf8.h"

namespace ov::detail {

namespace {

unsigned bytesFor(std::uint64_t number) {
  return number <= 0xFF ? 1 : number <= 0xFFFF ? 2 : number <= 0xFFFFFFFF ? 4 : 8;
}

/// What an object of ours takes in the block: its bytes, and how many references follow them.
struct Extent {
  std::size_t bytes;
  std::size_t references = 0;  // not counted in the bytes
};

Extent extentOf(const std::byte* object) {
  const auto kind = static_cast<unsigned>(*object) & 0xF0U;
  const auto low = static_cast<unsigned>(*object) & 0x0FU;
  if (kind < plist::kInteger) return {1};
  if (kind < plist::kData) return {1 + (std::size_t{1} << low)};
  if (kind == plist::kUid) return {2 + low};
  std::size_t head = 1;
  std::size_t count = low;
  if (low == plist::kLengthFollows) {
    const unsigned width = 1U << (static_cast<unsigned>(object[1]) & 0x0FU);
    head = 2 + width;
    count = static_cast<std::size_t>(loadBigEndian(object + 2, width));
  }
  switch (kind) {
    case plist::kUtf16:
      return {head + 2 * count};
    case plist::kDictionary:
      return {head, 2 * count};
    case plist::kArray:
    case plist::kSet:
      return {head, count};
    default:
      return {head + count};
  }
}

}  // namespace

PlistWriter::PlistWriter() {
  std::memcpy(body_.extend(plist::kHeader.size()), plist::kHeader.data(), plist::kHeader.size());
}

void PlistWriter::refuseMore() {
  throw std::length_error("OVKeyedArchiver: more objects than can be numbered");
}

void PlistWriter::sizedInteger(std::uint64_t value) {
  const unsigned width = bytesFor(value);
  byte(static_cast<unsigned>(plist::kInteger) | static_cast<unsigned>(std::countr_zero(width)));
  storeBigEndian(body_.extend(width), value, width);
}

PlistWriter::Number PlistWriter::begin(unsigned first) {
  const Number number = begin();
  byte(first);
  return number;
}

PlistWriter::Number PlistWriter::integer(std::int64_t value) {
  const Number number = begin();
  sizedInteger(static_cast<std::uint64_t>(value));
  return number;
}

PlistWriter::Number PlistWriter::unsignedInteger(std::uint64_t value) {
  if (std::in_range<std::int64_t>(value)) return integer(static_cast<std::int64_t>(value));
  const Number number = begin(plist::kInteger | 4U);
  storeAs<std::uint64_t>(body_.extend(8), 0);
  storeAs<std::uint64_t>(body_.extend(8), value);
  return number;
}

PlistWriter::Number PlistWriter::eightBytes(unsigned kind, double value) {
  const Number number = begin(kind | 3U);
  storeAs<std::uint64_t>(body_.extend(8), std::bit_cast<std::uint64_t>(value));
  return number;
}

PlistWriter::Number PlistWriter::data(std::span<const std::byte> bytes) {
  const Number number = begin(plist::kData, bytes.size());
  body_.append(bytes.data(), bytes.size());
  return number;
}

PlistWriter::Number PlistWriter::text(std::string_view text) {
  if (!isAscii(text)) return utf16(Utf16Units(text));
  const Number number = begin(plist::kAscii, text.size());
  body_.append(reinterpret_cast<const std::byte*>(text.data()), text.size());
  return number;
}

PlistWriter::Number PlistWriter::utf16(const Utf16Units& units) {
  const Number number =
      begin(plist::kUtf16, static_cast<std::size_t>(std::ranges::distance(units)));
  for (const char16_t unit : units) storeAs<std::uint16_t>(body_.extend(2), unit);
  return number;
}

/// Rewrites the body in place with references of `width` bytes.
void PlistWriter::narrowReferences(unsigned width) {
  const std::byte* from = body_.data() + plist::kHeader.size();
  std::byte* to = body_.data() + plist::kHeader.size();
  for (Number i = 0; i < count_; ++i) {
    const Extent extent = extentOf(from);
    std::memmove(to, from, extent.bytes);
    from += extent.bytes;
    to += extent.bytes;
    for (std::size_t r = 0; r < extent.references; ++r, from += kWideReference, to += width) {
      storeBigEndian(to, loadAs<std::uint32_t>(from), width);
    }
  }
  body_.truncate(static_cast<std::size_t>(to - body_.data()));
}

void PlistWriter::writeTable(Number top, unsigned referenceSize) {
  const std::uint64_t tableOffset = body_.size();
  const unsigned offsetSize = bytesFor(tableOffset);
  std::byte* place = body_.extend(std::size_t{count_} * offsetSize);
  std::uint64_t offset = plist::kHeader.size();
  for (Number i = 0; i < count_; ++i, place += offsetSize) {
    storeBigEndian(place, offset, offsetSize);
    const Extent extent = extentOf(body_.data() + offset);
    offset += extent.bytes + extent.references * referenceSize;
  }
  std::byte* trailer = body_.extend(plist::kTrailerSize);
  std::memset(trailer, 0, 6);
  trailer[6] = static_cast<std::byte>(offsetSize);
  trailer[7] = static_cast<std::byte>(referenceSize);
  storeAs<std::uint64_t>(trailer + 8, count_);
  storeAs<std::uint64_t>(trailer + 16, top);
  storeAs<std::uint64_t>(trailer + 24, tableOffset);
}

OVRef<OVData> PlistWriter::finish(Number top) {
  const unsigned referenceSize = bytesFor(count_);
  if (referenceSize < kWideReference) narrowReferences(referenceSize);
  writeTable(top, referenceSize);
  const std::size_t size = body_.size();
  const std::shared_ptr<const std::byte> owner = body_.release();
  return OVData::dataWithBytesNoCopy({owner.get(), size}, owner);
}

}  // namespace ov::detail
