#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/archive/big_endian.h"
#include "platform/archive/plist_format.h"
#include "platform/archive/reading_budget.h"

namespace ov::detail {

/// One object of a binary property list, its extent checked against the block.
struct PlistItem {
  enum class Kind : std::uint8_t {
    null,
    boolean,
    integer,
    real,
    date,
    data,
    ascii,
    utf16,
    uid,
    array,
    set,
    dictionary,
  };

  Kind kind = Kind::null;
  /// Bytes, UTF-16 code units, or elements.
  std::uint64_t count = 0;
  const std::byte* bytes = nullptr;
};

/// Random access to the objects of a binary property list, and what reading them may still take.
///
/// Nothing is read ahead, and every read is checked against the block: on a damaged or malicious
/// block any call may throw `OVInvalidArchive`. The block must outlive the reader.
class PlistReader {
 public:
  explicit PlistReader(std::span<const std::byte> block);

  /// Throws `OVInvalidArchive` where that is more than is left.
  void charge(std::uint64_t bytes) { budget_.charge(bytes); }

  [[nodiscard]] std::uint64_t objectCount() const { return objectCount_; }
  [[nodiscard]] std::uint64_t top() const { return top_; }

  [[nodiscard]] PlistItem item(std::uint64_t object) const;
  /// The object at a position of an array or set; of a dictionary, keys come before values.
  [[nodiscard]] std::uint64_t reference(const PlistItem& container, std::uint64_t position) const;

  /// The references to a dictionary's keys, as they are in the block.
  [[nodiscard]] std::span<const std::byte> keys(const PlistItem& dictionary) const {
    return {dictionary.bytes, static_cast<std::size_t>(dictionary.count * referenceSize_)};
  }

  [[nodiscard]] static bool isText(const PlistItem& item) {
    return item.kind == PlistItem::Kind::ascii || item.kind == PlistItem::Kind::utf16;
  }
  /// The text as UTF-8; lone surrogates become U+FFFD. `storage` is used where conversion needs it.
  [[nodiscard]] std::string_view text(const PlistItem& item, std::string& storage) const;
  /// True for a text of exactly these characters. `storage` is used as above.
  [[nodiscard]] bool equals(const PlistItem& item, std::string_view text,
                            std::string& storage) const;
  [[nodiscard]] static std::uint64_t uid(const PlistItem& item) {
    return loadBigEndian(item.bytes, static_cast<unsigned>(item.count));
  }
  /// The UID that the object is, if it is one.
  [[nodiscard]] std::optional<std::uint64_t> uidAt(std::uint64_t object) const;
  [[nodiscard]] double real(const PlistItem& item) const;
  /// An integer, and whether it is above the signed range.
  struct Integer {
    std::int64_t value;
    bool isUnsigned;
  };
  [[nodiscard]] Integer integer(const PlistItem& item) const;
  [[nodiscard]] bool boolean(const PlistItem& item) const { return item.count != 0; }
  [[nodiscard]] std::span<const std::byte> data(const PlistItem& item) const {
    return {item.bytes, static_cast<std::size_t>(item.count)};
  }

  /// Position of the object's first byte in the block, for error messages.
  [[nodiscard]] std::uint64_t offset(std::uint64_t object) const;

 private:
  void checkTrailer(std::uint64_t size) const;
  /// Objects with a count: what they are, by the high half of the first byte.
  struct Counted {
    PlistItem::Kind kind = PlistItem::Kind::null;
    std::uint8_t unit = 0;  // bytes of an element; 0: no count
  };

  [[gnu::cold]] std::uint64_t readLength(const std::byte*& at, std::uint64_t object) const;
  [[nodiscard]] PlistItem sized(PlistItem::Kind kind, const std::byte* at, std::uint64_t count,
                                std::uint64_t unit, std::uint64_t object) const;
  [[nodiscard]] PlistItem fixed(unsigned marker, const std::byte* at, std::uint64_t object) const;
  [[noreturn, gnu::cold]] void refuse(std::string_view what, std::uint64_t object) const;

  const std::byte* begin_;
  const std::byte* table_ = nullptr;
  std::uint64_t objectCount_ = 0;
  std::uint64_t top_ = 0;
  std::uint64_t tableOffset_ = 0;
  unsigned offsetSize_ = 0;
  unsigned referenceSize_ = 0;
  std::array<Counted, 16> counted_{};
  ReadingBudget budget_;
};

inline std::uint64_t PlistReader::offset(std::uint64_t object) const {
  if (object >= objectCount_) refuse("a reference past the last object", object);
  const std::uint64_t offset = loadBigEndian(table_ + object * offsetSize_, offsetSize_);
  if (offset < plist::kHeader.size() || offset >= tableOffset_) {
    refuse("its offset lies outside the objects", object);
  }
  return offset;
}

inline PlistItem PlistReader::item(std::uint64_t object) const {
  const std::byte* at = begin_ + offset(object);
  const auto marker = static_cast<unsigned>(*at++);
  const Counted counted = counted_[marker >> 4];
  if (counted.unit == 0) return fixed(marker, at, object);
  std::uint64_t count = marker & 0x0FU;
  if (count == plist::kLengthFollows) count = readLength(at, object);  // moves to the content
  return sized(counted.kind, at, count, counted.unit, object);
}

inline PlistItem PlistReader::sized(PlistItem::Kind kind, const std::byte* at, std::uint64_t count,
                                    std::uint64_t unit, std::uint64_t object) const {
  const auto room = static_cast<std::uint64_t>(table_ - at);
  // No product of what fits is too large for its type.
  if (count > room || count * unit > room) refuse("it does not fit into the block", object);
  return {kind, count, at};
}

inline std::uint64_t PlistReader::reference(const PlistItem& container,
                                            std::uint64_t position) const {
  const std::uint64_t object =
      loadBigEndian(container.bytes + position * referenceSize_, referenceSize_);
  if (object >= objectCount_) refuse("a reference past the last object", object);
  return object;
}

inline std::optional<std::uint64_t> PlistReader::uidAt(std::uint64_t object) const {
  const std::byte* at = begin_ + offset(object);
  const auto marker = static_cast<unsigned>(*at++);
  if ((marker & 0xF8U) != plist::kUid) return std::nullopt;
  return uid(sized(PlistItem::Kind::uid, at, (marker & 0x07U) + 1, 1, object));
}

}  // namespace ov::detail
