#include "platform/archive/archive_writer.h"

#include <cxxabi.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <typeinfo>
#include <utility>

#include <OVAddressBookSDK/date.h>

#include "platform/archive/archive_keys.h"

namespace ov::detail {

namespace {

bool isList(const OVClass& objectClass) {
  return &objectClass == &kArrayClass || &objectClass == &kMutableArrayClass;
}

bool isDictionary(const OVClass& objectClass) {
  return &objectClass == &kDictionaryClass || &objectClass == &kMutableDictionaryClass;
}

/// What makes two references to a list or dictionary the same: its elements, not the typed view.
const void* identityOf(const OVObject& object, const OVClass& objectClass) {
  if (isList(objectClass)) return static_cast<const AnyList&>(object).elements().get();
  if (isDictionary(objectClass)) return static_cast<const AnyDictionary&>(object).entries().get();
  return &object;
}

bool isLeaf(const OVClass& objectClass) {
  return &objectClass == &kTextClass || &objectClass == &kNumberClass ||
         &objectClass == &kDataClass;
}

[[noreturn]] void refuse(const OVObject& object) {
  const char* mangled = typeid(object).name();
  int status = 0;
  const std::unique_ptr<char, decltype(&std::free)> readable(
      abi::__cxa_demangle(mangled, nullptr, nullptr, &status), &std::free);
  throw std::invalid_argument(std::string("OVKeyedArchiver: the class ") +
                              (readable ? readable.get() : mangled) +
                              " cannot be archived: let it override classForCoder()");
}

}  // namespace

ArchiveWriter::ArchiveWriter(Sharing sharing)
    : inlineLeaves_(plist_), leaves_(plist_), sharing_(sharing) {
  nullReference_ = newReference(plist_.text(archive::kNull));
}

OVRef<OVData> ArchiveWriter::archive(const OVRef<OVObject>& root) {
  const Number rootReference = reference(root);
  while (!restart_) {
    std::move(found_.rbegin(), found_.rend(), std::back_inserter(waiting_));
    found_.clear();
    if (waiting_.empty()) return plist_.finish(writeTop(rootReference));
    const Waiting next = std::move(waiting_.back());
    waiting_.pop_back();
    writeWaiting(next);
  }
  return nullptr;
}

void ArchiveWriter::writeWaiting(const Waiting& waiting) {
  fieldKeys_.clear();
  fieldValues_.clear();
  OVKeyedArchiver coder(*this);
  waiting.object->encodeWithCoder(coder);
  const bool isOpaque = waiting.entry->objectClass == &kOpaqueClass;
  rawField(archive::kClass, isOpaque
                                ? classRecord(static_cast<const OVOpaqueObject&>(*waiting.object))
                                : classRecord(*waiting.entry));
  objects_[waiting.uid] = plist_.dictionary(fieldKeys_, fieldValues_);
}

ArchiveWriter::Number ArchiveWriter::writeTop(Number root) {
  const Number top = plist_.dictionary(std::vector{key(archive::kRoot)}, std::vector{root});
  const std::vector keys{key(archive::kVersion), key(archive::kArchiver), key(archive::kTop),
                         key(archive::kObjects)};
  const std::vector values{inlineInteger(archive::kVersionNumber),
                           inlineText(archive::kArchiverName), top, plist_.array(objects_)};
  return plist_.dictionary(keys, values);
}

/// A new UID for an object of the list; 0 stands for one that is written later.
ArchiveWriter::Number ArchiveWriter::newReference(Number object) {
  objects_.push_back(object);
  return plist_.uid(static_cast<std::uint32_t>(objects_.size() - 1));
}

ArchiveWriter::Number ArchiveWriter::reference(const OVRef<OVObject>& object) {
  if (object == nullptr) return nullReference_;
  const OVClass* objectClass = object->classForCoder();
  if (objectClass == nullptr) refuse(*object);
  if (isLeaf(*objectClass)) {
    writeLeaf(*object, *objectClass);
    return addLeaf();
  }
  ClassEntry& entry = entryOf(*objectClass);
  if (!entry.trusted) restart_ = true;
  Number* known = nullptr;
  if (mayBeMetAgain(object, *objectClass)) {
    const auto [at, isNew] = met_.try_emplace(identityOf(*object, *objectClass), 0);
    if (!isNew) return at->second;
    kept_.push_back(object);
    known = &at->second;
  }
  const auto uid = static_cast<std::uint32_t>(objects_.size());
  const Number reference = newReference(0);
  if (known != nullptr) *known = reference;
  found_.push_back({object, &entry, uid});
  return reference;
}

/// What is referred to once can be met but once, and needs no look-up.
bool ArchiveWriter::mayBeMetAgain(const OVRef<OVObject>& object, const OVClass& objectClass) const {
  if (sharing_ == Sharing::byIdentity || object.use_count() != 1) return true;
  if (isList(objectClass)) return static_cast<const AnyList&>(*object).elements().use_count() != 1;
  return isDictionary(objectClass) &&
         static_cast<const AnyDictionary&>(*object).entries().use_count() != 1;
}

ArchiveWriter::Number ArchiveWriter::reference(const OVString& text) {
  if (text.isNull()) return nullReference_;
  plist_.text(text.view());
  return addLeaf();
}

void ArchiveWriter::writeLeaf(const OVObject& object, const OVClass& leafClass) {
  if (&leafClass == &kTextClass) {
    const auto& text = static_cast<const TextObject&>(object);
    plist_.text({text.data(), text.size()});
  } else if (&leafClass == &kDataClass) {
    plist_.data(static_cast<const OVData&>(object).bytes());
  } else if (&leafClass == &kDateClass) {
    plist_.date(static_cast<const OVDate&>(object).timeIntervalSinceReferenceDate());
  } else {
    const auto& number = static_cast<const OVNumber&>(object).value();
    if (const auto* flag = std::get_if<bool>(&number)) {
      plist_.boolean(*flag);
    } else if (const auto* integer = std::get_if<std::int64_t>(&number)) {
      plist_.integer(*integer);
    } else if (const auto* natural = std::get_if<std::uint64_t>(&number)) {
      plist_.unsignedInteger(*natural);
    } else {
      plist_.real(std::get<double>(number));
    }
  }
}

/// The reference to the leaf written last. A leaf's UID follows it directly.
ArchiveWriter::Number ArchiveWriter::addLeaf() {
  const auto [object, isNew] = leaves_.addLast();
  return isNew ? newReference(object) : object + 1;
}

ArchiveWriter::Number ArchiveWriter::referenceArray(std::span<const OVRef<OVObject>> items) {
  std::vector<Number> references;
  references.reserve(items.size());
  for (const OVRef<OVObject>& item : items) references.push_back(reference(item));
  return plist_.array(references);
}

ArchiveWriter::Number ArchiveWriter::listReference(std::span<const OVRef<OVObject>> items) {
  const auto uid = objects_.size();
  const Number reference = newReference(0);
  const std::vector keys{key(archive::kArrayObjects), key(archive::kClass)};
  const Number elements = referenceArray(items);
  const std::vector values{elements, classRecord(entryOf(kMutableArrayClass))};
  objects_[uid] = plist_.dictionary(keys, values);
  return reference;
}

}  // namespace ov::detail
