#pragma once

#include <algorithm>
#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <type_traits>
#include <utility>

#include <OVAddressBookSDK/list_object.h>
#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>
#include <OVAddressBookSDK/text_view.h>

namespace ov::detail {

template <class T>
class ListIterator;

}  // namespace ov::detail

template <class T>
class OVList;

/// A read-only view of an ordered list. `OVList<T>` adds the changes, and can be used wherever an
/// `OVList<const T>` is expected.
///
/// A handle, like `OVString`: copies share the list, and null, which reads as empty, differs from
/// an empty list. Elements are `OVRef<T>`, or `OVString` and other lists and dictionaries
/// themselves. A list from an archive may hold objects of another class than T: they read as null,
/// are kept, and are written back. Positions past the end throw `std::out_of_range`.
///
/// \code
/// auto tags = OVList<OVString>::list({"Friends", "Rowing"});
/// const OVList<const OVString> shown = tags;
/// tags.push_back("Neighbours");
/// for (const OVString& tag : shown) std::cout << tag << "\n";  // Friends Rowing Neighbours
/// \endcode
///
/// The loop keeps the list alive. Adding, removing or reordering elements during the loop makes it
/// throw `std::logic_error`: iterate over a `copy()` instead.
template <class T>
class OVList<const T> : public ov::detail::ListHandle {
 public:
  /// `OVRef<T>`, or T itself where that is a handle.
  using value_type = ov::Handle<T>;
  /// An element to look for; a text need not be made for it.
  using sought_type = std::conditional_t<std::same_as<T, OVString>, OVStringView, value_type>;
  /// Iterates over the elements, cannot change them, and keeps the list alive.
  using const_iterator = ov::detail::ListIterator<T>;
  /// The same.
  using iterator = const_iterator;

  /// Null.
  OVList() = default;
  /// Null.
  OVList(std::nullptr_t) {}  // NOLINT(google-explicit-constructor)

  /// A new list of the same elements; null for null.
  [[nodiscard]] OVList<T> copy() const;

  /// The first element.
  [[nodiscard]] const_iterator begin() const { return const_iterator(object(), 0); }
  /// Past the last element.
  [[nodiscard]] const_iterator end() const { return const_iterator(object(), size()); }

  /// The element at a position: the first, the last or any.
  /// @{
  value_type operator[](std::size_t index) const {
    if (index >= size()) ov::detail::raiseOutOfRange(index, size());
    return ov::cast<T>(array().items[index]);
  }
  [[nodiscard]] value_type front() const { return (*this)[0]; }
  [[nodiscard]] value_type back() const { return (*this)[empty() ? 0 : size() - 1]; }
  /// @}

  /// The first element equal to `value`: texts by their characters, objects by identity.
  [[nodiscard]] const_iterator find(const sought_type& value) const {
    return const_iterator(object(), positionOf(value));
  }
  /// Whether the element is in the list.
  [[nodiscard]] bool contains(const sought_type& value) const { return positionOf(value) < size(); }

 protected:
  /// On a list object, or null.
  explicit OVList(OVRef<OVObject> list) : ListHandle(std::move(list)) {}

 private:
  friend struct ov::detail::Cast<OVList>;

  [[nodiscard]] std::size_t positionOf(const sought_type& value) const {
    if constexpr (std::same_as<T, OVString>) {
      return this->isNull() ? 0 : this->array().positionOf(value);
    } else {
      std::size_t position = 0;
      while (position < size() && !ov::detail::sameElement((*this)[position], value)) ++position;
      return position;
    }
  }
};

/// An ordered list, shared by its handles: a change through one shows in all. See `OVList<const T>`
/// for reading.
///
/// A const handle always refers to the same list, but can still change it, as its copies can. Null
/// elements are refused (`std::invalid_argument`), and a null handle cannot be changed
/// (`std::logic_error`).
template <class T>
class OVList final : public OVList<const T> {
 public:
  using typename OVList<const T>::value_type;
  using typename OVList<const T>::sought_type;

  /// Null.
  OVList() = default;
  /// Null.
  OVList(std::nullptr_t) {}  // NOLINT(google-explicit-constructor)
  /// A new list of the given elements.
  [[nodiscard]] static OVList list(std::initializer_list<value_type> values = {}) {
    OVList made(std::make_shared<ov::detail::ListObject>());
    for (const value_type& value : values) made.push_back(value);
    return made;
  }
  /// A new, empty list that archives record as immutable.
  [[nodiscard]] static OVList immutableList() {
    return OVList(std::make_shared<ov::detail::ListObject>(true));
  }

  /// The list as an object: the result of `object`.
  /// @{
  // NOLINTNEXTLINE(google-explicit-constructor)
  operator OVRef<OVObject>() const& { return this->object(); }
  // NOLINTNEXTLINE(google-explicit-constructor)
  operator OVRef<OVObject>() && { return std::move(*this).object(); }
  /// @}

  /// Appends an element.
  void push_back(const value_type& value) const { insert(this->size(), value); }
  /// Inserts an element before the one at `index`, or at the end.
  void insert(std::size_t index, const value_type& value) const {
    this->arrayToChange().insert(index, value);
  }
  /// Replaces the element at `index`.
  void set(std::size_t index, const value_type& value) const {
    this->arrayToChange().set(index, value);
  }
  /// Removes the element at `index`.
  void erase(std::size_t index) const { this->arrayToChange().erase(index); }
  /// Removes every element equal to `value`; returns how many there were.
  // NOLINTNEXTLINE(modernize-use-nodiscard): it changes the list
  std::size_t remove(const sought_type& value) const {
    auto& array = this->arrayToChange();
    const std::size_t removed = std::erase_if(array.items, [&value](const OVRef<OVObject>& item) {
      return ov::detail::sameElement(ov::cast<T>(item), value);
    });
    if (removed != 0) ++array.changes;
    return removed;
  }
  /// Sorts the elements: `less` says whether the first of two comes before the second. Equal ones
  /// keep their order. When `less` throws, the list is unchanged; it must not change the list
  /// (`std::logic_error`).
  template <class Less>
  void sort(Less less) const {
    auto& array = this->arrayToChange();
    const auto changes = array.changes;
    auto sorted = array.items;
    std::ranges::stable_sort(sorted, [&less](const auto& a, const auto& b) {
      return less(ov::cast<T>(a), ov::cast<T>(b));
    });
    if (array.changes != changes) ov::detail::raiseChangedInWalk("OVList");
    array.items.swap(sorted);
    ++array.changes;
  }
  /// Removes all elements.
  void clear() const { this->arrayToChange().clear(); }

 private:
  friend struct ov::detail::Cast<OVList>;
  explicit OVList(OVRef<OVObject> list) : OVList<const T>(std::move(list)) {}
};

namespace ov::detail {

/// Iterates over a list. Throws `std::logic_error` once elements have been added, removed or
/// reordered, and `std::out_of_range` past the last element.
template <class T>
class ListIterator {
 public:
  using iterator_concept = std::random_access_iterator_tag;
  using iterator_category = std::input_iterator_tag;
  using value_type = ov::Handle<T>;
  using difference_type = std::ptrdiff_t;
  // Const, so that `auto&` in a loop can take it.
  using reference = const value_type;
  using pointer = ElementPointer<value_type>;

  ListIterator() = default;
  ListIterator(OVRef<OVObject> list, std::size_t index)
      : list_(std::move(list)), index_(static_cast<difference_type>(index)) {
    if (list_ != nullptr) changes_ = array().changes;
  }

  reference operator*() const {  // NOLINT(readability-const-return-type)
    checkUnchanged();
    const auto index = static_cast<std::size_t>(index_);
    const bool isInside = list_ != nullptr && index < array().items.size();
    if (!isInside) raisePastTheEnd("OVList");
    return ov::cast<T>(array().items[index]);
  }
  pointer operator->() const { return {**this}; }
  // NOLINTNEXTLINE(readability-const-return-type)
  reference operator[](difference_type n) const { return *(*this + n); }
  ListIterator& operator++() {
    checkUnchanged();
    return *this += 1;
  }
  ListIterator& operator--() { return *this += -1; }
  ListIterator operator++(int) { return std::exchange(*this, *this + 1); }
  ListIterator operator--(int) { return std::exchange(*this, *this - 1); }
  ListIterator& operator+=(difference_type n) {
    index_ += n;
    return *this;
  }
  ListIterator& operator-=(difference_type n) { return *this += -n; }
  friend ListIterator operator+(ListIterator i, difference_type n) { return i += n; }
  friend ListIterator operator+(difference_type n, ListIterator i) { return i += n; }
  friend ListIterator operator-(ListIterator i, difference_type n) { return i -= n; }
  friend difference_type operator-(const ListIterator& a, const ListIterator& b) {
    return a.index_ - b.index_;
  }
  friend bool operator==(const ListIterator& a, const ListIterator& b) {
    return a.index_ == b.index_;
  }
  friend auto operator<=>(const ListIterator& a, const ListIterator& b) {
    return a.index_ <=> b.index_;
  }

 private:
  [[nodiscard]] const ListObject& array() const { return static_cast<const ListObject&>(*list_); }
  void checkUnchanged() const {
    if (list_ != nullptr && array().changes != changes_) raiseChangedInWalk("OVList");
  }

  OVRef<OVObject> list_;
  difference_type index_ = 0;
  std::uint32_t changes_ = 0;
};

template <class T>
struct Handle<OVList<T>> {
  using type = OVList<T>;
};

template <class T>
struct Cast<OVList<T>> {
  static OVList<T> from(const OVRef<OVObject>& object) {
    return isOfClass<ListObject>(object) ? OVList<T>(object) : OVList<T>();
  }
};

}  // namespace ov::detail

/// @cond
template <class T>
OVList<T> OVList<const T>::copy() const {
  if (isNull()) return nullptr;
  auto made = OVList<T>::list();
  made.array().items = array().items;
  return made;
}
/// @endcond
