// Values are found by the library's own reader. A small list can share its parts so often that its
// text would never end, so length and depth have bounds.

#include "support/archive/plist_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <stdexcept>

#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "platform/archive/plist_reader.h"
#include "support/archive/listed_values.h"

namespace {

using ov::detail::PlistItem;
using ov::detail::PlistReader;
using Kind = PlistItem::Kind;

constexpr std::size_t kLongest = 1U << 18;
constexpr unsigned kMaxDepth = 512;

/// Keys that need no quotes.
bool isPlain(std::string_view key) {
  return !key.empty() && std::ranges::all_of(key, [](char each) {
    return (each >= '0' && each <= '9') || ((each | 0x20) >= 'a' && (each | 0x20) <= 'z') ||
           each == '$' || each == '_' || each == '.';
  });
}

/// Whether surrogates are alone in it: the reader puts U+FFFD in their place.
bool isRepaired(const PlistItem& item) {
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

class Printer {
 public:
  explicit Printer(const OVRef<OVData>& block) : reader_(block->bytes()) {}

  std::string object(std::uint64_t number, unsigned depth = 0) {
    const PlistItem item = reader_.item(number);
    written_ += item.count + 16;
    if (written_ > kLongest || depth > kMaxDepth) throw OVInvalidArchive("too much");
    switch (item.kind) {
      case Kind::null:
        return "null";
      case Kind::boolean:
        return reader_.boolean(item) ? "true" : "false";
      case Kind::integer:
        return integer(item);
      case Kind::real:
        return real(item);
      case Kind::date:
        return "@" + real(item);
      case Kind::data:
        return listedData(*OVData::dataWithBytes(reader_.data(item)));
      case Kind::uid:
        return "#" + std::to_string(reader_.uid(item));
      case Kind::array:
        return "[" + elements(item, depth + 1) + "]";
      case Kind::set:
        return "(" + elements(item, depth + 1) + ")";
      case Kind::dictionary:
        return dictionary(item, depth + 1);
      default:
        return (isRepaired(item) ? "?" : "") + listedText(text(item));
    }
  }

  std::uint64_t top() const { return reader_.top(); }

  std::vector<std::string> archivedObjects() {
    const PlistItem head = reader_.item(top());
    for (std::uint64_t i = 0; i < head.count; ++i) {
      if (text(reader_.item(reader_.reference(head, i))) != "$objects") continue;
      const PlistItem array = reader_.item(reader_.reference(head, head.count + i));
      std::vector<std::string> objects;
      for (std::uint64_t element = 0; element < array.count; ++element) {
        objects.push_back(object(reader_.reference(array, element)));
      }
      return objects;
    }
    throw std::invalid_argument("not a keyed archive");
  }

 private:
  std::string text(const PlistItem& item) {
    std::string storage;
    return std::string(reader_.text(item, storage));
  }

  std::string integer(const PlistItem& item) {
    const auto [value, isUnsigned] = reader_.integer(item);
    return isUnsigned ? std::to_string(static_cast<std::uint64_t>(value)) : std::to_string(value);
  }

  std::string real(const PlistItem& item) {
    std::array<char, 32> buffer{};
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), reader_.real(item));
    const std::string digits(buffer.data(), end.ptr);
    const bool isWhole = digits.find_first_not_of("-0123456789") == std::string::npos;
    return digits + (isWhole ? ".0" : "");
  }

  std::string elements(const PlistItem& container, unsigned depth) {
    std::string result;
    for (std::uint64_t i = 0; i < container.count; ++i) {
      if (i != 0) result += ", ";
      result += object(reader_.reference(container, i), depth);
    }
    return result;
  }

  std::string dictionary(const PlistItem& item, unsigned depth) {
    std::string result;
    for (std::uint64_t i = 0; i < item.count; ++i) {
      if (i != 0) result += ", ";
      result += key(reader_.item(reader_.reference(item, i))) + ": ";
      result += object(reader_.reference(item, item.count + i), depth);
    }
    return "{" + result + "}";
  }

  std::string key(const PlistItem& item) {
    if (!PlistReader::isText(item)) throw OVInvalidArchive("a key that is not text");
    std::string result = text(item);
    if (isPlain(result)) return result;
    return (isRepaired(item) ? "?" : "") + listedText(result);
  }

  PlistReader reader_;
  std::uint64_t written_ = 0;
};

}  // namespace

std::string plistText(const OVRef<OVData>& block) {
  Printer printer(block);
  return printer.object(printer.top());
}

std::vector<std::string> archivedObjects(const OVRef<OVData>& block) {
  return Printer(block).archivedObjects();
}
