#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/opaque_object.h>
#include <OVAddressBookSDK/text.h>

#include "platform/archive/archive_places.h"
#include "platform/archive/met_objects.h"
#include "platform/archive/plist_writer.h"
#include "platform/archive/written_classes.h"
#include "platform/archive/written_fields.h"
#include "platform/archive/written_objects.h"
#include "platform/archive/written_values.h"

namespace ov::detail {

/// Lays an object graph out as a keyed archive.
///
/// Each object gets its UID when it is first met. Objects wait on a stack of their own and are
/// written one after the other, so that no graph is too deep.
class ArchiveWriter {
 public:
  /// The library's own classes write each field once, under a constant key, and hand out the
  /// references they hold, each once: an object is met as often as its references are counted, and
  /// lives as long as the graph. A host's class may do otherwise, unless it promises the same.
  ///
  /// In an archive that cannot be written, something cannot be archived: the last way finds out
  /// where that is.
  enum class Sharing : std::uint8_t { byReferenceCount, byIdentity, byIdentityWithPlaces };

  explicit ArchiveWriter(Sharing sharing);

  /// Null when something was met that calls for the next kind of `Sharing`.
  OVRef<OVData> archive(const OVRef<OVObject>& root);

  using Number = PlistWriter::Number;

  /// One field of the object being written. The first of two fields with one key counts.
  void field(std::string_view key, Number value) {
    if (places_ != nullptr) places_->name(key);
    fields_.add(key, value);
  }
  /// A field whose key is written verbatim.
  void rawField(std::string_view key, Number value) {
    if (places_ != nullptr) places_->name(key);
    fields_.addRaw(values_.key(key), value);
  }

  /// The UID of an object, for a field or an array.
  Number reference(const OVRef<OVObject>& object) { return reference(object, nullptr); }
  /// The same for a copy of the owner's reference: another thread may replace that meanwhile.
  Number reference(OVRef<OVObject>&& copy) { return reference(copy, &copy); }
  Number reference(const OVString& text) {
    if (text.isNull()) return objects_.null();
    return leafReference(*text.text_, text, text.text_->isShared());
  }
  /// An array as an object of its own.
  Number listReference(std::span<const OVRef<OVObject>> items);
  Number referenceArray(std::span<const OVRef<OVObject>> items);
  /// The fields of a dictionary object.
  void entryFields(const DictionaryObject& dictionary);

  /// For values in the object itself.
  [[nodiscard]] WrittenValues& values() { return values_; }
  Number opaqueValue(const OVOpaqueValue& value);

 private:
  using ClassEntry = WrittenClasses::Entry;

  struct Waiting {
    const OVObject* object;
    ClassEntry* entry;
    std::uint32_t uid;
    OVRef<OVObject> keeper;  // null when the object's owner keeps it
  };

  [[nodiscard]] bool countsReferences() const { return sharing_ == Sharing::byReferenceCount; }
  void write(const Waiting& waiting);
  Number reference(const OVRef<OVObject>& object, OVRef<OVObject>* copy);
  template <class Handle>
  Number leafReference(const OVObject& leaf, const Handle& handle, bool isShared);
  Number objectReference(const OVRef<OVObject>& object, ClassEntry& entry, bool isShared,
                         OVRef<OVObject>* copy);
  std::vector<Number> opaqueValues(const OVOpaqueValue::Array& values);

  PlistWriter plist_;
  WrittenObjects objects_;
  WrittenValues values_;
  WrittenClasses classes_;
  WrittenFields fields_;
  std::optional<MetObjects> met_{std::in_place};  // while objects may be met
  std::vector<Waiting> waiting_;
  std::vector<Number> elements_;

  Sharing sharing_;
  bool restart_ = false;
  bool writesHosts_ = false;               // the object being written is of a host's class
  std::unique_ptr<ArchivePlaces> places_;  // null unless they are asked for
};

}  // namespace ov::detail
