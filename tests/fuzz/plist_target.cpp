// Any bytes are either refused or a property list whose objects can be read again from what our
// writer makes of them.

#include <bit>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "fuzz/finding.h"
#include "platform/archive/plist_reader.h"
#include "platform/archive/plist_writer.h"
#include "platform/utf8.h"

namespace {

using ov::detail::PlistItem;
using ov::detail::PlistReader;
using ov::detail::PlistWriter;
using Bytes = std::span<const std::byte>;
using Kind = PlistItem::Kind;
using Number = PlistWriter::Number;

/// Objects may overlap, so that a small list can hold very many references.
constexpr std::uint64_t kMaxElements = 1U << 20;

std::string textOf(const PlistReader& reader, const PlistItem& item) {
  std::string storage;
  return std::string(reader.text(item, storage));
}

std::vector<Number> references(const PlistReader& reader, const PlistItem& container) {
  const std::uint64_t count = container.count * (container.kind == Kind::dictionary ? 2 : 1);
  std::vector<Number> numbers;
  for (std::uint64_t i = 0; i < count; ++i) {
    const std::uint64_t object = reader.reference(container, i);
    expectThat(object < reader.objectCount(), "a reference past the last object was given out");
    numbers.push_back(static_cast<Number>(object));
  }
  return numbers;
}

void write(const PlistReader& reader, const PlistItem& item, PlistWriter& writer) {
  switch (item.kind) {
    case Kind::null:
      writer.null();
      break;
    case Kind::boolean:
      writer.boolean(reader.boolean(item));
      break;
    case Kind::integer: {
      const auto [value, isUnsigned] = reader.integer(item);
      if (isUnsigned) {
        writer.unsignedInteger(static_cast<std::uint64_t>(value));
      } else {
        writer.integer(value);
      }
      break;
    }
    case Kind::real:
      writer.real(reader.real(item));
      break;
    case Kind::date:
      writer.date(reader.real(item));
      break;
    case Kind::data:
      writer.data(reader.data(item));
      break;
    case Kind::ascii:
    case Kind::utf16: {
      const std::string text = textOf(reader, item);
      expectThat(ov::detail::wellFormedPrefix(text) == text.size(), "a text is not well-formed");
      writer.text(text);
      break;
    }
    case Kind::uid:
      // Our own are narrower.
      writer.uid(static_cast<std::uint32_t>(PlistReader::uid(item)));
      break;
    case Kind::array:
      writer.array(references(reader, item));
      break;
    case Kind::set:
      writer.set(references(reader, item));
      break;
    case Kind::dictionary: {
      const std::vector<Number> numbers = references(reader, item);
      std::vector<PlistWriter::Entry> entries;
      const auto count = static_cast<std::size_t>(item.count);
      for (std::size_t i = 0; i < count; ++i) {
        entries.push_back({numbers[i], numbers[i + count]});
      }
      writer.dictionary(entries);
      break;
    }
  }
}

void expectInside(const PlistReader& reader, const PlistItem& item, Bytes block) {
  if (item.kind == Kind::null || item.kind == Kind::boolean) return;
  const bool begins = item.bytes > block.data() && item.bytes <= block.data() + block.size();
  const auto remaining = static_cast<std::uint64_t>(block.data() + block.size() - item.bytes);
  expectThat(begins && item.count <= remaining, "an object leaves the block");
  static_cast<void>(reader);
}

/// Every object written again; null when one of them is refused. Each is looked at in any case.
OVRef<OVData> rewritten(Bytes block) {
  const PlistReader reader(block);
  PlistWriter writer;
  bool isWhole = true;
  std::uint64_t elements = 0;
  for (std::uint64_t i = 0; i < reader.objectCount(); ++i) {
    try {
      const PlistItem item = reader.item(i);
      expectInside(reader, item, block);
      const auto uid = reader.uidAt(i);
      expectThat(uid.has_value() == (item.kind == Kind::uid), "uidAt and item disagree");
      expectThat(!uid || uid == PlistReader::uid(item), "two values of one UID");
      elements += item.count;
      if (elements > kMaxElements) return nullptr;
      write(reader, item, writer);
      std::string storage;
      static_cast<void>(reader.equals(item, "$null", storage));
    } catch (const OVInvalidArchive&) {
      isWhole = false;
    }
  }
  return isWhole ? writer.finish(static_cast<Number>(reader.top())) : nullptr;
}

bool sameItem(const PlistReader& a, const PlistItem& first, const PlistReader& b,
              const PlistItem& second) {
  if (PlistReader::isText(first)) {
    const std::string text = textOf(a, first);
    std::string storage;
    return PlistReader::isText(second) && text == textOf(b, second) &&
           b.equals(second, text, storage) && a.equals(first, text, storage);
  }
  if (first.kind != second.kind) return false;
  switch (first.kind) {
    case Kind::integer:
      return a.integer(first).value == b.integer(second).value &&
             a.integer(first).isUnsigned == b.integer(second).isUnsigned;
    case Kind::real:
    case Kind::date:
      return std::bit_cast<std::uint64_t>(a.real(first)) ==
             std::bit_cast<std::uint64_t>(b.real(second));
    case Kind::uid:
      return static_cast<std::uint32_t>(PlistReader::uid(first)) == PlistReader::uid(second);
    case Kind::data:
      return std::ranges::equal(a.data(first), b.data(second));
    case Kind::array:
    case Kind::set:
    case Kind::dictionary:
      return first.count == second.count && references(a, first) == references(b, second);
    default:
      return first.count == second.count;
  }
}

void expectSame(Bytes block, Bytes again) {
  const PlistReader a(block);
  const PlistReader b(again);
  expectThat(a.objectCount() == b.objectCount() && a.top() == b.top(), "another number of objects");
  for (std::uint64_t i = 0; i < a.objectCount(); ++i) {
    if (!sameItem(a, a.item(i), b, b.item(i))) {
      finding("object " + std::to_string(i) + " reads otherwise when it is written again");
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Bytes block = std::as_bytes(std::span(data, size));
  OVRef<OVData> written;
  try {
    written = rewritten(block);
  } catch (const OVInvalidArchive&) {
    return 0;
  }
  if (written == nullptr) return 0;
  expectSame(block, written->bytes());
  const auto again = rewritten(written->bytes());
  expectThat(again != nullptr && again->text() == written->text(), "other bytes the second time");
  return 0;
}
