#include "dump/shared_objects.h"

#include <span>
#include <variant>
#include <vector>

#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/opaque_object.h>

namespace ovbook {

namespace {

/// Walks the graph with a stack of its own, so that no graph is too deep.
class Finder {
 public:
  explicit Finder(const OVRef<OVObject>& root) {
    meet(root);
    while (!waiting_.empty()) {
      const Waiting next = std::move(waiting_.back());
      waiting_.pop_back();
      std::visit([this](const auto& holder) { enter(holder); }, next);
    }
  }

  std::unordered_set<const OVObject*> take() { return std::move(shared_); }

 private:
  using Array = OVList<OVObject>;
  using Dictionary = OVDictionary<OVObject>;
  using Opaque = OVRef<OVOpaqueObject>;
  using Waiting = std::variant<Array, Dictionary, Opaque, const OVOpaqueValue*>;

  void meet(const OVRef<OVObject>& object) {
    if (const auto list = ov::cast<OVList<OVObject>>(object)) return meetHolder(object, list);
    if (const auto entries = ov::cast<OVDictionary<OVObject>>(object)) {
      return meetHolder(object, entries);
    }
    if (const auto opaque = ov::cast<OVOpaqueObject>(object)) meetHolder(object, opaque);
  }

  void meetHolder(const OVRef<OVObject>& object, Waiting holder) {
    if (seen_.insert(object.get()).second) {
      waiting_.push_back(std::move(holder));
    } else {
      shared_.insert(object.get());
    }
  }

  void enter(const Array& list) {
    for (const auto& item : list) meet(item);
  }
  void enter(const Dictionary& dictionary) {
    for (const auto& [key, value] : dictionary) meet(value);
  }
  void enter(const Opaque& object) { enterFields(object->fields()); }

  void enter(const OVOpaqueValue* value) {
    if (const auto* reference = std::get_if<OVOpaqueValue::Reference>(&value->content)) {
      meet(reference->object);
    } else if (const auto* array = std::get_if<OVOpaqueValue::Array>(&value->content)) {
      enterElements(*array);
    } else if (const auto* set = std::get_if<OVOpaqueValue::Set>(&value->content)) {
      enterElements(set->elements);
    } else if (const auto* fields = std::get_if<OVOpaqueValue::Dictionary>(&value->content)) {
      enterFields(*fields);
    }
  }

  void enterElements(const OVOpaqueValue::Array& elements) {
    for (const OVOpaqueValue& element : elements) waiting_.emplace_back(&element);
  }
  void enterFields(std::span<const OVOpaqueField> fields) {
    for (const OVOpaqueField& field : fields) waiting_.emplace_back(&field.value);
  }

  std::unordered_set<const OVObject*> seen_;
  std::unordered_set<const OVObject*> shared_;
  std::vector<Waiting> waiting_;
};

}  // namespace

std::unordered_set<const OVObject*> sharedObjectsOf(const OVRef<OVObject>& root) {
  return Finder(root).take();
}

}  // namespace ovbook
