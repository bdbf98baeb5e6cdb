// How lists, dictionaries, numbers, data and opaque objects are written and filled. Where
// Foundation has such a class, it is under that name.

#include <new>
#include <utility>

#include <OVAddressBookSDK/data.h>
#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/number.h>
#include <OVAddressBookSDK/opaque_object.h>
#include <OVAddressBookSDK/text.h>

#include "platform/archive/archive_keys.h"
#include "platform/archive/archive_reader.h"
#include "platform/archive/archive_writer.h"
#include "platform/dispose.h"

namespace ov::detail {

constexpr OVClass kTextClass{"NSString", nullptr, nullptr};
constexpr OVClass kMutableTextClass{"NSMutableString", &kTextClass, nullptr};
constexpr OVClass kNumberClass{"NSNumber", nullptr, nullptr};
constexpr OVClass kDataClass{"NSData", nullptr, nullptr};
constexpr OVClass kMutableDataClass{"NSMutableData", &kDataClass, nullptr};
constexpr OVClass kOpaqueClass{"", nullptr, nullptr};
constexpr OVClass kArrayClass{"NSArray", nullptr, nullptr};
constexpr OVClass kMutableArrayClass{"NSMutableArray", &kArrayClass, nullptr};
constexpr OVClass kDictionaryClass{"NSDictionary", nullptr, nullptr};
constexpr OVClass kMutableDictionaryClass{"NSMutableDictionary", &kDictionaryClass, nullptr};

const OVClass* TextObject::classForCoder() const { return &kTextClass; }

const OVClass* ListObject::classForCoder() const {
  return immutable ? &kArrayClass : &kMutableArrayClass;
}

void ListObject::encodeWithCoder(OVKeyedArchiver& coder) const {
  ArchiveWriter& writer = coder.writer_;
  writer.field(archive::kArrayObjects, writer.referenceArray(items));
}

void ListObject::initWithCoder(OVKeyedUnarchiver& coder) {
  items.clear();
  coder.reader_.readElements(coder.fields_, archive::kArrayObjects, items);
}

const OVClass* DictionaryObject::classForCoder() const {
  return immutable ? &kDictionaryClass : &kMutableDictionaryClass;
}

void DictionaryObject::encodeWithCoder(OVKeyedArchiver& coder) const {
  coder.writer_.entryFields(*this);
}

void DictionaryObject::initWithCoder(OVKeyedUnarchiver& coder) {
  clear();
  coder.reader_.readEntries(coder.fields_, *this);
}

}  // namespace ov::detail

using ov::detail::ArchiveWriter;

namespace {

using References = std::vector<OVRef<OVObject>>;

/// Takes the objects that the value refers to, however deep inside its containers. Without memory
/// to keep one, it goes at once.
void takeReferences(OVOpaqueValue& value, References& taken) noexcept {
  if (auto* reference = std::get_if<OVOpaqueValue::Reference>(&value.content)) {
    if (reference->object == nullptr) return;
    try {
      taken.push_back(std::move(reference->object));
    } catch (const std::bad_alloc&) {
      // cppcheck-suppress accessMoved ; a push_back that throws has not moved anything
      ov::detail::dispose(std::move(reference->object));
    }
  } else if (auto* array = std::get_if<OVOpaqueValue::Array>(&value.content)) {
    for (OVOpaqueValue& element : *array) takeReferences(element, taken);
  } else if (auto* set = std::get_if<OVOpaqueValue::Set>(&value.content)) {
    for (OVOpaqueValue& element : set->elements) takeReferences(element, taken);
  } else if (auto* dictionary = std::get_if<OVOpaqueValue::Dictionary>(&value.content)) {
    for (OVOpaqueField& field : *dictionary) takeReferences(field.value, taken);
  }
}

}  // namespace

const OVClass* OVData::classForCoder() const { return &ov::detail::kDataClass; }

const OVClass* OVNumber::classForCoder() const { return &ov::detail::kNumberClass; }

OVOpaqueObject::~OVOpaqueObject() {
  // Disposed of once the containers are left, so that their depth and that of the objects do not
  // multiply.
  References taken;
  for (OVOpaqueField& field : fields_) takeReferences(field.value, taken);
  for (OVRef<OVObject>& object : taken) ov::detail::dispose(std::move(object));
}

const OVClass* OVOpaqueObject::classForCoder() const { return &ov::detail::kOpaqueClass; }

void OVOpaqueObject::encodeWithCoder(OVKeyedArchiver& coder) const {
  ArchiveWriter& writer = coder.writer_;
  for (const OVOpaqueField& field : fields_)
    writer.rawField(field.key, writer.opaqueValue(field.value));
}

void OVOpaqueObject::initWithCoder(OVKeyedUnarchiver& coder) {
  fields_.clear();
  fields_ = coder.reader_.opaque().fields(coder.fields_.dictionary);
}
