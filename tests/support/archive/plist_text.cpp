#include "support/archive/plist_text.h"

#include <sstream>
#include <stdexcept>

#include "platform/archive/plist_reader.h"

namespace {

using ov::detail::PlistItem;
using ov::detail::PlistReader;
using Kind = PlistItem::Kind;

class Printer {
 public:
  explicit Printer(const OVRef<OVData>& block) : reader_(block->bytes()) {}

  std::string object(std::uint64_t number) {
    const PlistItem item = reader_.item(number);
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
        return data(item);
      case Kind::uid:
        return "#" + std::to_string(reader_.uid(item));
      case Kind::array:
        return "[" + elements(item) + "]";
      case Kind::set:
        return "(" + elements(item) + ")";
      case Kind::dictionary:
        return dictionary(item);
      default:
        return '"' + text(item) + '"';
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
    std::ostringstream stream;
    stream << reader_.real(item);
    const bool isWhole = stream.str().find_first_not_of("-0123456789") == std::string::npos;
    return stream.str() + (isWhole ? ".0" : "");
  }

  std::string data(const PlistItem& item) {
    static constexpr char kDigits[] = "0123456789abcdef";
    std::string result = "<";
    for (const std::byte byte : reader_.data(item)) {
      result += kDigits[static_cast<unsigned>(byte) >> 4];
      result += kDigits[static_cast<unsigned>(byte) & 15];
    }
    return result + ">";
  }

  std::string elements(const PlistItem& container) {
    std::string result;
    for (std::uint64_t i = 0; i < container.count; ++i) {
      if (i != 0) result += ", ";
      result += object(reader_.reference(container, i));
    }
    return result;
  }

  std::string dictionary(const PlistItem& item) {
    std::string result;
    for (std::uint64_t i = 0; i < item.count; ++i) {
      if (i != 0) result += ", ";
      result += text(reader_.item(reader_.reference(item, i))) + ": ";
      result += object(reader_.reference(item, item.count + i));
    }
    return "{" + result + "}";
  }

  PlistReader reader_;
};

}  // namespace

std::string plistText(const OVRef<OVData>& block) {
  Printer printer(block);
  return printer.object(printer.top());
}

std::vector<std::string> archivedObjects(const OVRef<OVData>& block) {
  return Printer(block).archivedObjects();
}
