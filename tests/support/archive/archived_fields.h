#pragma once

#include <cstdint>
#include <string_view>
#include <variant>
#include <vector>

#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/opaque_object.h>
#include <OVAddressBookSDK/text.h>

struct ArchivedField {
  std::string_view key;
  std::variant<OVRef<OVObject>, std::int64_t> value;
};

/// An object that archives itself under any class name with any fields: what other programs, other
/// versions and mischief put into archives.
OVRef<OVObject> archivedAs(const char* className, std::vector<ArchivedField> fields);

/// What is in an archive under a class that no program knows.
OVRef<OVObject> foreignObject();
/// True for that object, after any number of ways through archives.
bool isForeignObject(const OVRef<OVObject>& object);

/// The object after a way through an archive.
OVRef<OVObject> restored(const OVRef<OVObject>& object);
template <class T>
ov::Handle<T> restored(const OVRef<OVObject>& object) {
  return ov::cast<T>(restored(object));
}

/// What an archive holds of one object.
class ArchivedForm {
 public:
  /// Of the root of an archive of `object`.
  explicit ArchivedForm(const OVRef<OVObject>& object);

  std::string className() const { return object_->className().str(); }
  /// The class and its superclasses, nearest first.
  std::vector<OVString> classes() const { return object_->classes(); }
  /// In the order in which they were written.
  std::vector<OVString> keys() const;
  /// What the key refers to; null for null and when there is no such key.
  OVRef<OVObject> object(std::string_view key) const;
  /// A number in the object itself; throws when there is none.
  std::int64_t integer(std::string_view key) const;

 private:
  const OVOpaqueField* field(std::string_view key) const;

  OVRef<OVOpaqueObject> object_;
};
