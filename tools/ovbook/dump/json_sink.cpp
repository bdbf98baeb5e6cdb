// The graph as JSON, part by part, without holding it in memory.

#include "dump/json_sink.h"

#include <cmath>

#include <OVAddressBookSDK/data.h>
#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/number.h>

#include "output/bytes_text.h"
#include "output/date_text.h"
#include "output/number_text.h"

namespace ovbook {

namespace {

constexpr const char* contentKey(GraphNodeKind kind) {
  switch (kind) {
    case GraphNodeKind::object:
      return "fields";
    case GraphNodeKind::list:
    case GraphNodeKind::inlineArray:
      return "items";
    case GraphNodeKind::dictionary:
    case GraphNodeKind::inlineDictionary:
      return "entries";
    case GraphNodeKind::inlineSet:
      return "set";
  }
  return "";
}

constexpr bool isObjectOfJson(GraphNodeKind kind) {
  return kind == GraphNodeKind::object || kind == GraphNodeKind::dictionary ||
         kind == GraphNodeKind::inlineDictionary;
}

}  // namespace

void JsonSink::begin() {
  json_.beginObject();
  json_.key("root");
}

void JsonSink::beginRest(std::uint64_t number) {
  if (!std::exchange(hasRest_, true)) {
    json_.key("rest");
    json_.beginObject();
  }
  json_.key(std::to_string(number));
}

void JsonSink::end() {
  if (hasRest_) json_.end();
  json_.end();
}

void JsonSink::open(const GraphNode& node) {
  json_.beginObject();
  if (!node.className.empty()) {
    json_.key("class");
    json_.text(node.className);
  }
  if (node.number != 0) {
    json_.key("id");
    json_.literal(std::to_string(node.number));
  }
  if (node.opaque != nullptr) {
    texts("classes", node.opaque->classes());
    texts("hints", node.opaque->classHints());
  }
  json_.key(contentKey(node.kind));
  isObjectOfJson(node.kind) ? json_.beginObject() : json_.beginArray();
}

void JsonSink::close(const GraphNode&) {
  json_.end();
  json_.end();
}

void JsonSink::name(const GraphNode&, std::string_view name) { json_.key(name); }

void JsonSink::texts(std::string_view key, const std::vector<OVString>& texts) {
  if (texts.empty()) return;
  json_.key(key);
  json_.beginArray();
  for (const OVString& text : texts) json_.text(text);
  json_.end();
}

void JsonSink::number(double number) {
  std::isfinite(number) ? json_.literal(numberText(number)) : json_.text(numberText(number));
}

void JsonSink::leaf(const OVRef<OVObject>& object) {
  if (const auto text = ov::cast<OVString>(object)) {
    json_.text(text);
  } else if (const auto any = ov::cast<OVNumber>(object)) {
    const OVNumber::Value value = any->value();
    const auto* real = std::get_if<double>(&value);
    real != nullptr ? number(*real) : json_.literal(numberText(*any));
  } else if (const auto date = ov::cast<OVDate>(object)) {
    json_.beginObject();
    if (date->day() != OVDate::Day{}) {
      json_.key("date");
      json_.text(isoText(*date));
    }
    json_.key("seconds");
    number(date->timeIntervalSinceReferenceDate());
    json_.end();
  } else if (const auto data = ov::cast<OVData>(object)) {
    json_.beginObject();
    json_.key("data");
    json_.text(base64(data->bytes()));
    json_.end();
  } else {
    json_.literal("null");
  }
}

void JsonSink::reference(std::uint64_t number) {
  json_.beginObject();
  json_.key("ref");
  json_.literal(std::to_string(number));
  json_.end();
}

}  // namespace ovbook
