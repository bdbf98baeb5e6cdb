// Finds the shared objects of a graph first, then passes it to the sink, in which only shared and
// very deep objects get numbers.

#include "dump/graph_walk.h"

#include <deque>
#include <span>
#include <unordered_map>
#include <unordered_set>
#include <variant>

#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/list.h>

#include "dump/shared_objects.h"

namespace ovbook {

namespace {

constexpr unsigned kMaxDepth = 40;

class Walk {
 public:
  Walk(const OVRef<OVObject>& root, GraphSink& sink)
      : shared_(sharedObjectsOf(root)), sink_(sink) {}

  void run(const OVRef<OVObject>& root) {
    sink_.begin();
    show(root, 0);
    while (!rest_.empty()) {
      const Postponed next = std::move(rest_.front());
      rest_.pop_front();
      sink_.beginRest(next.number);
      if (const auto* object = std::get_if<OVRef<OVObject>>(&next.content)) {
        showHolder(*object, next.number, 0);
      } else {
        showInline(*std::get<const OVOpaqueValue*>(next.content), next.number, 0);
      }
    }
    sink_.end();
  }

 private:
  struct Postponed {
    std::variant<OVRef<OVObject>, const OVOpaqueValue*> content;
    std::uint64_t number;
  };

  static bool isHolder(const OVRef<OVObject>& object) {
    return ov::cast<OVOpaqueObject>(object) != nullptr ||
           ov::cast<OVList<OVObject>>(object) != nullptr ||
           ov::cast<OVDictionary<OVObject>>(object) != nullptr;
  }

  void show(const OVRef<OVObject>& object, unsigned depth) {
    if (!isHolder(object)) return sink_.leaf(object);
    const auto known = numbers_.find(object.get());
    if (known != numbers_.end()) return sink_.reference(known->second);
    const bool isShared = shared_.contains(object.get());
    const std::uint64_t number = isShared || depth >= kMaxDepth ? ++lastNumber_ : 0;
    if (number != 0) numbers_.emplace(object.get(), number);
    if (depth >= kMaxDepth) return postpone({object, number});
    showHolder(object, number, depth);
  }

  void show(const OVOpaqueValue& value, unsigned depth) {
    if (const auto* reference = std::get_if<OVOpaqueValue::Reference>(&value.content)) {
      show(reference->object, depth);
    } else if (const auto* leaf = std::get_if<OVOpaqueValue::Inline>(&value.content)) {
      sink_.leaf(leaf->object);
    } else if (depth >= kMaxDepth) {
      postpone({&value, ++lastNumber_});
    } else {
      showInline(value, 0, depth);
    }
  }

  void postpone(Postponed part) {
    sink_.reference(part.number);
    rest_.push_back(std::move(part));
  }

  void showHolder(const OVRef<OVObject>& object, std::uint64_t number, unsigned depth) {
    if (const auto opaque = ov::cast<OVOpaqueObject>(object)) {
      const auto fields = opaque->fields();
      const OVString name = opaque->className();
      const GraphNode node{GraphNodeKind::object, name, fields.size(), number, opaque.get()};
      return showFields(node, fields, depth);
    }
    const std::string_view className = object->classForCoder()->name;
    if (const auto list = ov::cast<OVList<OVObject>>(object)) {
      const GraphNode node{GraphNodeKind::list, className, list.size(), number, nullptr};
      sink_.open(node);
      for (const auto& item : list) show(item, depth + 1);
      return sink_.close(node);
    }
    const auto dictionary = ov::cast<OVDictionary<OVObject>>(object);
    const GraphNode node{GraphNodeKind::dictionary, className, dictionary.size(), number, nullptr};
    sink_.open(node);
    for (const auto& [key, value] : dictionary) {
      sink_.name(node, key);
      show(value, depth + 1);
    }
    sink_.close(node);
  }

  void showInline(const OVOpaqueValue& value, std::uint64_t number, unsigned depth) {
    if (const auto* fields = std::get_if<OVOpaqueValue::Dictionary>(&value.content)) {
      return showFields({GraphNodeKind::inlineDictionary, "", fields->size(), number, nullptr},
                        *fields, depth);
    }
    if (const auto* set = std::get_if<OVOpaqueValue::Set>(&value.content)) {
      return showElements({GraphNodeKind::inlineSet, "", set->elements.size(), number, nullptr},
                          set->elements, depth);
    }
    const auto& array = std::get<OVOpaqueValue::Array>(value.content);
    showElements({GraphNodeKind::inlineArray, "", array.size(), number, nullptr}, array, depth);
  }

  void showElements(const GraphNode& node, const OVOpaqueValue::Array& elements, unsigned depth) {
    sink_.open(node);
    for (const OVOpaqueValue& element : elements) show(element, depth + 1);
    sink_.close(node);
  }

  void showFields(const GraphNode& node, std::span<const OVOpaqueField> fields, unsigned depth) {
    std::unordered_set<OVString> named;
    sink_.open(node);
    for (const OVOpaqueField& field : fields) {
      if (!named.insert(field.key).second) continue;
      sink_.name(node, field.key);
      show(field.value, depth + 1);
    }
    sink_.close(node);
  }

  std::unordered_set<const OVObject*> shared_;
  std::unordered_map<const OVObject*, std::uint64_t> numbers_;
  std::uint64_t lastNumber_ = 0;
  std::deque<Postponed> rest_;
  GraphSink& sink_;
};

}  // namespace

void walkGraph(const OVRef<OVObject>& root, GraphSink& sink) { Walk(root, sink).run(root); }

}  // namespace ovbook
