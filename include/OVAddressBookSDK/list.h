#pragma once

#include <algorithm>
#include <compare>
#include <concepts>
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

/// The array that all handles on one list share: what an archive holds.
class OV_EXPORT ListObject final : public OVObject {
 public:
  explicit ListObject(bool isImmutable = false) : immutable(isImmutable) {}
  ~ListObject() override;

  /// These throw `std::invalid_argument` for a null item and `std::out_of_range` for a wrong
  /// position.
  void insert(std::size_t index, OVRef<OVObject> item);
  void set(std::size_t index, OVRef<OVObject> item);
  void erase(std::size_t index);
  void clear();
  /// The position of the first equal text; past the end when there is none, and for null.
  [[nodiscard]] std::size_t positionOf(const OVString& text) const;

  [[nodiscard]] const OVClass* classForCoder() const override;
  void encodeWithCoder(OVKeyedArchiver& coder) const override;
  void initWithCoder(OVKeyedUnarchiver& coder) override;

  std::vector<OVRef<OVObject>> items;
  /// Counts the insertions and removals, so that a walk through the list notices them.
  std::uint32_t changes = 0;
  /// Counts the elements that were put in the place of others, up to its largest value.
  std::uint16_t replacements = 0;
  /// Recorded as "NSArray" instead of "NSMutableArray".
  bool immutable;
};

[[noreturn]] OV_EXPORT void raiseOutOfRange(std::size_t index, std::size_t size);
[[noreturn]] OV_EXPORT void raisePastTheEnd(const char* what);
[[noreturn]] OV_EXPORT void raiseChangedInWalk(const char* what);
[[noreturn]] OV_EXPORT void raiseNullChanged(const char* what);

/// What handles on lists of every element type have in common.
class ListHandle {
 public:
  /// True for null, false for an empty list.
  [[nodiscard]] bool isNull() const { return object_ == nullptr; }
  /// False for null, true for an empty list.
  explicit operator bool() const { return object_ != nullptr; }
  /// How many elements there are; 0 for null.
  [[nodiscard]] std::size_t size() const { return isNull() ? 0 : array().items.size(); }
  /// True for null and for a list without elements.
  [[nodiscard]] bool empty() const { return size() == 0; }
  /// Whether archives record the list as immutable. It tells other programs; here it can be changed
  /// all the same.
  [[nodiscard]] bool isImmutable() const { return !isNull() && array().immutable; }

  /// The object that all handles on the list share, null for null. `ov::cast` makes a handle of it.
  [[nodiscard]] const OVRef<OVObject>& object() const& OV_LIFETIMEBOUND { return object_; }
  [[nodiscard]] OVRef<OVObject> object() && { return std::move(object_); }
  /// The same.
  /// @{
  operator OVRef<OVObject>() const& { return object_; }  // NOLINT(google-explicit-constructor)
  // NOLINTNEXTLINE(google-explicit-constructor)
  operator OVRef<OVObject>() && { return std::move(object_); }
  /// @}

  /// Whether both are handles on the same list, or both null.
  friend bool operator==(const ListHandle& a, const ListHandle& b) {
    return a.object_ == b.object_;
  }
  friend bool operator==(const ListHandle& list, std::nullptr_t) { return list.isNull(); }

 protected:
  ListHandle() = default;
  explicit ListHandle(OVRef<OVObject> list) : object_(std::move(list)) {}

  [[nodiscard]] ListObject& array() const { return static_cast<ListObject&>(*object_); }
  [[nodiscard]] ListObject& arrayToChange() const {
    if (isNull()) raiseNullChanged("OVList");
    return array();
  }

 private:
  OVRef<OVObject> object_;
};

/// Equality of elements: texts by their characters, other objects by identity. Null is no element:
/// what merely reads as null is not equal to it.
template <class Element>
bool sameElement(const Element& a, const Element& b) {
  return a != nullptr && a == b;
}

template <class T>
class ListIterator;

}  // namespace ov::detail

template <class T>
class OVList;

/// An ordered list, to be read only. `OVList<T>` adds what changes a list, and can be used wherever
/// an `OVList<const T>` is asked for.
///
/// A handle, like `OVString`: copies share the list, and null, which reads as empty, differs from
/// an empty list. Elements are `OVRef<T>`, or `OVString` and other lists and dictionaries
/// themselves. A list that came out of an archive may hold objects of another class than T: they
/// read as null, are kept, and are written back. Positions past the end raise `std::out_of_range`.
///
///     for (const auto& person : book->allPersons()) std::cout << person->displayName() << "\n";
///
/// The list lives as long as the loop. When elements are added or removed meanwhile, the walk ends
/// with a `std::logic_error`: walk through a `copy()` instead.
template <class T>
class OVList<const T> : public ov::detail::ListHandle {
 public:
  /// `OVRef<T>`, or T itself where that is a handle.
  using value_type = ov::Handle<T>;
  /// Walks through the elements, which cannot be changed through it. Valid while a handle on the
  /// list lives.
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
  [[nodiscard]] const_iterator begin() const& { return at(0); }
  /// Past the last element.
  [[nodiscard]] const_iterator end() const& { return at(size()); }
  /// An iterator needs a handle that outlives it.
  /// @{
  [[nodiscard]] const_iterator begin() const&& = delete;
  [[nodiscard]] const_iterator end() const&& = delete;
  /// @}

  /// The element at a position: the first, the last or any.
  /// @{
  value_type operator[](std::size_t index) const {
    if (index >= size()) ov::detail::raiseOutOfRange(index, size());
    return ov::cast<T>(array().items[index]);
  }
  [[nodiscard]] value_type front() const { return (*this)[0]; }
  [[nodiscard]] value_type back() const { return (*this)[size() - 1]; }
  /// @}

  /// The first element equal to `value`: texts by their characters, objects by identity.
  [[nodiscard]] const_iterator find(const value_type& value) const& {
    return at(positionOf(value));
  }
  [[nodiscard]] const_iterator find(const value_type& value) const&& = delete;
  /// Whether the element is in the list.
  [[nodiscard]] bool contains(const value_type& value) const { return positionOf(value) < size(); }

 protected:
  /// On a list object, or null.
  explicit OVList(OVRef<OVObject> list) : ListHandle(std::move(list)) {}

 private:
  friend struct ov::detail::Cast<OVList>;

  [[nodiscard]] const_iterator at(std::size_t index) const {
    return isNull() ? const_iterator() : const_iterator(array(), index);
  }
  [[nodiscard]] std::size_t positionOf(const value_type& value) const {
    if constexpr (std::same_as<T, OVString>) {
      return this->isNull() ? 0 : this->array().positionOf(value);
    }
    std::size_t position = 0;
    while (position < size() && !ov::detail::sameElement((*this)[position], value)) ++position;
    return position;
  }
};

/// An ordered list, shared by its handles: a change through one shows in all. See `OVList<const T>`
/// for what can be read.
///
/// What is const of a const handle is which list it is on: the list can be changed through it, as
/// through its copies. Nothing null can be put into a list (`std::invalid_argument`), and null
/// itself cannot be changed (`std::logic_error`).
template <class T>
class OVList final : public OVList<const T> {
 public:
  using typename OVList<const T>::value_type;

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

  /// Puts an element after the last one.
  void push_back(const value_type& value) const { insert(this->size(), value); }
  /// Puts an element before the one at `index`, or after the last one.
  void insert(std::size_t index, const value_type& value) const {
    this->arrayToChange().insert(index, value);
  }
  /// Puts `value` in the place of the element at `index`.
  void set(std::size_t index, const value_type& value) const {
    this->arrayToChange().set(index, value);
  }
  /// Removes the element at `index`.
  void erase(std::size_t index) const { this->arrayToChange().erase(index); }
  /// Removes every element equal to `value`; returns how many there were.
  // NOLINTNEXTLINE(modernize-use-nodiscard): it changes the list
  std::size_t remove(const value_type& value) const {
    auto& array = this->arrayToChange();
    const std::size_t removed = std::erase_if(array.items, [&value](const OVRef<OVObject>& item) {
      return ov::detail::sameElement(ov::cast<T>(item), value);
    });
    if (removed != 0) ++array.changes;
    return removed;
  }
  /// Orders the elements: `less` tells whether the first of two comes before the second. Equal ones
  /// keep their order.
  template <class Less>
  void sort(Less less) const {
    auto& array = this->arrayToChange();
    ++array.changes;
    std::ranges::stable_sort(array.items, [&less](const auto& a, const auto& b) {
      return less(ov::cast<T>(a), ov::cast<T>(b));
    });
  }
  /// Removes all elements.
  void clear() const { this->arrayToChange().clear(); }

 private:
  friend struct ov::detail::Cast<OVList>;
  explicit OVList(OVRef<OVObject> list) : OVList<const T>(std::move(list)) {}
};

namespace ov::detail {

/// Walks through a list. Raises `std::logic_error` once elements have been added or removed, and
/// `std::out_of_range` for the element past the last.
template <class T>
class ListIterator {
 public:
  using iterator_concept = std::random_access_iterator_tag;
  using iterator_category = std::input_iterator_tag;
  using value_type = ov::Handle<T>;
  using difference_type = std::ptrdiff_t;
  // Const, so that `auto&` in a loop can take it.
  using reference = const value_type;

  ListIterator() = default;
  ListIterator(const ListObject& list, std::size_t index)
      : list_(&list), index_(static_cast<difference_type>(index)), changes_(list.changes) {}

  reference operator*() const {  // NOLINT(readability-const-return-type)
    checkUnchanged();
    const auto index = static_cast<std::size_t>(index_);
    const bool isInside = list_ != nullptr && index < list_->items.size();
    if (!isInside) raisePastTheEnd("OVList");
    return ov::cast<T>(list_->items[index]);
  }
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
  friend difference_type operator-(ListIterator a, ListIterator b) { return a.index_ - b.index_; }
  friend bool operator==(ListIterator a, ListIterator b) { return a.index_ == b.index_; }
  friend auto operator<=>(ListIterator a, ListIterator b) { return a.index_ <=> b.index_; }

 private:
  void checkUnchanged() const {
    if (list_ != nullptr && list_->changes != changes_) raiseChangedInWalk("OVList");
  }

  const ListObject* list_ = nullptr;
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
