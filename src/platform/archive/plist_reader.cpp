// Reads a property list in place: an object is a position in the block. Nothing is trusted; each
// extent is checked against the block before it is used.

#include "platform/archive/plist_reader.h"

#include <bit>
#include <cstring>
#include <string>

#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "platform/utf8.h"

namespace ov::detail {

using Kind = PlistItem::Kind;

PlistReader::PlistReader(std::span<const std::byte> block)
    : begin_(block.data()), budget_(block.size()) {
  const std::string_view text(reinterpret_cast<const char*>(begin_), block.size());
  if (text.starts_with("<?xml") || text.starts_with("<!DOCTYPE") || text.starts_with("<plist")) {
    throw OVInvalidArchive("an XML property list; only binary ones can be read: convert it first");
  }
  if (!text.starts_with(plist::kHeader)) {
    throw OVInvalidArchive(text.empty() ? "no data" : "not a binary property list");
  }
  if (text.size() < plist::kHeader.size() + 1 + plist::kTrailerSize) {
    throw OVInvalidArchive("the property list is cut short: no room for its trailer");
  }
  const std::byte* trailer = begin_ + text.size() - plist::kTrailerSize;
  offsetSize_ = static_cast<unsigned>(trailer[6]);
  referenceSize_ = static_cast<unsigned>(trailer[7]);
  objectCount_ = loadBigEndian(trailer + 8, 8);
  top_ = loadBigEndian(trailer + 16, 8);
  tableOffset_ = loadBigEndian(trailer + 24, 8);
  checkTrailer(text.size() - plist::kTrailerSize);
  table_ = begin_ + tableOffset_;
  const auto reference = static_cast<std::uint8_t>(referenceSize_);
  counted_[plist::kData >> 4] = {Kind::data, 1};
  counted_[plist::kAscii >> 4] = {Kind::ascii, 1};
  counted_[plist::kUtf16 >> 4] = {Kind::utf16, 2};
  counted_[plist::kArray >> 4] = {Kind::array, reference};
  counted_[plist::kSet >> 4] = {Kind::set, reference};
  counted_[plist::kDictionary >> 4] = {Kind::dictionary, static_cast<std::uint8_t>(2 * reference)};
}

void PlistReader::checkTrailer(std::uint64_t size) const {
  const auto tooSmall = [](unsigned width, std::uint64_t largest) {
    return width < 8 && largest >> (8 * width) != 0;
  };
  if (offsetSize_ < 1 || offsetSize_ > 8 || referenceSize_ < 1 || referenceSize_ > 8) {
    throw OVInvalidArchive("the trailer gives an offset or reference size that is not 1 to 8");
  }
  if (tableOffset_ < plist::kHeader.size() + 1 || tableOffset_ >= size) {
    throw OVInvalidArchive("the trailer puts the offset table outside the block");
  }
  const std::uint64_t tableSize = size - tableOffset_;
  if (tableSize % offsetSize_ != 0 || tableSize / offsetSize_ != objectCount_) {
    throw OVInvalidArchive("the offset table does not fill the room up to the trailer");
  }
  if (top_ >= objectCount_) throw OVInvalidArchive("the top object is past the last object");
  if (tooSmall(offsetSize_, tableOffset_) || tooSmall(referenceSize_, objectCount_)) {
    throw OVInvalidArchive("the trailer's offset or reference size is too small for the block");
  }
}

void PlistReader::refuse(std::string_view what, std::uint64_t object) const {
  throw OVInvalidArchive("property list object " + std::to_string(object) + ": " +
                         std::string(what));
}

/// Objects whose size follows from their first byte.
PlistItem PlistReader::fixed(unsigned marker, const std::byte* at, std::uint64_t object) const {
  const unsigned low = marker & 0x0F;
  const std::uint64_t width = 1ULL << low;
  switch (marker & 0xF0U) {
    case plist::kSingle:
      if (marker == plist::kNull) return {};
      if (marker == plist::kFalse || marker == plist::kTrue) {
        return {Kind::boolean, marker == plist::kTrue ? 1U : 0U, at};
      }
      break;
    case plist::kInteger:
      if (low <= 4) return sized(Kind::integer, at, width, 1, object);
      break;
    case plist::kReal:
      if (low == 2 || low == 3) return sized(Kind::real, at, width, 1, object);
      break;
    case plist::kDate:
      if (low == 3) return sized(Kind::date, at, width, 1, object);
      break;
    case plist::kUid:
      if (low < 8) return sized(Kind::uid, at, low + 1U, 1, object);
      break;
    default:
      break;
  }
  refuse("an object of unknown kind", object);
}

/// The length in the integer object after the first byte.
std::uint64_t PlistReader::readLength(const std::byte*& at, std::uint64_t object) const {
  const unsigned marker = at < table_ ? static_cast<unsigned>(*at) : 0;
  if ((marker & 0xF0U) != plist::kInteger || (marker & 0x0FU) > 3) {
    refuse("its length is not an integer of at most 8 bytes", object);
  }
  const unsigned width = 1U << (marker & 0x0FU);
  if (static_cast<std::uint64_t>(table_ - at) <= width) refuse("its length is cut short", object);
  const std::uint64_t length = loadBigEndian(at + 1, width);
  at += 1 + width;
  return length;
}

std::string_view PlistReader::text(const PlistItem& item, std::string& storage) const {
  const auto count = static_cast<std::size_t>(item.count);
  if (item.kind == Kind::ascii) {
    const std::string_view text(reinterpret_cast<const char*>(item.bytes), count);
    if (!isAscii(text)) throw OVInvalidArchive("a plain text holds a byte above 127");
    return text;
  }
  const auto unit = [&](std::size_t i) {
    return static_cast<char32_t>(loadBigEndian(item.bytes + 2 * i, 2));
  };
  storage.clear();
  for (std::size_t i = 0; i < count; ++i) {
    char32_t value = unit(i);
    if (value >= 0xD800 && value < 0xDC00 && i + 1 < count) {
      const char32_t next = unit(i + 1);
      if (next >= 0xDC00 && next < 0xE000) {
        value = 0x10000 + ((value - 0xD800) << 10) + (next - 0xDC00);
        ++i;
      }
    }
    appendUtf8(storage, value);
  }
  return storage;
}

bool PlistReader::equals(const PlistItem& item, std::string_view text, std::string& storage) const {
  const auto count = static_cast<std::size_t>(item.count);
  if (item.kind == Kind::ascii) {
    return std::string_view(reinterpret_cast<const char*>(item.bytes), count) == text;
  }
  // As UTF-8 a text is never shorter.
  return item.kind == Kind::utf16 && count <= text.size() && this->text(item, storage) == text;
}

double PlistReader::real(const PlistItem& item) const {
  if (item.count == 4) {
    return std::bit_cast<float>(static_cast<std::uint32_t>(loadBigEndian(item.bytes, 4)));
  }
  return std::bit_cast<double>(loadBigEndian(item.bytes, 8));
}

PlistReader::Integer PlistReader::integer(const PlistItem& item) const {
  if (item.count < 16) {
    return {static_cast<std::int64_t>(loadBigEndian(item.bytes, static_cast<unsigned>(item.count))),
            false};
  }
  const std::uint64_t high = loadBigEndian(item.bytes, 8);
  const std::uint64_t low = loadBigEndian(item.bytes + 8, 8);
  const auto value = static_cast<std::int64_t>(low);
  if (high == 0) return {value, value < 0};
  if (~high == 0 && value < 0) return {value, false};
  throw OVInvalidArchive("a 16-byte integer that does not fit into 64 bits");
}

}  // namespace ov::detail
