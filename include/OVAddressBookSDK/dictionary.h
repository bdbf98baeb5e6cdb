#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

#include <OVAddressBookSDK/dictionary_object.h>
#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>
#include <OVAddressBookSDK/text_view.h>

namespace ov::detail {

template <class T>
class DictionaryIterator;

}  // namespace ov::detail

template <class T>
class OVDictionary;

/// A read-only view of a dictionary from string to T. `OVDictionary<T>` adds the changes, and can
/// be used wherever an `OVDictionary<const T>` is expected.
///
/// A handle, like `OVString`: copies share the dictionary, and null, which reads as empty, differs
/// from an empty one. Values are `OVRef<T>`, or `OVString` and other lists and dictionaries
/// themselves; a dictionary from an archive may hold objects of another class than T, which read as
/// null, are kept, and are written back. Iteration follows the order in which the keys were first
/// set.
///
/// \code
/// auto titles = OVDictionary<OVString>::dictionary({{"g1", "Friends"}, {"g2", "Rowing"}});
/// titles.set("g1", "Old friends");
/// for (const auto& [ID, title] : titles) std::cout << title << "\n";  // Old friends Rowing
/// std::cout << titles["g3"].isNull() << "\n";                        // 1
/// \endcode
///
/// The loop keeps the dictionary alive. Adding or removing entries during the loop makes it throw
/// `std::logic_error`: iterate over a `copy()` instead.
template <class T>
class OVDictionary<const T> : public ov::detail::DictionaryHandle {
 public:
  /// The member types of a standard map.
  /// @{
  using key_type = OVString;
  using mapped_type = ov::Handle<T>;
  using value_type = std::pair<const OVString, mapped_type>;
  /// @}
  /// Iterates over the entries, cannot change them, and keeps the dictionary alive.
  using const_iterator = ov::detail::DictionaryIterator<T>;
  /// The same.
  using iterator = const_iterator;

  /// Null.
  OVDictionary() = default;
  /// Null.
  OVDictionary(std::nullptr_t) {}  // NOLINT(google-explicit-constructor)

  /// A new dictionary of the same entries; null for null.
  [[nodiscard]] OVDictionary<T> copy() const;

  /// The first entry.
  [[nodiscard]] const_iterator begin() const { return const_iterator(object(), 0); }
  /// Past the last entry.
  [[nodiscard]] const_iterator end() const {
    return const_iterator(object(), isNull() ? 0 : table().entries().size());
  }
  /// The entry under `key`; `end()` for null and when there is none.
  [[nodiscard]] const_iterator find(const OVStringView& key) const {
    const auto* entry = entryOf(key);
    if (entry == nullptr) return end();
    return const_iterator(object(), static_cast<std::size_t>(entry - table().entries().data()));
  }

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
/// `OVDictionary<const T>` for reading.
///
/// A const handle always refers to the same dictionary, but can still change it, as its copies can.
/// Null keys and null values are refused (`std::invalid_argument`), and a null handle cannot be
/// changed (`std::logic_error`).
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

  /// The dictionary as an object: the result of `object`.
  /// @{
  // NOLINTNEXTLINE(google-explicit-constructor)
  operator OVRef<OVObject>() const& { return this->object(); }
  // NOLINTNEXTLINE(google-explicit-constructor)
  operator OVRef<OVObject>() && { return std::move(*this).object(); }
  /// @}

  /// Stores `value` under `key`, replacing an earlier value.
  void set(const OVString& key, const mapped_type& value) const {
    this->tableToChange().set(key, value);
  }
  /// Removes the entry; false when there was none, and for a null key.
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

/// Iterates over a dictionary. Throws `std::logic_error` once entries have been added or removed,
/// and `std::out_of_range` past the last entry.
template <class T>
class DictionaryIterator {
 public:
  using iterator_concept = std::forward_iterator_tag;
  using iterator_category = std::input_iterator_tag;
  using value_type = std::pair<const OVString, ov::Handle<T>>;
  using difference_type = std::ptrdiff_t;
  // Const, so that `auto& [key, value]` in a loop can take it.
  using reference = const value_type;
  using pointer = ElementPointer<value_type>;

  DictionaryIterator() = default;
  DictionaryIterator(OVRef<OVObject> dictionary, std::size_t index)
      : dictionary_(std::move(dictionary)), index_(index) {
    if (dictionary_ == nullptr) return;
    changes_ = table().changes();
    skipRemoved();
  }

  reference operator*() const {  // NOLINT(readability-const-return-type)
    checkUnchanged();
    const bool isInside = dictionary_ != nullptr && index_ < table().entries().size();
    if (!isInside) raisePastTheEnd("OVDictionary");
    const auto& entry = table().entries()[index_];
    return {entry.key, ov::cast<T>(entry.value)};
  }
  pointer operator->() const { return {**this}; }
  DictionaryIterator& operator++() {
    checkUnchanged();
    ++index_;
    if (dictionary_ != nullptr) skipRemoved();
    return *this;
  }
  DictionaryIterator operator++(int) {
    auto before = *this;
    ++*this;
    return before;
  }
  friend bool operator==(const DictionaryIterator& a, const DictionaryIterator& b) {
    return a.index_ == b.index_;
  }

 private:
  [[nodiscard]] const DictionaryObject& table() const {
    return static_cast<const DictionaryObject&>(*dictionary_);
  }
  void checkUnchanged() const {
    if (dictionary_ != nullptr && table().changes() != changes_) raiseChangedInWalk("OVDictionary");
  }
  void skipRemoved() {
    const auto& entries = table().entries();
    while (index_ < entries.size() && entries[index_].key.isNull()) ++index_;
  }

  OVRef<OVObject> dictionary_;
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

/// @cond
template <class T>
OVDictionary<T> OVDictionary<const T>::copy() const {
  if (isNull()) return nullptr;
  auto made = OVDictionary<T>::dictionary();
  auto entries = table().entries();
  std::erase_if(entries, [](const Entry& entry) { return entry.key.isNull(); });
  made.table().assign(std::move(entries));
  return made;
}
/// @endcond
