#include "platform/archive/written_classes.h"

#include <utility>
#include <vector>

#include "platform/archive/class_table.h"

namespace ov::detail {

WrittenClasses::Entry& WrittenClasses::add(const OVClass& objectClass) {
  Entry& entry = entries_[&objectClass];
  entry.objectClass = &objectClass;
  if (&objectClass == &kTextClass) entry.kind = Kind::text;
  if (&objectClass == &kNumberClass || &objectClass == &kDataClass) entry.kind = Kind::leaf;
  if (&objectClass == &kOpaqueClass) entry.kind = Kind::opaque;
  entry.isHosts = !isLibraryClass(objectClass);
  entry.isTrusted = !entry.isHosts || objectClass.encodesItsOwnOnce;
  if (!entry.isTrusted || objectClass.make == nullptr) return entry;
  if (const OVRef<OVObject> example = objectClass.make()) {
    const OVObject& object = *example;
    entry.type = &typeid(object);
  }
  return entry;
}

WrittenClasses::Number WrittenClasses::newRecord(Entry& entry) {
  const OVClass& objectClass = *entry.objectClass;
  std::vector<OVString> names{objectClass.name};
  for (const OVClass* at = objectClass.superclass; at != nullptr; at = at->superclass) {
    names.emplace_back(at->name);
  }
  names.emplace_back(archive::kRootClass);
  std::vector<OVString> hints;
  if (objectClass.standIn != nullptr) hints.emplace_back(objectClass.standIn->name);
  entry.record = record(names.front(), names, hints);
  return entry.record;
}

WrittenClasses::Number WrittenClasses::record(const OVOpaqueObject& object) {
  const OVString name = object.className();
  auto& [kept, known] = opaque_[name.c_str()];
  if (known == 0) {
    kept = name;
    known = record(name, object.classes(), object.classHints());
  }
  return known;
}

WrittenClasses::Number WrittenClasses::record(const OVString& name, std::span<const OVString> names,
                                              std::span<const OVString> hints) {
  std::string identity = name.str();
  for (const OVString& each : names) identity.append(1, '\0').append(each);
  for (const OVString& each : hints) identity.append(1, '\1').append(each);
  if (const auto at = records_.find(identity); at != records_.end()) return at->second;

  std::vector<PlistWriter::Entry> entries{{values_.key(archive::kClassName), values_.text(name)}};
  if (!names.empty()) entries.push_back({values_.key(archive::kClasses), values_.texts(names)});
  if (!hints.empty()) entries.push_back({values_.key(archive::kClassHints), values_.texts(hints)});
  const Number reference = objects_.add(plist_.dictionary(entries));
  records_.emplace(std::move(identity), reference);
  return reference;
}

}  // namespace ov::detail
