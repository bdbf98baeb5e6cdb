// The walk that writes objects. An object gets its UID when it is first met and is written later,
// so that nothing recurses. Only what may be met twice is looked up by its address.

#include "platform/archive/archive_writer.h"

#include <algorithm>
#include <array>
#include <utility>
#include <variant>

#include <OVAddressBookSDK/list.h>

#include "platform/archive/archive_keys.h"
#include "platform/archive/class_table.h"

namespace ov::detail {

ArchiveWriter::ArchiveWriter(Sharing sharing)
    : objects_(plist_),
      values_(plist_),
      classes_(plist_, values_, objects_),
      fields_(values_),
      sharing_(sharing) {
  if (sharing == Sharing::byIdentityWithPlaces) places_ = std::make_unique<ArchivePlaces>();
}

OVRef<OVData> ArchiveWriter::archive(const OVRef<OVObject>& root) {
  const Number rootReference = reference(root);
  if (places_ != nullptr) places_->name({});
  while (!restart_ && !waiting_.empty()) {
    const Waiting next = std::move(waiting_.back());
    waiting_.pop_back();
    const auto others = static_cast<std::ptrdiff_t>(waiting_.size());
    write(next);
    // What was met first is to be written first.
    std::reverse(waiting_.begin() + others, waiting_.end());
  }
  if (restart_) return nullptr;
  met_.reset();  // the table that is still to come takes as much memory
  using Entry = PlistWriter::Entry;
  const Number top =
      plist_.dictionary(std::array{Entry{values_.key(archive::kRoot), rootReference}});
  const Entry version{values_.key(archive::kVersion), values_.integer(archive::kVersionNumber)};
  const Entry archiver{values_.key(archive::kArchiver), values_.text(archive::kArchiverName)};
  const Number topKey = values_.key(archive::kTop);
  const Number objectsKey = values_.key(archive::kObjects);
  return plist_.finish(plist_.dictionary(
      std::array{version, archiver, Entry{topKey, top}, Entry{objectsKey, objects_.array()}}));
}

void ArchiveWriter::write(const Waiting& waiting) {
  ClassEntry& entry = *waiting.entry;
  writesHosts_ = entry.isHosts;
  fields_.begin(countsReferences() && !writesHosts_ ? &entry.keys : nullptr);
  if (places_ != nullptr) places_->enter(*waiting.object);
  OVKeyedArchiver coder(*this);
  waiting.object->encodeWithCoder(coder);
  const Number record = entry.kind == WrittenClasses::Kind::opaque
                            ? classes_.record(static_cast<const OVOpaqueObject&>(*waiting.object))
                            : classes_.record(entry);
  fields_.addRaw(classes_.key(), record);
  objects_.place(waiting.uid, plist_.dictionary(fields_.entries()));
}

ArchiveWriter::Number ArchiveWriter::reference(const OVRef<OVObject>& object,
                                               OVRef<OVObject>* copy) {
  if (object == nullptr) return objects_.null();
  const OVClass* objectClass = object->classForCoder();
  if (objectClass == nullptr) {
    restart_ = places_ == nullptr;
    if (!restart_) places_->refuse(object);
    return objects_.null();
  }
  ClassEntry& entry = classes_.of(*objectClass);
  const bool isShared = object.use_count() != (copy == nullptr ? 1 : 2);
  const bool isText = entry.kind == WrittenClasses::Kind::text;
  if (!isText && entry.kind != WrittenClasses::Kind::leaf) {
    return objectReference(object, entry, isShared, copy);
  }
  const bool isSharedText = isText && static_cast<const TextObject&>(*object).isShared();
  return leafReference(*object, object, isShared || isSharedText);
}

/// What is shared is recognised by its address; what is not, if it was written lately.
template <class Handle>
ArchiveWriter::Number ArchiveWriter::leafReference(const OVObject& leaf, const Handle& handle,
                                                   bool isShared) {
  const auto write = [&] { return objects_.addLeaf(writeLeaf(plist_, leaf)); };
  if (!isShared) return write();
  const auto [known, isNew] = met_->at(leaf, handle);
  if (isNew) known.number = write();
  return known.number;
}

template ArchiveWriter::Number ArchiveWriter::leafReference(const OVObject&, const OVString&, bool);

ArchiveWriter::Number ArchiveWriter::objectReference(const OVRef<OVObject>& object,
                                                     ClassEntry& entry, bool isShared,
                                                     OVRef<OVObject>* copy) {
  if (countsReferences() && !entry.isOf(*object)) restart_ = true;
  const std::uint32_t uid = objects_.nextUid();
  Number reference = 0;
  if (countsReferences() && !isShared) {
    reference = objects_.add();
  } else {
    const auto [known, isNew] = met_->at(*object, object);
    if (!isNew) return known.number;
    if (places_ != nullptr) places_->meet(*object);
    reference = known.number = objects_.add();
  }
  waiting_.push_back({object.get(), &entry, uid, nullptr});
  // A host may break its promise to hold what it encodes.
  if (copy != nullptr) {
    waiting_.back().keeper = std::move(*copy);
  } else if (writesHosts_) {
    waiting_.back().keeper = object;
  }
  return reference;
}

ArchiveWriter::Number ArchiveWriter::referenceArray(std::span<const OVRef<OVObject>> items) {
  elements_.clear();
  for (const OVRef<OVObject>& item : items) elements_.push_back(reference(item));
  return plist_.array(elements_);
}

void ArchiveWriter::entryFields(const DictionaryObject& dictionary) {
  const std::size_t count = dictionary.size() + dictionary.repeated().size();
  elements_.resize(2 * count);
  const std::span<Number> keys = std::span(elements_).first(count);
  const std::span<Number> values = std::span(elements_).last(count);
  std::size_t i = 0;
  for (const auto* entries : {&dictionary.entries(), &dictionary.repeated()}) {
    for (const DictionaryObject::Entry& entry : *entries) {
      if (entry.key.isNull()) continue;
      keys[i] = reference(entry.key);
      values[i++] = reference(entry.value);
    }
  }
  field(archive::kDictionaryKeys, plist_.array(keys));
  field(archive::kArrayObjects, plist_.array(values));
}

ArchiveWriter::Number ArchiveWriter::listReference(std::span<const OVRef<OVObject>> items) {
  if (writesHosts_ || places_ != nullptr) {
    // Where nobody knows the class, it comes back with a list, and is to be written like this.
    const auto list = std::make_shared<ListObject>();
    list->items.assign(items.begin(), items.end());
    return reference(list);
  }
  const std::uint32_t uid = objects_.nextUid();
  const Number reference = objects_.add();
  const PlistWriter::Entry elements{values_.key(archive::kArrayObjects), referenceArray(items)};
  const PlistWriter::Entry type{classes_.key(), classes_.record(classes_.of(kMutableArrayClass))};
  objects_.place(uid, plist_.dictionary(std::array{elements, type}));
  return reference;
}

ArchiveWriter::Number ArchiveWriter::opaqueValue(const OVOpaqueValue& value) {
  if (const auto* reference = std::get_if<OVOpaqueValue::Reference>(&value.content)) {
    return this->reference(reference->object);
  }
  if (const auto* leaf = std::get_if<OVOpaqueValue::Inline>(&value.content)) {
    return values_.leaf(leaf->object);
  }
  if (const auto* array = std::get_if<OVOpaqueValue::Array>(&value.content)) {
    return plist_.array(opaqueValues(*array));
  }
  if (const auto* set = std::get_if<OVOpaqueValue::Set>(&value.content)) {
    return plist_.set(opaqueValues(set->elements));
  }
  std::vector<PlistWriter::Entry> entries;
  for (const auto& [name, member] : std::get<OVOpaqueValue::Dictionary>(value.content)) {
    entries.push_back({values_.key(name), opaqueValue(member)});
  }
  return plist_.dictionary(entries);
}

std::vector<ArchiveWriter::Number> ArchiveWriter::opaqueValues(const OVOpaqueValue::Array& values) {
  std::vector<Number> numbers;
  for (const OVOpaqueValue& value : values) numbers.push_back(opaqueValue(value));
  return numbers;
}

}  // namespace ov::detail
