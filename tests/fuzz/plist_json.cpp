#include "fuzz/plist_json.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstdio>

#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "platform/archive/plist_reader.h"

namespace {

using ov::detail::PlistItem;
using ov::detail::PlistReader;
using Kind = PlistItem::Kind;

constexpr std::size_t kLongest = 1U << 18;
constexpr unsigned kMaxDepth = 512;

template <class Value>
std::string formatted(const char* format, Value value) {
  std::array<char, 32> buffer{};
  std::snprintf(buffer.data(), buffer.size(), format, value);
  return buffer.data();
}

std::string quoted(std::string_view text) {
  std::string result = "\"";
  for (const char each : text) {
    const auto byte = static_cast<unsigned char>(each);
    if (each == '"' || each == '\\') {
      (result += '\\') += each;
    } else if (byte < 0x20) {
      result += formatted("\\u%04x", static_cast<unsigned>(byte));
    } else {
      result += each;
    }
  }
  return result + '"';
}

std::string tagged(char tag, const std::string& value) {
  return std::string("{\"") + tag + "\": " + value + '}';
}

std::string hex(std::span<const std::byte> bytes) {
  std::string result = "\"";
  for (const std::byte each : bytes) result += formatted("%02x", static_cast<unsigned>(each));
  return result + '"';
}

class Describer {
 public:
  explicit Describer(std::span<const std::byte> block) : reader_(block) {}

  std::string top() { return object(reader_.top(), 0); }

 private:
  std::string object(std::uint64_t number, unsigned depth) {
    const PlistItem item = reader_.item(number);
    written_ += item.count + 16;
    if (written_ > kLongest || depth > kMaxDepth) throw OVInvalidArchive("too much");
    switch (item.kind) {
      case Kind::null:
        return "null";
      case Kind::boolean:
        return reader_.boolean(item) ? "true" : "false";
      case Kind::integer: {
        const auto [value, isUnsigned] = reader_.integer(item);
        return tagged('i', '"' +
                               (isUnsigned ? std::to_string(static_cast<std::uint64_t>(value))
                                           : std::to_string(value)) +
                               '"');
      }
      case Kind::real:
        return tagged('r', bits(item));
      case Kind::date:
        return tagged('d', bits(item));
      case Kind::data:
        return tagged('b', hex(reader_.data(item)));
      case Kind::uid:
        return tagged('u', '"' + std::to_string(PlistReader::uid(item)) + '"');
      case Kind::array:
        return tagged('a', elements(item, depth));
      case Kind::set:
        return tagged('s', elements(item, depth));
      case Kind::dictionary:
        return tagged('m', entries(item, depth));
      default:
        return isRepaired(item) ? tagged('t', quoted(text(item))) : quoted(text(item));
    }
  }

  std::string text(const PlistItem& item) {
    std::string storage;
    return std::string(reader_.text(item, storage));
  }

  /// Whether surrogates are alone: U+FFFD is written in their place.
  static bool isRepaired(const PlistItem& item) {
    if (item.kind != Kind::utf16) return false;
    bool isOpen = false;
    for (std::uint64_t i = 0; i < item.count; ++i) {
      const std::uint64_t unit = ov::detail::loadBigEndian(item.bytes + 2 * i, 2);
      const bool isLow = unit >= 0xDC00 && unit < 0xE000;
      if (isLow != isOpen) return true;
      isOpen = unit >= 0xD800 && unit < 0xDC00;
    }
    return isOpen;
  }

  std::string bits(const PlistItem& item) {
    const auto number = std::bit_cast<std::uint64_t>(reader_.real(item));
    return '"' + formatted("%016llx", static_cast<unsigned long long>(number)) + '"';
  }

  std::string elements(const PlistItem& container, unsigned depth) {
    std::string result = "[";
    for (std::uint64_t i = 0; i < container.count; ++i) {
      if (i != 0) result += ", ";
      result += object(reader_.reference(container, i), depth + 1);
    }
    return result + ']';
  }

  std::string entries(const PlistItem& dictionary, unsigned depth) {
    std::string result = "[";
    for (std::uint64_t i = 0; i < dictionary.count; ++i) {
      if (i != 0) result += ", ";
      const PlistItem key = reader_.item(reader_.reference(dictionary, i));
      if (!PlistReader::isText(key)) throw OVInvalidArchive("a key that is not text");
      result += '[' + object(reader_.reference(dictionary, i), depth + 1) + ", " +
                object(reader_.reference(dictionary, dictionary.count + i), depth + 1) + ']';
    }
    return result + ']';
  }

  PlistReader reader_;
  std::uint64_t written_ = 0;
};

}  // namespace

std::optional<std::string> plistJson(std::span<const std::byte> block) {
  try {
    return Describer(block).top();
  } catch (const OVInvalidArchive&) {
    return std::nullopt;
  }
}
