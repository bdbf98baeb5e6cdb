#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>
#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/number.h>
#include <OVAddressBookSDK/opaque_object.h>

#include "platform/archive/class_table.h"
#include "platform/archive/key_numbers.h"
#include "platform/archive/plist_reader.h"

namespace ov::detail {

/// The fields of one archived object while it is being filled.
struct ArchiveFields {
  PlistItem dictionary;
  /// Where the numbers of its keys begin.
  std::size_t firstKey;
};

/// Builds an object graph from a keyed archive.
///
/// An object is known under its UID before it is filled. Up to a bound, an object is filled as soon
/// as it is met; deeper ones wait until the shallower are done, so that no archive is too deep.
class ArchiveReader {
 public:
  enum class Known : std::uint8_t { registeredClasses, noClasses };

  ArchiveReader(std::span<const std::byte> block, Known known);

  /// Throws `OVInvalidArchive`; what was built by then is let go of, rings included.
  OVRef<OVObject> root();

  [[nodiscard]] std::optional<PlistItem> find(const ArchiveFields& fields, std::string_view key);
  /// The object of a field: what its UID refers to, or the value itself as an object.
  OVRef<OVObject> objectOf(const PlistItem& value);
  OVString textOf(const PlistItem& value);
  [[nodiscard]] const PlistReader& plist() const { return plist_; }

  /// Reads an array of references; leaves `elements` alone when there is none.
  bool readElements(const ArchiveFields& fields, std::string_view key,
                    std::vector<OVRef<OVObject>>& elements);
  void readTexts(const ArchiveFields& fields, std::string_view key, std::vector<OVString>& texts);
  /// Reads the elements of a list object that the caller makes its own.
  bool readList(const ArchiveFields& fields, std::string_view key,
                std::vector<OVRef<OVObject>>& elements);

 private:
  /// How deep objects are filled inside each other, and how deep containers may stand in one
  /// object.
  static constexpr unsigned kDeepest = 512;
  /// What one object is taken to need, whatever its class.
  static constexpr std::uint64_t kMemoryPerObject = 256;

  struct ClassRecord {
    OVString name;
    std::vector<OVString> classes;
    std::vector<OVString> hints;
    const OVClass* known = nullptr;
  };
  struct Slot {
    OVRef<OVObject> object;
    OVString text;
  };

  OVRef<OVObject> readRoot();
  OVRef<OVObject> readTop(const PlistItem& top);
  PlistItem requiredEntry(const PlistItem& dictionary, std::string_view key, PlistItem::Kind kind);
  std::optional<PlistItem> entry(const PlistItem& dictionary, std::string_view key);
  PlistItem key(std::uint64_t object);
  std::string_view keyText(const PlistItem& dictionary, std::uint64_t position);

  std::uint64_t uidOf(const PlistItem& value);
  PlistItem archived(std::uint64_t uid);
  OVRef<OVObject> objectAt(std::uint64_t uid);
  OVRef<OVObject> leaf(const PlistItem& item);
  OVRef<OVObject> build(std::uint64_t uid, const PlistItem& dictionary);
  OVRef<OVObject> makeEmpty(const ClassRecord& record, const PlistItem& dictionary);
  OVRef<OVObject> makeOpaque(const ClassRecord& record);
  bool areTexts(const PlistItem& array);
  bool isText(std::uint64_t uid);
  void fill(OVObject& object, const PlistItem& dictionary);
  void fillWaiting();
  void fillOpaque(OVOpaqueObject& object, const PlistItem& dictionary);
  std::vector<OVOpaqueField> opaqueFields(const PlistItem& dictionary, unsigned depth);
  OVOpaqueValue opaqueValue(const PlistItem& value, unsigned depth);
  OVOpaqueValue::Array opaqueArray(const PlistItem& container, unsigned depth);
  const ClassRecord& classRecord(std::uint64_t uid);
  std::vector<OVString> textArray(const PlistItem& array);

  ArchiveFields openFields(const PlistItem& dictionary);
  void closeFields(const ArchiveFields& fields) { keyNumbers_.resize(fields.firstKey); }
  std::uint32_t numberOfKey(std::uint64_t object);
  void charge(std::uint64_t bytes);
  void breakRings() noexcept;

  PlistReader plist_;
  Known known_;
  PlistItem objects_;
  std::vector<Slot> slots_;  // by UID
  std::unordered_map<std::uint64_t, ClassRecord> classRecords_;
  struct Waiting {
    OVRef<OVObject> object;
    PlistItem dictionary;
  };
  std::vector<Waiting> waiting_;
  unsigned depth_ = 0;  // of objects and of plain containers in them
  class Deeper {
   public:
    explicit Deeper(unsigned& depth) : depth_(++depth) {}
    Deeper(const Deeper&) = delete;
    Deeper& operator=(const Deeper&) = delete;
    ~Deeper() { --depth_; }

   private:
    unsigned& depth_;
  };
  std::uint64_t budget_;

  KeyNumbers keys_;
  struct RecentKey {
    std::uint64_t object = ~0ULL;
    std::uint32_t number = 0;
  };
  std::array<RecentKey, 512> recentKeys_{};
  std::vector<std::uint32_t> keyNumbers_;
  std::string scratch_;
};

}  // namespace ov::detail
