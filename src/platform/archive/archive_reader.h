#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>
#include <OVAddressBookSDK/opaque_object.h>
#include <OVAddressBookSDK/text.h>

#include "platform/archive/foundation_forms.h"
#include "platform/archive/opaque_reader.h"
#include "platform/archive/plist_reader.h"
#include "platform/archive/read_classes.h"
#include "platform/archive/read_fields.h"
#include "platform/archive/read_leaves.h"
#include "platform/archive/read_objects.h"
#include "platform/object_arena.h"

namespace ov::detail {

/// Builds an object graph from a keyed archive.
///
/// An object is known under its UID before it is filled. Up to a bound, an object is filled as soon
/// as it is met; deeper ones wait until the shallower are done, so that no archive is too deep.
///
/// "Object" is an object of the graph; "item" one of the property list, given by its number.
class ArchiveReader {
 public:
  using Item = std::uint64_t;

  /// How deep objects are filled inside each other, and how deep containers may be in one object.
  static constexpr unsigned kMaxDepth = 512;
  /// Goes down into an object, or into a plain container in one, while it lives.
  class Deeper {
   public:
    explicit Deeper(ArchiveReader& reader) : depth_(++reader.depth_) {}
    Deeper(const Deeper&) = delete;
    Deeper& operator=(const Deeper&) = delete;
    ~Deeper() { --depth_; }

   private:
    unsigned& depth_;
  };

  ArchiveReader(std::span<const std::byte> block, ClassLookup classes);

  /// Throws `OVInvalidArchive`; what was built by then is released, rings included.
  OVRef<OVObject> root();

  /// The item under a key of the object's own.
  [[nodiscard]] std::optional<Item> find(const ArchiveFields& fields, std::string_view key) {
    return fields_.find(fields, key);
  }
  /// The same, read; null when there is none.
  [[nodiscard]] PlistItem valueOf(const ArchiveFields& fields, std::string_view key) {
    const auto item = find(fields, key);
    return item ? plist_.item(*item) : PlistItem();
  }
  /// The object of a field: what its UID refers to, or the item itself as an object.
  OVRef<OVObject> objectOf(Item item);
  OVString textOf(Item item);
  [[nodiscard]] PlistReader& plist() { return plist_; }

  /// Reads an array of references; leaves `elements` alone when there is none.
  bool readElements(const ArchiveFields& fields, std::string_view key,
                    std::vector<OVRef<OVObject>>& elements);
  /// Reads the keys and values of a dictionary.
  void readEntries(const ArchiveFields& fields, DictionaryObject& dictionary);
  /// Reads the elements of a list object that the caller makes its own.
  bool readList(Item item, std::vector<OVRef<OVObject>>& elements);
  [[nodiscard]] OpaqueReader& opaque() { return opaque_; }

 private:
  struct Waiting {
    OVRef<OVObject> object;
    Item item;
  };

  OVRef<OVObject> readRoot();
  OVRef<OVObject> readTop(const PlistItem& top);
  OVRef<OVObject> objectAt(std::uint64_t uid);
  OVRef<OVObject> build(std::uint64_t uid, const PlistItem& dictionary);
  OVRef<OVObject> makeEmpty(const ArchivedClass& record, const ArchiveFields& fields);
  void fill(OVObject& object, const ArchiveFields& fields);
  void breakRings() noexcept;

  PlistReader plist_;
  ObjectArena arena_;
  ReadObjects objects_;
  ReadLeaves leaves_;
  ReadClasses classes_;
  ReadFields fields_;
  FoundationForms forms_;
  OpaqueReader opaque_;
  std::vector<Waiting> waiting_;
  unsigned depth_ = 0;
};

/// The root object of an archive; null for a null root. Throws `OVInvalidArchive`, for null too.
[[nodiscard]] OVRef<OVObject> unarchived(const OVRef<OVData>& data, ClassLookup classes);

}  // namespace ov::detail
