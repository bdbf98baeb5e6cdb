#include "fuzz/reachable.h"

#include <unordered_set>
#include <utility>
#include <variant>

#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>
#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/opaque_object.h>

#include "support/archive/listed_fields.h"

namespace {

using Objects = std::vector<OVRef<OVObject>>;

class Walk {
 public:
  explicit Walk(const OVRef<OVObject>& root) {
    add(root);
    for (std::size_t i = 0; i < met_.size(); ++i) addContent(OVRef<OVObject>(met_[i]));
  }
  Objects met() && { return std::move(met_); }

 private:
  void add(const OVRef<OVObject>& object) {
    if (object != nullptr && known_.insert(object.get()).second) met_.push_back(object);
  }

  void addContent(const OVRef<OVObject>& object) {
    if (const auto list = ov::cast<OVList<OVObject>>(object)) {
      for (const auto& each : list) add(each);
    } else if (const auto dictionary = ov::cast<OVDictionary<OVObject>>(object)) {
      for (const auto& [key, each] : dictionary) add(each);
    } else if (const auto opaque = ov::cast<OVOpaqueObject>(object)) {
      for (const OVOpaqueField& field : opaque->fields()) addValue(field.value);
    } else {
      addFields(listedFields(object));
    }
  }

  void addFields(const ListedFields& object) {
    for (const auto& [key, content] : object.fields) {
      if (const auto* held = std::get_if<OVRef<OVObject>>(&content)) add(*held);
      if (const auto* elements = std::get_if<Objects>(&content)) {
        for (const OVRef<OVObject>& each : *elements) add(each);
      }
    }
  }

  void addValue(const OVOpaqueValue& value) {
    if (const auto* reference = std::get_if<OVOpaqueValue::Reference>(&value.content)) {
      add(reference->object);
    } else if (const auto* array = std::get_if<OVOpaqueValue::Array>(&value.content)) {
      for (const OVOpaqueValue& each : *array) addValue(each);
    } else if (const auto* set = std::get_if<OVOpaqueValue::Set>(&value.content)) {
      for (const OVOpaqueValue& each : set->elements) addValue(each);
    } else if (const auto* fields = std::get_if<OVOpaqueValue::Dictionary>(&value.content)) {
      for (const OVOpaqueField& field : *fields) addValue(field.value);
    }
  }

  Objects met_;
  std::unordered_set<const OVObject*> known_;
};

/// An object of an archive without fields: reading one, `release` gets a coder that finds nothing,
/// and has all others read themselves again from it.
class Emptier final : public OVObject {
 public:
  static const OVClass& archivedClass();
  [[nodiscard]] const OVClass* classForCoder() const override { return &archivedClass(); }
  void initWithCoder(OVKeyedUnarchiver& coder) override {
    // Once: there may be one of these among the objects.
    const Objects* const all = std::exchange(objects, nullptr);
    if (all == nullptr) return;
    for (const OVRef<OVObject>& each : *all) each->initWithCoder(coder);
  }

  static inline const Objects* objects = nullptr;
};

const OVClass& Emptier::archivedClass() {
  static constexpr OVClass record{"OVTestEmptier", nullptr,
                                  [] { return OVRef<OVObject>(std::make_shared<Emptier>()); }};
  return record;
}

}  // namespace

Objects reachable(const OVRef<OVObject>& root) { return Walk(root).met(); }

void release(const Objects& objects) {
  static const OVRef<OVData> archive = [] {
    OVKeyedUnarchiver::registerClass(Emptier::archivedClass());
    return OVKeyedArchiver::archivedDataWithRootObject(std::make_shared<Emptier>());
  }();
  const Objects* const before = std::exchange(Emptier::objects, &objects);
  static_cast<void>(OVKeyedUnarchiver::unarchiveObjectWithData(archive));
  Emptier::objects = before;
}
