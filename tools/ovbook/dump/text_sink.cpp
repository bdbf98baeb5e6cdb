#include "dump/text_sink.h"

#include <algorithm>
#include <ostream>

#include <OVAddressBookSDK/data.h>
#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/number.h>
#include <OVAddressBookSDK/text.h>

#include "output/bytes_text.h"
#include "output/date_text.h"
#include "output/escape.h"
#include "output/number_text.h"

namespace ovbook {

namespace {

constexpr std::size_t kBytesShown = 16;

bool holdsNamedThings(GraphNodeKind kind) {
  return kind == GraphNodeKind::object || kind == GraphNodeKind::dictionary ||
         kind == GraphNodeKind::inlineDictionary;
}

std::string kindText(const GraphNode& node) {
  switch (node.kind) {
    case GraphNodeKind::inlineArray:
      return "array";
    case GraphNodeKind::inlineDictionary:
      return "dictionary";
    case GraphNodeKind::inlineSet:
      return "set";
    default:
      return printable(node.className);
  }
}

std::string sizeText(const GraphNode& node) {
  if (node.kind == GraphNodeKind::object) return {};
  const bool isOne = node.size == 1;
  const char* what =
      holdsNamedThings(node.kind) ? (isOne ? " entry" : " entries") : (isOne ? " item" : " items");
  return ", " + std::to_string(node.size) + what;
}

std::string dataText(const OVData& data) {
  const auto bytes = data.bytes();
  const auto shown = bytes.view().first(std::min(bytes.size(), kBytesShown));
  return "data, " + std::to_string(data.size()) + (data.size() == 1 ? " byte" : " bytes") +
         (shown.empty() ? "" : ": ") + hexadecimal(shown) +
         (shown.size() < data.size() ? "..." : "");
}

std::string leafText(const OVRef<OVObject>& object) {
  if (object == nullptr) return "null";
  if (const auto text = ov::cast<OVString>(object)) return quoted(text);
  if (const auto number = ov::cast<OVNumber>(object)) return numberText(*number);
  if (const auto date = ov::cast<OVDate>(object)) return isoText(*date);
  if (const auto data = ov::cast<OVData>(object)) return dataText(*data);
  return "an object of unknown kind";
}

}  // namespace

void TextSink::startLine() {
  if (holders_.empty() || holdsNamedThings(holders_.back())) return;
  out_ << std::string(2 * holders_.size(), ' ') << "- ";
}

void TextSink::beginRest(std::uint64_t) { out_ << '\n'; }

void TextSink::open(const GraphNode& node) {
  startLine();
  out_ << kindText(node);
  if (node.number != 0) out_ << " #" << node.number;
  out_ << sizeText(node) << '\n';
  holders_.push_back(node.kind);
}

void TextSink::close(const GraphNode&) { holders_.pop_back(); }

void TextSink::name(const GraphNode& holder, std::string_view name) {
  out_ << std::string(2 * holders_.size(), ' ')
       << (holder.kind == GraphNodeKind::object ? printable(name) : quoted(name)) << ": ";
}

void TextSink::leaf(const OVRef<OVObject>& object) {
  startLine();
  out_ << leafText(object) << '\n';
}

void TextSink::reference(std::uint64_t number) {
  startLine();
  out_ << '#' << number << '\n';
}

}  // namespace ovbook
