#include "platform/archive/archive_writer.h"

#include <cxxabi.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <typeinfo>

#include <OVAddressBookSDK/list.h>

namespace ov::detail {

namespace {

[[noreturn]] void raiseRefused(const OVObject& object, const std::string& path) {
  const char* mangled = typeid(object).name();
  int status = 0;
  const std::unique_ptr<char, decltype(&std::free)> readable(
      abi::__cxa_demangle(mangled, nullptr, nullptr, &status), &std::free);
  throw std::invalid_argument(std::string("OVKeyedArchiver: the class ") +
                              (readable ? readable.get() : mangled) + " cannot be archived" +
                              (path.empty() ? "" : ", at " + path) +
                              ": let it override classForCoder()");
}

}  // namespace

ArchiveWriter::ArchiveWriter(Sharing sharing)
    : inlineLeaves_(plist_), leaves_(plist_), sharing_(sharing) {
  if (sharing == Sharing::byIdentityWithPlaces) places_ = std::make_unique<ArchivePlaces>();
  nullReference_ = newReference(plist_.text(archive::kNull));
}

OVRef<OVData> ArchiveWriter::archive(const OVRef<OVObject>& root) {
  const Number rootReference = reference(root);
  if (places_ != nullptr) namePlaces({});
  while (!restart_ && !waiting_.empty()) {
    const Waiting next = std::move(waiting_.back());
    waiting_.pop_back();
    const auto others = static_cast<std::ptrdiff_t>(waiting_.size());
    writeWaiting(next);
    // What was met first is to be written first.
    std::reverse(waiting_.begin() + others, waiting_.end());
  }
  return restart_ ? nullptr : plist_.finish(writeTop(rootReference));
}

void ArchiveWriter::writeWaiting(const Waiting& waiting) {
  fields_.clear();
  ClassEntry& entry = *waiting.entry;
  writesHosts_ = !entry.isTrusted;
  nextKey_ = KeySequence::Walk(entry.keys);
  if (places_ != nullptr) places_->enter(*waiting.object);
  OVKeyedArchiver coder(*this);
  waiting.object->encodeWithCoder(coder);
  const Number record = entry.kind == Kind::opaque
                            ? classRecord(static_cast<const OVOpaqueObject&>(*waiting.object))
                            : classRecord(entry);
  fields_.push_back({classKey(), record});
  objects_[waiting.uid] = plist_.dictionary(fields_.span());
}

ArchiveWriter::Number ArchiveWriter::writeTop(Number root) {
  using Entry = PlistWriter::Entry;
  const Number top = plist_.dictionary(std::array{Entry{key(archive::kRoot), root}});
  const Entry version{key(archive::kVersion), inlineInteger(archive::kVersionNumber)};
  const Entry archiver{key(archive::kArchiver), inlineText(archive::kArchiverName)};
  const Number topKey = key(archive::kTop);
  const Number objectsKey = key(archive::kObjects);
  const Number objects = plist_.array(objects_.span());
  objects_.reset();
  return plist_.dictionary(
      std::array{version, archiver, Entry{topKey, top}, Entry{objectsKey, objects}});
}

ArchiveWriter::Number ArchiveWriter::reference(const OVRef<OVObject>& object) {
  return leafOrObjectReference(object, nullptr);
}

ArchiveWriter::Number ArchiveWriter::reference(OVRef<OVObject>&& copy) {
  return leafOrObjectReference(copy, &copy);
}

ArchiveWriter::Number ArchiveWriter::leafOrObjectReference(const OVRef<OVObject>& object,
                                                           OVRef<OVObject>* copy) {
  if (object == nullptr) return nullReference_;
  const OVClass* objectClass = object->classForCoder();
  if (objectClass == nullptr) return refuse(object);
  ClassEntry& entry = entryOf(*objectClass);
  const bool isShared = object.use_count() != (copy == nullptr ? 1 : 2);
  switch (entry.kind) {
    case Kind::text:
      if (!isShared) return textReference(static_cast<const TextObject&>(*object));
      [[fallthrough]];
    case Kind::number:
    case Kind::data:
      return leafReference(object, entry.kind, isShared);
    default:
      return objectReference(object, entry, isShared, copy);
  }
}

/// The error waits for the key under which the object stands.
ArchiveWriter::Number ArchiveWriter::refuse(const OVRef<OVObject>& object) {
  if (places_ == nullptr) {
    restart_ = true;
  } else if (refused_ == nullptr) {
    places_->meet(*object);
    refused_ = object;
  }
  return nullReference_;
}

void ArchiveWriter::namePlaces(std::string_view key) {
  places_->name(key);
  if (refused_ != nullptr) raiseRefused(*refused_, places_->pathTo(*refused_));
}

ArchiveWriter::Number ArchiveWriter::objectReference(const OVRef<OVObject>& object,
                                                     ClassEntry& entry, bool isShared,
                                                     OVRef<OVObject>* copy) {
  if (countsReferences() && !entry.trusts(*object)) restart_ = true;
  const auto uid = static_cast<std::uint32_t>(objects_.size());
  Number reference = 0;
  if (countsReferences() && !isShared) {
    reference = newReference(0);
  } else {
    const auto [known, isNew] = met_.at(object.get());
    if (!isNew) return known.number;
    if (!countsReferences() || copy != nullptr) kept_.push_back(object);
    if (places_ != nullptr) places_->meet(*object);
    reference = known.number = newReference(0);
  }
  waiting_.push_back({object.get(), &entry, uid, copy == nullptr ? nullptr : std::move(*copy)});
  return reference;
}

ArchiveWriter::Number ArchiveWriter::reference(const OVString& text) {
  return text.isNull() ? nullReference_ : textReference(*text.text_);
}

/// What is shared is known again by its address; what is not, where it was written lately.
ArchiveWriter::Number ArchiveWriter::textReference(const TextObject& text) {
  const auto write = [&] {
    plist_.text({text.data(), text.size()});
    return newLeafReference();
  };
  if (!text.isShared()) return write();
  const auto [known, isNew] = met_.at(&text);
  if (isNew) {
    text.retain();
    keptTexts_.emplace_back(OVString(&text));
    known.number = write();
  }
  return known.number;
}

ArchiveWriter::Number ArchiveWriter::leafReference(const OVRef<OVObject>& object, Kind kind,
                                                   bool isShared) {
  const auto write = [&] {
    writeLeaf(*object, kind);
    return newLeafReference();
  };
  if (!isShared) return write();
  const auto [known, isNew] = met_.at(object.get());
  if (isNew) {
    kept_.push_back(object);
    known.number = write();
  }
  return known.number;
}

/// A leaf's UID follows it directly.
ArchiveWriter::Number ArchiveWriter::newLeafReference() {
  const RecentLeaves::Result leaf = leaves_.addLast();
  return leaf.isNew ? newReference(leaf.object) : leaf.object + 1;
}

ArchiveWriter::Number ArchiveWriter::referenceArray(std::span<const OVRef<OVObject>> items) {
  const std::size_t first = elements_.size();
  for (const OVRef<OVObject>& item : items) elements_.push_back(reference(item));
  const Number array = plist_.array(elements_.from(first));
  elements_.truncate(first);
  return array;
}

void ArchiveWriter::entryFields(const DictionaryObject& dictionary) {
  const std::size_t count = dictionary.size();
  const std::size_t keys = elements_.size();
  const std::size_t values = keys + count;
  elements_.extend(2 * count);
  std::size_t i = 0;
  for (const DictionaryObject::Entry& entry : dictionary.entries()) {
    if (entry.key.isNull()) continue;
    elements_[keys + i] = reference(entry.key);
    elements_[values + i] = reference(entry.value);
    ++i;
  }
  field(archive::kDictionaryKeys, plist_.array(elements_.span().subspan(keys, count)));
  field(archive::kArrayObjects, plist_.array(elements_.span().subspan(values, count)));
  elements_.truncate(keys);
}

ArchiveWriter::Number ArchiveWriter::listReference(std::span<const OVRef<OVObject>> items) {
  if (writesHosts_ || places_ != nullptr) {
    // Where nobody knows the class, it comes back with a list, and is to be written like this.
    const auto list = std::make_shared<ListObject>();
    list->items.assign(items.begin(), items.end());
    return reference(list);
  }
  const std::size_t uid = objects_.size();
  const Number reference = newReference(0);
  const PlistWriter::Entry elements{key(archive::kArrayObjects), referenceArray(items)};
  const PlistWriter::Entry type{classKey(), classRecord(entryOf(kMutableArrayClass))};
  objects_[uid] = plist_.dictionary(std::array{elements, type});
  return reference;
}

}  // namespace ov::detail
