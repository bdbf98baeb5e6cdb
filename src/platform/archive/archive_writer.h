#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/number.h>
#include <OVAddressBookSDK/opaque_object.h>

#include "platform/archive/class_table.h"
#include "platform/archive/key_numbers.h"
#include "platform/archive/leaf_table.h"
#include "platform/archive/plist_writer.h"

namespace ov::detail {

/// Lays an object graph out as a keyed archive.
///
/// Objects wait on a stack of their own and are written one after the other, so that no graph is
/// too deep. Each gets its UID when it is first met.
class ArchiveWriter {
 public:
  /// How often an object is met follows from its reference count as long as only the library's own
  /// classes are met; a host's class may hand out the same object in other ways.
  enum class Sharing : std::uint8_t { byReferenceCount, byIdentity };

  explicit ArchiveWriter(Sharing sharing);

  /// Null when a class was met that calls for `Sharing::byIdentity`.
  OVRef<OVData> archive(const OVRef<OVObject>& root);

  using Number = PlistWriter::Number;

  /// One field of the object being written. The first of two fields with one key counts.
  void field(std::string_view key, Number value);
  /// A field whose key is written as it stands.
  void rawField(std::string_view key, Number value);

  /// The UID of an object, for a field or an array.
  Number reference(const OVRef<OVObject>& object);
  Number reference(const OVString& text);
  /// An array as an object of its own.
  Number listReference(std::span<const OVRef<OVObject>> items);
  Number referenceArray(std::span<const OVRef<OVObject>> items);
  /// A value that stands in the object itself; equal ones are written once.
  Number inlineText(std::string_view text);
  Number inlineInteger(std::int64_t value);
  Number inlineBool(bool value);
  Number inlineReal(double value);
  Number inlineData(std::span<const std::byte> bytes);
  Number array(std::span<const Number> elements) { return plist_.array(elements); }
  Number opaqueValue(const OVOpaqueValue& value);

 private:
  struct ClassEntry {
    const OVClass* objectClass = nullptr;
    Number record = 0;  // 0: not written yet
    bool trusted = false;
  };
  struct Waiting {
    OVRef<OVObject> object;
    ClassEntry* entry;
    std::uint32_t uid;
  };

  Number writeTop(Number root);
  void writeWaiting(const Waiting& waiting);
  Number newReference(Number object);
  Number addLeaf();
  void writeLeaf(const OVObject& object, const OVClass& leafClass);
  Number inlineObject(const OVRef<OVObject>& object);
  Number arrayOf(const OVOpaqueValue::Array& values, bool asSet);
  [[nodiscard]] bool mayBeMetAgain(const OVRef<OVObject>& object, const OVClass& objectClass) const;
  ClassEntry& entryOf(const OVClass& objectClass);
  Number classRecord(ClassEntry& entry);
  Number classRecord(const OVOpaqueObject& object);
  Number classRecord(const OVString& name, std::span<const OVString> names,
                     std::span<const OVString> hints);
  Number textArray(std::span<const OVString> texts);
  Number key(std::string_view key);

  PlistWriter plist_;
  LeafTable inlineLeaves_;
  LeafTable leaves_;
  Sharing sharing_;
  bool restart_ = false;

  std::vector<Number> objects_;  // by UID
  Number nullReference_ = 0;
  std::unordered_map<const void*, Number> met_;
  std::vector<OVRef<OVObject>> kept_;  // so that no address in met_ is used twice
  std::vector<Waiting> waiting_;
  std::vector<Waiting> found_;

  std::unordered_map<const OVClass*, ClassEntry> classes_;
  std::array<ClassEntry*, 64> recentClasses_{};
  std::unordered_map<std::string, Number> classRecords_;
  KeyNumbers keys_;
  std::array<Number, 256> smallIntegers_{};
  std::vector<Number> fieldKeys_;
  std::vector<Number> fieldValues_;
};

}  // namespace ov::detail
