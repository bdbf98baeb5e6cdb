#include "platform/archive/plist_writer.h"

#include <bit>
#include <cstring>
#include <limits>
#include <stdexcept>

#include "platform/archive/plist_format.h"
#include "platform/utf8.h"

namespace ov::detail {

namespace {

/// Containers are written with references of this size and narrowed at the end.
constexpr unsigned kWideReference = 4;

unsigned bytesFor(std::uint64_t number) {
  return number <= 0xFF ? 1 : number <= 0xFFFF ? 2 : number <= 0xFFFFFFFF ? 4 : 8;
}

bool isContainer(unsigned marker) { return (marker & 0xF0U) >= plist::kArray; }

}  // namespace

PlistWriter::PlistWriter() { body_.append(plist::kHeader.data(), plist::kHeader.size()); }

PlistWriter::Number PlistWriter::begin() {
  // One number stays free, so that every count of objects fits into a reference.
  if (offsets_.size() >= std::numeric_limits<Number>::max() - 1) {
    throw std::length_error("OVKeyedArchiver: more than 4294967294 objects");
  }
  offsets_.push_back(body_.size());
  return static_cast<Number>(offsets_.size() - 1);
}

void PlistWriter::removeLast() {
  body_.truncate(static_cast<std::size_t>(offsets_.back()));
  offsets_.pop_back();
}

void PlistWriter::sizedInteger(std::uint64_t value) {
  const unsigned width = bytesFor(value);
  body_.append(static_cast<std::uint8_t>(plist::kInteger | std::countr_zero(width)));
  body_.appendBigEndian(value, width);
}

void PlistWriter::marker(unsigned kind, std::size_t length) {
  if (length < plist::kLengthFollows) {
    body_.append(static_cast<std::uint8_t>(kind | length));
    return;
  }
  body_.append(static_cast<std::uint8_t>(kind | plist::kLengthFollows));
  sizedInteger(length);
}

PlistWriter::Number PlistWriter::null() {
  const Number number = begin();
  body_.append(plist::kNull);
  return number;
}

PlistWriter::Number PlistWriter::boolean(bool value) {
  const Number number = begin();
  body_.append(value ? plist::kTrue : plist::kFalse);
  return number;
}

PlistWriter::Number PlistWriter::integer(std::int64_t value) {
  const Number number = begin();
  sizedInteger(static_cast<std::uint64_t>(value));
  return number;
}

PlistWriter::Number PlistWriter::unsignedInteger(std::uint64_t value) {
  if (value <= static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) {
    return integer(static_cast<std::int64_t>(value));
  }
  const Number number = begin();
  body_.append(static_cast<std::uint8_t>(plist::kInteger | 4));
  body_.appendBigEndian(0, 8);
  body_.appendBigEndian(value, 8);
  return number;
}

PlistWriter::Number PlistWriter::eightBytes(unsigned kind, double value) {
  const Number number = begin();
  body_.append(static_cast<std::uint8_t>(kind | 3));
  body_.appendBigEndian(std::bit_cast<std::uint64_t>(value), 8);
  return number;
}

PlistWriter::Number PlistWriter::real(double value) { return eightBytes(plist::kReal, value); }

PlistWriter::Number PlistWriter::date(double seconds) { return eightBytes(plist::kDate, seconds); }

PlistWriter::Number PlistWriter::data(std::span<const std::byte> bytes) {
  const Number number = begin();
  marker(plist::kData, bytes.size());
  body_.append(bytes.data(), bytes.size());
  return number;
}

PlistWriter::Number PlistWriter::text(std::string_view text) {
  const Number number = begin();
  if (isAscii(text)) {
    marker(plist::kAscii, text.size());
    body_.append(text.data(), text.size());
    return number;
  }
  std::size_t units = 0;
  for (std::string_view rest = text; !rest.empty();) {
    const CodePoint next = firstCodePoint(rest);
    units += next.value < 0x10000 ? 1 : 2;
    rest.remove_prefix(next.length);
  }
  marker(plist::kUtf16, units);
  for (std::string_view rest = text; !rest.empty();) {
    const CodePoint next = firstCodePoint(rest);
    if (next.value < 0x10000) {
      body_.appendBigEndian(next.value, 2);
    } else {
      body_.appendBigEndian(0xD7C0 + (next.value >> 10), 2);
      body_.appendBigEndian(0xDC00 + (next.value & 0x3FF), 2);
    }
    rest.remove_prefix(next.length);
  }
  return number;
}

PlistWriter::Number PlistWriter::uid(std::uint32_t value) {
  const Number number = begin();
  const unsigned width = bytesFor(value);
  body_.append(static_cast<std::uint8_t>(plist::kUid | (width - 1)));
  body_.appendBigEndian(value, width);
  return number;
}

void PlistWriter::references(std::span<const Number> objects) {
  std::byte* place = body_.extend(objects.size() * kWideReference);
  for (const Number object : objects) {
    ByteBuffer::storeBigEndian(place, object, kWideReference);
    place += kWideReference;
  }
}

PlistWriter::Number PlistWriter::array(std::span<const Number> elements) {
  const Number number = begin();
  marker(plist::kArray, elements.size());
  references(elements);
  return number;
}

PlistWriter::Number PlistWriter::set(std::span<const Number> elements) {
  const Number number = begin();
  marker(plist::kSet, elements.size());
  references(elements);
  return number;
}

PlistWriter::Number PlistWriter::dictionary(std::span<const Number> keys,
                                            std::span<const Number> values) {
  const Number number = begin();
  marker(plist::kDictionary, keys.size());
  references(keys);
  references(values);
  return number;
}

std::uint64_t PlistWriter::end(std::size_t object) const {
  return object + 1 < offsets_.size() ? offsets_[object + 1] : body_.size();
}

std::span<const std::byte> PlistWriter::bytesOf(Number object) const {
  return {body_.data() + offsets_[object], body_.data() + end(object)};
}

/// Rewrites the body in place with references of `width` bytes.
void PlistWriter::narrowReferences(unsigned width) {
  std::byte* to = body_.data() + plist::kHeader.size();
  const std::uint64_t bodyEnd = body_.size();
  for (std::size_t i = 0; i < offsets_.size(); ++i) {
    const std::byte* from = body_.data() + offsets_[i];
    const std::uint64_t stop = i + 1 < offsets_.size() ? offsets_[i + 1] : bodyEnd;
    const auto length = static_cast<std::size_t>(stop - offsets_[i]);
    offsets_[i] = static_cast<std::uint64_t>(to - body_.data());
    if (isContainer(static_cast<unsigned>(*from))) {
      const std::byte* past = from + length;
      const unsigned low = static_cast<unsigned>(*from) & 0x0FU;
      const std::size_t head =
          low != plist::kLengthFollows ? 1 : 2 + (1U << (static_cast<unsigned>(from[1]) & 0x0FU));
      std::memmove(to, from, head);
      from += head;
      to += head;
      for (; from != past; from += kWideReference, to += width) {
        std::memmove(to, from + kWideReference - width, width);
      }
    } else {
      std::memmove(to, from, length);
      to += length;
    }
  }
  body_.truncate(static_cast<std::size_t>(to - body_.data()));
}

void PlistWriter::writeTable(Number top, unsigned referenceSize) {
  const std::uint64_t tableOffset = body_.size();
  const unsigned offsetSize = bytesFor(tableOffset);
  std::byte* place = body_.extend(offsets_.size() * offsetSize);
  for (const std::uint64_t offset : offsets_) {
    ByteBuffer::storeBigEndian(place, offset, offsetSize);
    place += offsetSize;
  }
  body_.appendBigEndian(0, 6);
  body_.append(static_cast<std::uint8_t>(offsetSize));
  body_.append(static_cast<std::uint8_t>(referenceSize));
  body_.appendBigEndian(offsets_.size(), 8);
  body_.appendBigEndian(top, 8);
  body_.appendBigEndian(tableOffset, 8);
}

OVRef<OVData> PlistWriter::finish(Number top) {
  const unsigned referenceSize = bytesFor(offsets_.size());
  if (referenceSize < kWideReference) narrowReferences(referenceSize);
  writeTable(top, referenceSize);
  return body_.release();
}

}  // namespace ov::detail
