#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include <OVAddressBookSDK/list.h>
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
  /// These entries instead of all others. Of equal keys the first counts, values may be null.
  void assign(std::vector<Entry> entries);
  bool erase(std::string_view key);
  void clear();

  /// All slots, removed ones included.
  [[nodiscard]] const std::vector<Entry>& entries() const { return entries_; }
  /// Counts the insertions and removals, so that a walk through the dictionary notices them.
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
  /// Whether archives record the dictionary as immutable. It tells other programs; here it can be
  /// changed all the same.
  [[nodiscard]] bool isImmutable() const { return !isNull() && table().immutable; }

  /// The object that all handles on the dictionary share, null for null. `ov::cast` makes a handle
  /// of it.
  [[nodiscard]] const OVRef<OVObject>& object() const& OV_LIFETIMEBOUND { return object_; }
  [[nodiscard]] OVRef<OVObject> object() && { return std::move(object_); }
  /// The same.
  /// @{
  operator OVRef<OVObject>() const& { return object_; }  // NOLINT(google-explicit-constructor)
  // NOLINTNEXTLINE(google-explicit-constructor)
  operator OVRef<OVObject>() && { return std::move(object_); }
  /// @}

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

template <class T>
class DictionaryIterator;

}  // namespace ov::detail

template <class T>
class OVDictionary;

/// A dictionary from string to T, to be read only. `OVDictionary<T>` adds what changes one, and can
/// be used wherever an `OVDictionary<const T>` is asked for.
///
/// A handle, like `OVString`: copies share the dictionary, and null, which reads as empty, differs
/// from an empty one. Values are `OVRef<T>`, or `OVString` and other lists and dictionaries
/// themselves; a dictionary that came out of an archive may hold objects of another class than T,
/// which read as null, are kept, and are written back. Iteration follows the order in which the
/// keys were first set.
///
///     for (const auto& [ID, person] : book->personsDic()) std::cout << ID << "\n";
///
/// The dictionary lives as long as the loop. When entries are added or removed meanwhile, the walk
/// ends with a `std::logic_error`.
template <class T>
class OVDictionary<const T> : public ov::detail::DictionaryHandle {
 public:
  /// What the standard calls these in a map.
  /// @{
  using key_type = OVString;
  using mapped_type = ov::Handle<T>;
  using value_type = std::pair<const OVString, mapped_type>;
  /// @}
  /// Walks through the entries, which cannot be changed through it. Valid while a handle on the
  /// dictionary lives.
  using const_iterator = ov::detail::DictionaryIterator<T>;
  /// The same.
  using iterator = const_iterator;

  /// Null.
  OVDictionary() = default;
  /// Null.
  OVDictionary(std::nullptr_t) {}  // NOLINT(google-explicit-constructor)

  /// The first entry.
  [[nodiscard]] const_iterator begin() const& {
    return isNull() ? const_iterator() : const_iterator(table(), 0);
  }
  /// Past the last entry.
  [[nodiscard]] const_iterator end() const& {
    return isNull() ? const_iterator() : const_iterator(table(), table().entries().size());
  }
  /// The entry under `key`; `end()` for null and when there is none.
  [[nodiscard]] const_iterator find(const OVStringView& key) const& {
    const auto* entry = entryOf(key);
    if (entry == nullptr) return end();
    return const_iterator(table(), static_cast<std::size_t>(entry - table().entries().data()));
  }
  /// An iterator needs a handle that outlives it.
  /// @{
  [[nodiscard]] const_iterator begin() const&& = delete;
  [[nodiscard]] const_iterator end() const&& = delete;
  [[nodiscard]] const_iterator find(const OVStringView& key) const&& = delete;
  /// @}

  /// The value under `key`, null when there is none or the key is null.
  mapped_type operator[](const OVStringView& key) const {
    const auto* entry = entryOf(key);
    return entry == nullptr ? mapped_type() : ov::cast<T>(entry->value);
  }

 protected:
  /// On a dictionary object, or null.
  explicit OVDictionary(OVRef<OVObject> dictionary) : DictionaryHandle(std::move(dictionary)) {}

 private:
  friend struct ov::detail::Cast<OVDictionary>;
};

/// A dictionary from string to T, shared by its handles: a change through one shows in all. See
/// `OVDictionary<const T>` for what can be read.
///
/// What is const of a const handle is which dictionary it is on: that can be changed through it, as
/// through its copies. Neither a null key nor a null value can be put in (`std::invalid_argument`),
/// and null itself cannot be changed (`std::logic_error`).
template <class T>
class OVDictionary final : public OVDictionary<const T> {
 public:
  using typename OVDictionary<const T>::mapped_type;
  using typename OVDictionary<const T>::value_type;

  /// Null.
  OVDictionary() = default;
  /// Null.
  OVDictionary(std::nullptr_t) {}  // NOLINT(google-explicit-constructor)
  /// A new dictionary of the given entries.
  [[nodiscard]] static OVDictionary dictionary(std::initializer_list<value_type> values = {}) {
    OVDictionary made(std::make_shared<ov::detail::DictionaryObject>());
    for (const auto& [key, value] : values) made.set(key, value);
    return made;
  }

  /// Stores `value` under `key`, in the place of an earlier value.
  void set(const OVString& key, const mapped_type& value) const {
    this->tableToChange().set(key, value);
  }
  /// Removes the entry; false when there was none, and for null.
  // NOLINTNEXTLINE(modernize-use-nodiscard): it changes the dictionary
  bool erase(const OVStringView& key) const {
    auto& table = this->tableToChange();
    return !key.isNull() && table.erase(key.view());
  }
  /// Removes all entries.
  void clear() const { this->tableToChange().clear(); }

 private:
  friend struct ov::detail::Cast<OVDictionary>;
  explicit OVDictionary(OVRef<OVObject> dictionary)
      : OVDictionary<const T>(std::move(dictionary)) {}
};

namespace ov::detail {

/// Walks through a dictionary. Raises `std::logic_error` once entries have been added or removed,
/// and `std::out_of_range` for the entry past the last.
template <class T>
class DictionaryIterator {
 public:
  using iterator_concept = std::forward_iterator_tag;
  using iterator_category = std::input_iterator_tag;
  using value_type = std::pair<const OVString, ov::Handle<T>>;
  using difference_type = std::ptrdiff_t;
  // Const, so that `auto& [key, value]` in a loop can take it.
  using reference = const value_type;

  DictionaryIterator() = default;
  DictionaryIterator(const DictionaryObject& dictionary, std::size_t index)
      : dictionary_(&dictionary), index_(index), changes_(dictionary.changes()) {
    skipRemoved();
  }

  reference operator*() const {  // NOLINT(readability-const-return-type)
    checkUnchanged();
    const bool isInside = dictionary_ != nullptr && index_ < dictionary_->entries().size();
    if (!isInside) raisePastTheEnd("OVDictionary");
    const auto& entry = dictionary_->entries()[index_];
    return {entry.key, ov::cast<T>(entry.value)};
  }
  DictionaryIterator& operator++() {
    checkUnchanged();
    ++index_;
    skipRemoved();
    return *this;
  }
  DictionaryIterator operator++(int) {
    auto before = *this;
    ++*this;
    return before;
  }
  friend bool operator==(DictionaryIterator a, DictionaryIterator b) {
    return a.index_ == b.index_;
  }

 private:
  void checkUnchanged() const {
    if (dictionary_ != nullptr && dictionary_->changes() != changes_)
      raiseChangedInWalk("OVDictionary");
  }
  void skipRemoved() {
    const auto& entries = dictionary_->entries();
    while (index_ < entries.size() && entries[index_].key.isNull()) ++index_;
  }

  const DictionaryObject* dictionary_ = nullptr;
  std::size_t index_ = 0;
  std::uint32_t changes_ = 0;
};

template <class T>
struct Handle<OVDictionary<T>> {
  using type = OVDictionary<T>;
};

template <class T>
struct Cast<OVDictionary<T>> {
  static OVDictionary<T> from(const OVRef<OVObject>& object) {
    return isOfClass<DictionaryObject>(object) ? OVDictionary<T>(object) : OVDictionary<T>();
  }
};

}  // namespace ov::detail
