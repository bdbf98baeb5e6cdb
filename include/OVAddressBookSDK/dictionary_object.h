#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include <OVAddressBookSDK/list_object.h>
#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>
#include <OVAddressBookSDK/text_view.h>

namespace ov::detail {

/// The hash table that all handles on one dictionary share: what an archive holds. Its entries are
/// in the order in which their keys were first set.
class OV_EXPORT DictionaryObject final : public OVObject {
 public:
  struct Entry {
    OVString key;  // null: removed
    OVRef<OVObject> value;
  };

  explicit DictionaryObject(bool isImmutable = false) : immutable(isImmutable) {}
  ~DictionaryObject() override;

  [[nodiscard]] std::size_t size() const { return live_; }
  /// Null when the key is absent.
  [[nodiscard]] const Entry* find(std::string_view key) const;
  /// Throws `std::invalid_argument` for a null key or value.
  void set(const OVString& key, OVRef<OVObject> value);
  /// Adds an entry unless the key has one. The value may be null, as it may be in an archive.
  void add(const OVString& key, OVRef<OVObject> value);
  /// Replaces all entries; values may be null. Of equal keys the first counts; the others are in
  /// `repeated`.
  void assign(std::vector<Entry> entries);
  bool erase(std::string_view key);
  void clear();

  /// All slots, removed ones included.
  [[nodiscard]] const std::vector<Entry>& entries() const { return entries_; }
  /// Entries of a foreign dictionary whose keys earlier ones have: only written back. They are
  /// removed with the key.
  [[nodiscard]] const std::vector<Entry>& repeated() const { return repeated_; }
  /// Counts the insertions and removals, so that an iterator notices them.
  [[nodiscard]] std::uint32_t changes() const { return changes_; }

  [[nodiscard]] const OVClass* classForCoder() const override;
  void encodeWithCoder(OVKeyedArchiver& coder) const override;
  void initWithCoder(OVKeyedUnarchiver& coder) override;

  /// Recorded as "NSDictionary" instead of "NSMutableDictionary".
  bool immutable;

 private:
  [[nodiscard]] std::size_t slotOf(std::string_view key) const;
  bool isFirst(std::size_t position);
  void append(const OVString& key, OVRef<OVObject> value);
  void rebuild();

  std::vector<Entry> entries_;
  std::vector<Entry> repeated_;
  std::vector<std::uint32_t> slots_;  // open addressing: position + 1, or 0; empty while small
  std::size_t live_ = 0;
  std::uint32_t changes_ = 0;
};

/// What handles on dictionaries of every value type have in common.
class DictionaryHandle {
 public:
  /// True for null, false for an empty dictionary.
  [[nodiscard]] bool isNull() const { return object_ == nullptr; }
  /// False for null, true for an empty dictionary.
  explicit operator bool() const { return object_ != nullptr; }
  /// How many entries there are; 0 for null.
  [[nodiscard]] std::size_t size() const { return isNull() ? 0 : table().size(); }
  /// True for null and for a dictionary without entries.
  [[nodiscard]] bool empty() const { return size() == 0; }
  /// Whether there is an entry under `key`; false for null.
  [[nodiscard]] bool contains(const OVStringView& key) const { return entryOf(key) != nullptr; }
  /// Whether archives record the dictionary as immutable. That is for other programs: here it can
  /// still be changed.
  [[nodiscard]] bool isImmutable() const { return !isNull() && table().immutable; }

  /// The object that all handles on the dictionary share, null for null. `ov::cast` makes a handle
  /// of it, even one that can change a dictionary that was handed out read-only.
  [[nodiscard]] const OVRef<OVObject>& object() const& OV_LIFETIMEBOUND { return object_; }
  [[nodiscard]] OVRef<OVObject> object() && { return std::move(object_); }

  /// Whether both are handles on the same dictionary, or both null.
  friend bool operator==(const DictionaryHandle& a, const DictionaryHandle& b) {
    return a.object_ == b.object_;
  }
  friend bool operator==(const DictionaryHandle& dictionary, std::nullptr_t) {
    return dictionary.isNull();
  }

 protected:
  using Entry = DictionaryObject::Entry;

  DictionaryHandle() = default;
  explicit DictionaryHandle(OVRef<OVObject> dictionary) : object_(std::move(dictionary)) {}

  [[nodiscard]] DictionaryObject& table() const { return static_cast<DictionaryObject&>(*object_); }
  [[nodiscard]] DictionaryObject& tableToChange() const {
    if (isNull()) raiseNullChanged("OVDictionary");
    return table();
  }
  /// Null when there is none.
  [[nodiscard]] const Entry* entryOf(const OVStringView& key) const {
    return isNull() || key.isNull() ? nullptr : table().find(key.view());
  }

 private:
  OVRef<OVObject> object_;
};

}  // namespace ov::detail
