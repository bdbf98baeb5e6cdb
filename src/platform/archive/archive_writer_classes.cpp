#include "platform/archive/archive_keys.h"
#include "platform/archive/archive_writer.h"

namespace ov::detail {

ArchiveWriter::ClassEntry& ArchiveWriter::entryOf(const OVClass& objectClass) {
  const auto address = reinterpret_cast<std::uintptr_t>(&objectClass);
  ClassEntry*& recent = recentClasses_[(address >> 3) % recentClasses_.size()];
  if (recent != nullptr && recent->objectClass == &objectClass) return *recent;
  const auto [at, isNew] = classes_.try_emplace(&objectClass);
  if (isNew) {
    at->second.objectClass = &objectClass;
    at->second.trusted = sharing_ == Sharing::byIdentity || isLibraryClass(objectClass);
  }
  recent = &at->second;
  return *recent;
}

ArchiveWriter::Number ArchiveWriter::classRecord(ClassEntry& entry) {
  if (entry.record != 0) return entry.record;
  std::vector<OVString> names;
  for (const OVClass* at = entry.objectClass; at != nullptr; at = at->superclass) {
    names.emplace_back(at->name);
  }
  names.emplace_back(archive::kRootClass);
  entry.record = classRecord(names.front(), names, {});
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

  std::vector<Number> keys{key(archive::kClassName)};
  std::vector<Number> values{inlineText(name)};
  if (!names.empty()) {
    keys.push_back(key(archive::kClasses));
    values.push_back(textArray(names));
  }
  if (!hints.empty()) {
    keys.push_back(key(archive::kClassHints));
    values.push_back(textArray(hints));
  }
  const Number reference = newReference(plist_.dictionary(keys, values));
  classRecords_.emplace(std::move(identity), reference);
  return reference;
}

}  // namespace ov::detail
