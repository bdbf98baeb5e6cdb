#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "dump/graph_sink.h"

namespace ovbook {

/// Writes a graph for people: one line for each part, indented by what holds it. "#3" after a class
/// gives the object its number, alone it refers to that object.
class TextSink final : public GraphSink {
 public:
  explicit TextSink(std::ostream& out) : out_(out) {}

  void begin() override {}
  void beginRest(std::uint64_t number) override;
  void end() override {}
  void open(const GraphNode& node) override;
  void close(const GraphNode& node) override;
  void name(const GraphNode& holder, std::string_view name) override;
  void leaf(const OVRef<OVObject>& object) override;
  void reference(std::uint64_t number) override;

 private:
  void startLine();

  std::ostream& out_;
  std::vector<GraphNodeKind> holders_;
};

}  // namespace ovbook
