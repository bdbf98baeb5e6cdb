#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/opaque_object.h>

namespace ovbook {

enum class GraphNodeKind : std::uint8_t {
  object,      // with fields
  list,        // an object, with items
  dictionary,  // an object, with entries
  // These three are inside an object and have no identity.
  inlineArray,
  inlineDictionary,
  inlineSet,
};

/// Something in an object graph that holds other things.
struct GraphNode {
  GraphNodeKind kind;
  /// "" for a node without identity.
  std::string_view className;
  std::size_t size;
  /// 0 when nothing refers to the node by a number.
  std::uint64_t number;
  /// Null for a node that is not an object of an unknown class.
  const OVOpaqueObject* opaque;
};

/// Receives an object graph, part by part, in the order in which it is shown.
class GraphSink {
 public:
  GraphSink() = default;
  GraphSink(const GraphSink&) = delete;
  GraphSink& operator=(const GraphSink&) = delete;
  virtual ~GraphSink() = default;

  /// Encloses everything: first the root, then, each after `beginRest` with its number, the parts
  /// that are too deep to be shown in their place.
  virtual void begin() = 0;
  virtual void beginRest(std::uint64_t number) = 0;
  virtual void end() = 0;

  /// Encloses the content of a node.
  virtual void open(const GraphNode& node) = 0;
  virtual void close(const GraphNode& node) = 0;
  /// The name of what comes next, in a node that holds named things.
  virtual void name(const GraphNode& holder, std::string_view name) = 0;

  /// A text, number, date, data block, or null.
  virtual void leaf(const OVRef<OVObject>& object) = 0;
  /// A node that is shown elsewhere.
  virtual void reference(std::uint64_t number) = 0;
};

}  // namespace ovbook
