#pragma once

#include "dump/graph_sink.h"
#include "output/json_writer.h"

namespace ovbook {

/// Writes a graph as one JSON object: {"root": part}, and where something is too deep, {"root":
/// part, "rest": {"7": part, ...}}. A part is
///   null, true, 5, 1.5, "text"             numbers that JSON lacks are "nan", "inf", "-inf"
///   {"date": "2009-08-22", "seconds": 272592000}, without "date" where the calendar ends
///   {"data": base64}
///   {"class": name, "classes": [name and superclasses], "hints": [...], "fields": {name: part}}
///   {"class": name, "items": [part]}       a list
///   {"class": name, "entries": {key: part}}  a dictionary
///   {"items": [...]}, {"entries": {...}}, {"set": [...]}  what is inside an object
///   {"ref": 7}                             the part that has "id": 7
class JsonSink final : public GraphSink {
 public:
  explicit JsonSink(std::ostream& out) : json_(out) {}

  void begin() override;
  void beginRest(std::uint64_t number) override;
  void end() override;
  void open(const GraphNode& node) override;
  void close(const GraphNode& node) override;
  void name(const GraphNode& holder, std::string_view name) override;
  void leaf(const OVRef<OVObject>& object) override;
  void reference(std::uint64_t number) override;

 private:
  void texts(std::string_view key, const std::vector<OVString>& texts);
  void number(double number);

  JsonWriter json_;
  bool hasRest_ = false;
};

}  // namespace ovbook
