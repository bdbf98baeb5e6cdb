#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <typeinfo>
#include <unordered_map>
#include <vector>

#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/opaque_object.h>
#include <OVAddressBookSDK/text.h>

#include "platform/archive/archive_keys.h"
#include "platform/archive/archive_places.h"
#include "platform/archive/class_table.h"
#include "platform/archive/growing_array.h"
#include "platform/archive/key_numbers.h"
#include "platform/archive/key_sequence.h"
#include "platform/archive/leaf_table.h"
#include "platform/archive/plist_writer.h"
#include "platform/archive/pointer_map.h"

namespace ov::detail {

/// Lays an object graph out as a keyed archive.
///
/// Objects wait on a stack of their own and are written one after the other, so that no graph is
/// too deep. Each gets its UID when it is first met.
class ArchiveWriter {
 public:
  /// The library's own classes write each field once, under a constant key, and hand out the
  /// references they hold, each once: an object is met as often as its references are counted, and
  /// lives as long as the graph. A host's class may do otherwise, unless it promises the same.
  ///
  /// In an archive that cannot be written, something cannot be archived: the last way finds out
  /// where that stands.
  enum class Sharing : std::uint8_t { byReferenceCount, byIdentity, byIdentityWithPlaces };

  explicit ArchiveWriter(Sharing sharing);

  /// Null when something was met that calls for the next kind of `Sharing`.
  OVRef<OVData> archive(const OVRef<OVObject>& root);

  using Number = PlistWriter::Number;

  /// One field of the object being written. The first of two fields with one key counts.
  void field(std::string_view key, Number value);
  /// A field whose key is written as it stands.
  void rawField(std::string_view key, Number value);

  /// The UID of an object, for a field or an array.
  Number reference(const OVRef<OVObject>& object);
  /// The same for a copy of the owner's reference: another thread may replace that meanwhile.
  Number reference(OVRef<OVObject>&& copy);
  Number reference(const OVString& text);
  /// An array as an object of its own.
  Number listReference(std::span<const OVRef<OVObject>> items);
  Number referenceArray(std::span<const OVRef<OVObject>> items);
  /// The fields of a dictionary object.
  void entryFields(const DictionaryObject& dictionary);
  /// A value that stands in the object itself; equal ones are written once.
  Number inlineText(std::string_view text);
  Number inlineInteger(std::int64_t value);
  Number inlineBool(bool value);
  Number inlineReal(double value);
  Number inlineData(std::span<const std::byte> bytes);
  Number opaqueValue(const OVOpaqueValue& value);

 private:
  enum class Kind : std::uint8_t { text, number, data, date, opaque, other };
  struct ClassEntry {
    const OVClass* objectClass = nullptr;
    Number record = 0;  // 0: not written yet
    Kind kind = Kind::other;
    bool isTrusted = false;
    /// The very class, where a host may derive one that archives under the same name.
    const std::type_info* type = nullptr;
    KeySequence keys;

    [[nodiscard]] bool trusts(const OVObject& object) const {
      return isTrusted && (type == nullptr || typeid(object) == *type);
    }
  };
  struct Waiting {
    const OVObject* object;
    ClassEntry* entry;
    std::uint32_t uid;
    OVRef<OVObject> keeper;  // null when the object's owner keeps it
  };
  struct PromisedText {
    OVString text;
    LeafTable::Hash hash;
  };
  struct RecentText {
    OVString text;  // so that its address is used for no other
    Number reference;
  };

  static constexpr std::size_t kRecent = 256;
  static constexpr std::size_t kManyLeaves = 1 << 16;
  static constexpr unsigned kTextsTogether = 16;
  [[nodiscard]] static std::size_t recentSlot(const void* address) {
    const auto number = reinterpret_cast<std::uintptr_t>(address);
    return (number >> 3 ^ number >> 11) % kRecent;
  }

  [[nodiscard]] bool countsReferences() const { return sharing_ == Sharing::byReferenceCount; }
  Number writeTop(Number root);
  [[gnu::cold]] Number refuse(const OVRef<OVObject>& object);
  [[gnu::cold]] void namePlaces(std::string_view key);
  void writeWaiting(const Waiting& waiting);
  Number newReference(Number object);
  Number leafOrObjectReference(const OVRef<OVObject>& object, OVRef<OVObject>* copy);
  Number objectReference(const OVRef<OVObject>& object, ClassEntry& entry, OVRef<OVObject>* copy);
  Number textReference(const TextObject& text);
  void writeLeaf(const OVObject& object, Kind kind);
  [[nodiscard]] LeafTable::Hash hashOf(const TextObject& text) const;
  /// A handle that keeps the text.
  static OVString held(const TextObject& text) {
    text.retain();
    return OVString(&text);
  }
  Number writeText(const TextObject& text, LeafTable::Hash hash);
  Number promiseText(const TextObject& text, LeafTable::Hash hash);
  void keepPromises();
  Number leafReference(LeafTable::Result leaf);
  Number inlineObject(const OVRef<OVObject>& object);
  Number arrayOf(const OVOpaqueValue::Array& values, bool asSet);
  static Kind kindOf(const OVClass& objectClass);
  ClassEntry& entryOf(const OVClass& objectClass);
  [[gnu::cold]] ClassEntry& newEntryOf(const OVClass& objectClass);
  Number classRecord(ClassEntry& entry) {
    return entry.record == 0 ? newClassRecord(entry) : entry.record;
  }
  [[gnu::cold]] Number newClassRecord(ClassEntry& entry);
  Number classRecord(const OVOpaqueObject& object);
  Number classRecord(const OVString& name, std::span<const OVString> names,
                     std::span<const OVString> hints);
  Number textArray(std::span<const OVString> texts);
  [[gnu::cold]] void newField(std::string_view key, Number value);
  void addField(Number key, Number value);
  [[nodiscard]] bool isWritten(Number fieldKey) const;
  Number key(std::string_view key);
  Number classKey() { return classKey_ == 0 ? classKey_ = key(archive::kClass) : classKey_; }
  [[gnu::cold]] Number newKey(std::string_view key);

  PlistWriter plist_;
  LeafTable inlineLeaves_;
  LeafTable leaves_;
  Sharing sharing_;
  bool restart_ = false;
  bool writesHosts_ = false;  // the object being written is of a host's class

  GrowingArray<Number> objects_;  // by UID; 0 while not written
  Number nullReference_ = 0;
  Number classKey_ = 0;  // 0: not written yet
  PointerMap met_;
  std::unique_ptr<ArchivePlaces> places_;  // null unless they are asked for
  OVRef<OVObject> refused_;
  std::vector<OVRef<OVObject>> kept_;  // so that no address is used twice while it matters
  std::vector<Waiting> waiting_;
  KeySequence::Walk nextKey_;
  GrowingArray<PlistWriter::Entry> fields_;
  GrowingArray<Number> elements_;

  std::unordered_map<const OVClass*, ClassEntry> classes_;
  std::array<ClassEntry*, kRecent> recentClasses_{};
  std::unordered_map<std::string, Number> classRecords_;
  KeyNumbers keys_;
  std::array<Number, 256> smallIntegers_{};
  std::array<RecentText, kRecent> recentTexts_{};  // in pairs, the later one first
  std::array<PromisedText, PlistWriter::kPromises> promised_{};
  Number promisedCount_ = 0;
  unsigned textsSincePromises_ = 0;
};

inline ArchiveWriter::ClassEntry& ArchiveWriter::entryOf(const OVClass& objectClass) {
  ClassEntry* recent = recentClasses_[recentSlot(&objectClass)];
  return recent != nullptr && recent->objectClass == &objectClass ? *recent
                                                                  : newEntryOf(objectClass);
}

inline ArchiveWriter::Number ArchiveWriter::key(std::string_view key) {
  const Number number = keys_.find(key);
  return number == KeyNumbers::kNone ? newKey(key) : number;
}

inline void ArchiveWriter::field(std::string_view key, Number value) {
  const Number number = countsReferences() ? nextKey_.next(key) : KeySequence::kNone;
  if (number == KeySequence::kNone) {
    newField(key, value);
  } else {
    fields_.push_back({number, value});
  }
}

inline ArchiveWriter::Number ArchiveWriter::newReference(Number object) {
  const auto uid = static_cast<std::uint32_t>(objects_.size());
  objects_.push_back(object);
  return plist_.uid(uid);
}

}  // namespace ov::detail
