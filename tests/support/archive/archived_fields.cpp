// Archives keep the addresses of class records, so the ones that are made here, one for each name,
// live for ever. What was archived is read back as an opaque object, whatever its class.

#include "support/archive/archived_fields.h"

#include <map>
#include <mutex>
#include <stdexcept>
#include <string>
#include <utility>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>
#include <OVAddressBookSDK/number.h>

#include "platform/dispose.h"

namespace {

constexpr const char* kForeignClass = "XYUnknown";
constexpr std::string_view kForeignKey = "what";

const OVClass& classNamed(const char* name) {
  static std::mutex mutex;
  static auto& classes = *new std::map<std::string, OVClass, std::less<>>();
  const std::lock_guard lock(mutex);
  const auto [at, isNew] = classes.try_emplace(name, OVClass{nullptr, nullptr, nullptr});
  if (isNew) at->second.name = at->first.c_str();
  return at->second;
}

class ArchivedFields final : public OVObject {
 public:
  ArchivedFields(const char* className, std::vector<ArchivedField> fields)
      : class_(classNamed(className)), fields_(std::move(fields)) {}
  ArchivedFields(const ArchivedFields&) = delete;
  ArchivedFields& operator=(const ArchivedFields&) = delete;
  ~ArchivedFields() override {
    for (ArchivedField& field : fields_) {
      if (auto* object = std::get_if<OVRef<OVObject>>(&field.value)) {
        ov::detail::dispose(std::move(*object));
      }
    }
  }

  const OVClass* classForCoder() const override { return &class_; }

  void encodeWithCoder(OVKeyedArchiver& coder) const override {
    for (const auto& [key, value] : fields_) {
      if (const auto* integer = std::get_if<std::int64_t>(&value)) {
        coder.encodeIntegerForKey(*integer, key);
      } else {
        coder.encodeObjectForKey(std::get<OVRef<OVObject>>(value), key);
      }
    }
  }

 private:
  const OVClass& class_;
  std::vector<ArchivedField> fields_;
};

}  // namespace

OVRef<OVObject> archivedAs(const char* className, std::vector<ArchivedField> fields) {
  return std::make_shared<ArchivedFields>(className, std::move(fields));
}

OVRef<OVObject> foreignObject() {
  return archivedAs(kForeignClass, {{kForeignKey, OVString("kept whole")}});
}

bool isForeignObject(const OVRef<OVObject>& object) {
  const auto opaque = ov::cast<OVOpaqueObject>(object);
  if (opaque == nullptr || opaque->className() != kForeignClass) return false;
  const ArchivedForm form(object);
  return form.keys() == std::vector<OVString>{kForeignKey} &&
         ov::cast<OVString>(form.object(kForeignKey)) == "kept whole";
}

OVRef<OVObject> restored(const OVRef<OVObject>& object) {
  return OVKeyedUnarchiver::unarchiveObjectWithData(
      OVKeyedArchiver::archivedDataWithRootObject(object));
}

ArchivedForm::ArchivedForm(const OVRef<OVObject>& object)
    : object_(ov::cast<OVOpaqueObject>(OVKeyedUnarchiver::unarchiveOpaqueObjectWithData(
          OVKeyedArchiver::archivedDataWithRootObject(object)))) {
  if (object_ == nullptr) throw std::invalid_argument("archived in a form of its own");
}

std::vector<OVString> ArchivedForm::keys() const {
  std::vector<OVString> keys;
  for (const OVOpaqueField& field : object_->fields()) keys.push_back(field.key);
  return keys;
}

OVRef<OVObject> ArchivedForm::object(std::string_view key) const {
  const OVOpaqueField* found = field(key);
  return found == nullptr ? nullptr
                          : std::get<OVOpaqueValue::Reference>(found->value.content).object;
}

std::int64_t ArchivedForm::integer(std::string_view key) const {
  const OVOpaqueField* found = field(key);
  if (found == nullptr) throw std::invalid_argument("no field " + std::string(key));
  const auto number =
      ov::cast<OVNumber>(std::get<OVOpaqueValue::Inline>(found->value.content).object);
  if (number == nullptr) throw std::invalid_argument("no number " + std::string(key));
  return number->integerValue();
}

const OVOpaqueField* ArchivedForm::field(std::string_view key) const {
  for (const OVOpaqueField& field : object_->fields()) {
    if (field.key == key) return &field;
  }
  return nullptr;
}
