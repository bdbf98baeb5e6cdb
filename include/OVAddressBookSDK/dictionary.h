#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>

namespace ov::detail {

/// The entries behind one dictionary, in the order in which their keys were first set.
class OV_EXPORT DictionaryEntries {
 public:
  struct Entry {
    OVString key;  // null: removed
    OVRef<OVObject> value;
  };

  DictionaryEntries() = default;
  DictionaryEntries(const DictionaryEntries&) = delete;
  DictionaryEntries& operator=(const DictionaryEntries&) = delete;
  ~DictionaryEntries();

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
  [[nodiscard]] const Entry* begin() const { return entries_.data(); }
  [[nodiscard]] const Entry* end() const { return entries_.data() + entries_.size(); }

  /// Recorded as "NSDictionary" instead of "NSMutableDictionary".
  bool immutable = false;

 private:
  [[nodiscard]] std::size_t slotOf(std::string_view key) const;
  bool isFirst(std::size_t position);
  void append(const OVString& key, OVRef<OVObject> value);
  void rebuild();

  std::vector<Entry> entries_;
  std::vector<std::uint32_t> slots_;  // open addressing: position + 1, or 0; empty while small
  std::size_t live_ = 0;
};

/// What dictionaries of every value type have in common.
class OV_EXPORT AnyDictionary : public OVObject {
 public:
  [[nodiscard]] std::size_t size() const { return entries_->size(); }
  [[nodiscard]] bool empty() const { return size() == 0; }
  void clear() { entries_->clear(); }
  [[nodiscard]] bool contains(const OVString& key) const;
  /// Removes the entry; false when there was none.
  bool erase(const OVString& key);
  [[nodiscard]] bool isImmutable() const { return entries_->immutable; }

  [[nodiscard]] const OVClass* classForCoder() const override;
  void encodeWithCoder(OVKeyedArchiver& coder) const override;
  void initWithCoder(OVKeyedUnarchiver& coder) override;

  [[nodiscard]] const std::shared_ptr<DictionaryEntries>& entries() const { return entries_; }

 protected:
  explicit AnyDictionary(std::shared_ptr<DictionaryEntries> entries)
      : entries_(std::move(entries)) {}

 private:
  std::shared_ptr<DictionaryEntries> entries_;
};

}  // namespace ov::detail

/// A dictionary from string to T, shared by reference: a change through one reference shows in all.
///
/// Values are `OVRef<T>`, or `OVString`. Iteration follows the order in which the keys were first
/// set. Neither a null key nor a null value can be put in (`std::invalid_argument`). A dictionary
/// that came out of an archive may hold objects of another class than T: they read as null, are
/// kept, and are written back. Changing a dictionary invalidates its iterators.
template <class T>
class OVDictionary final : public ov::detail::AnyDictionary {
 public:
  /// What the standard calls these in a map.
  /// @{
  using key_type = OVString;
  using mapped_type = ov::Handle<T>;
  using value_type = std::pair<const OVString, mapped_type>;
  /// @}

  /// Walks through the entries in their order; gives pairs of key and value.
  class const_iterator {
   public:
    /// What the standard asks of a forward iterator.
    /// @{
    using iterator_concept = std::forward_iterator_tag;
    using iterator_category = std::input_iterator_tag;
    using value_type = std::pair<const OVString, mapped_type>;
    using difference_type = std::ptrdiff_t;
    using reference = value_type;

    const_iterator() = default;
    value_type operator*() const { return {at_->key, ov::cast<T>(at_->value)}; }
    const_iterator& operator++() {
      ++at_;
      skipRemoved();
      return *this;
    }
    const_iterator operator++(int) {
      auto before = *this;
      ++*this;
      return before;
    }
    friend bool operator==(const_iterator a, const_iterator b) { return a.at_ == b.at_; }
    /// @}

   private:
    friend class OVDictionary;
    using Entry = ov::detail::DictionaryEntries::Entry;
    const_iterator(const Entry* at, const Entry* end) : at_(at), end_(end) { skipRemoved(); }
    void skipRemoved() {
      while (at_ != end_ && at_->key.isNull()) ++at_;
    }
    const Entry* at_ = nullptr;
    const Entry* end_ = nullptr;
  };
  /// Entries cannot be changed through an iterator.
  using iterator = const_iterator;

  /// A new dictionary of the given entries.
  [[nodiscard]] static OVRef<OVDictionary> dictionary(
      std::initializer_list<value_type> values = {}) {
    auto made = std::shared_ptr<OVDictionary>(
        new OVDictionary(std::make_shared<ov::detail::DictionaryEntries>()));
    for (const auto& [key, value] : values) made->set(key, value);
    return made;
  }
  /// This very kind of dictionary over the entries of another; null for null.
  [[nodiscard]] static OVRef<OVDictionary> viewOf(const OVRef<ov::detail::AnyDictionary>& other) {
    if (other == nullptr) return nullptr;
    if (auto same = std::dynamic_pointer_cast<OVDictionary>(other)) return same;
    return std::shared_ptr<OVDictionary>(new OVDictionary(other->entries()));
  }

  /// The first entry.
  [[nodiscard]] const_iterator begin() const { return {entries()->begin(), entries()->end()}; }
  /// Past the last entry.
  [[nodiscard]] const_iterator end() const { return {entries()->end(), entries()->end()}; }

  /// The value under `key`, null when there is none or the key is null.
  mapped_type operator[](const OVString& key) const {
    const auto at = find(key);
    return at == end() ? mapped_type() : (*at).second;
  }
  /// The entry under `key`; `end()` for null and when there is none.
  [[nodiscard]] const_iterator find(const OVString& key) const {
    const auto* entry = key.isNull() ? nullptr : entries()->find(key);
    return entry == nullptr ? end() : const_iterator(entry, entries()->end());
  }
  /// Stores `value` under `key`, in the place of an earlier value.
  void set(const OVString& key, const mapped_type& value) { entries()->set(key, value); }

 private:
  friend struct ov::detail::Maker;
  explicit OVDictionary(std::shared_ptr<ov::detail::DictionaryEntries> entries)
      : AnyDictionary(std::move(entries)) {}
};

/// @name Iteration over a reference
/// `for (const auto& [ID, person] : book->personsDic())` keeps the dictionary alive for the whole
/// loop, which `*book->personsDic()` would not. Null counts as empty.
/// @{
template <class T>
typename OVDictionary<T>::const_iterator begin(const OVRef<OVDictionary<T>>& dictionary) {
  return dictionary == nullptr ? typename OVDictionary<T>::const_iterator() : dictionary->begin();
}
template <class T>
typename OVDictionary<T>::const_iterator end(const OVRef<OVDictionary<T>>& dictionary) {
  return dictionary == nullptr ? typename OVDictionary<T>::const_iterator() : dictionary->end();
}
/// @}

template <class T>
struct ov::detail::Cast<OVDictionary<T>> {
  static OVRef<OVDictionary<T>> from(const OVRef<OVObject>& object) {
    return OVDictionary<T>::viewOf(std::dynamic_pointer_cast<AnyDictionary>(object));
  }
};
