#include "platform/archive/archive_writer.h"

namespace ov::detail {

ArchiveWriter::Kind ArchiveWriter::kindOf(const OVClass& objectClass) {
  if (&objectClass == &kTextClass) return Kind::text;
  if (&objectClass == &kNumberClass) return Kind::number;
  if (&objectClass == &kDataClass) return Kind::data;
  if (&objectClass == &kDateClass) return Kind::date;
  if (&objectClass == &kOpaqueClass) return Kind::opaque;
  return Kind::other;
}

ArchiveWriter::ClassEntry& ArchiveWriter::newEntryOf(const OVClass& objectClass) {
  const auto [at, isNew] = classes_.try_emplace(&objectClass);
  if (isNew) {
    at->second.objectClass = &objectClass;
    at->second.kind = kindOf(objectClass);
    at->second.isTrusted = isLibraryClass(objectClass) || objectClass.encodesItsOwnOnce;
    if (at->second.isTrusted && objectClass.make != nullptr) {
      const OVRef<OVObject> example = objectClass.make();
      const OVObject& object = *example;
      at->second.type = &typeid(object);
    }
  }
  recentClasses_[recentSlot(&objectClass)] = &at->second;
  return at->second;
}

ArchiveWriter::Number ArchiveWriter::newClassRecord(ClassEntry& entry) {
  const OVClass& objectClass = *entry.objectClass;
  std::vector<OVString> names{objectClass.name};
  for (const OVClass* at = objectClass.superclass; at != nullptr; at = at->superclass) {
    names.emplace_back(at->name);
  }
  names.emplace_back(archive::kRootClass);
  std::vector<OVString> hints;
  if (objectClass.standIn != nullptr) hints.emplace_back(objectClass.standIn->name);
  entry.record = classRecord(names.front(), names, hints);
  return entry.record;
}

ArchiveWriter::Number ArchiveWriter::classRecord(const OVOpaqueObject& object) {
  return classRecord(object.className(), object.classes(), object.classHints());
}

/// One record for each class that reads the same.
ArchiveWriter::Number ArchiveWriter::classRecord(const OVString& name,
                                                 std::span<const OVString> names,
                                                 std::span<const OVString> hints) {
  std::string identity = name.str();
  for (const OVString& each : names) identity.append(1, '\0').append(each);
  for (const OVString& each : hints) identity.append(1, '\1').append(each);
  if (const auto at = classRecords_.find(identity); at != classRecords_.end()) return at->second;

  std::vector<PlistWriter::Entry> entries{{key(archive::kClassName), inlineText(name)}};
  if (!names.empty()) entries.push_back({key(archive::kClasses), textArray(names)});
  if (!hints.empty()) entries.push_back({key(archive::kClassHints), textArray(hints)});
  const Number reference = newReference(plist_.dictionary(entries));
  classRecords_.emplace(std::move(identity), reference);
  return reference;
}

}  // namespace ov::detail
