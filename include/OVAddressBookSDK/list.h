#pragma once

#include <compare>
#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>

namespace ov::detail {

/// The elements behind one list, whatever their class. Views of the list share them.
struct ListElements {
  std::vector<OVRef<OVObject>> items;
  /// Recorded as "NSArray" instead of "NSMutableArray".
  bool immutable = false;

  ListElements() = default;
  ListElements(const ListElements&) = delete;
  ListElements& operator=(const ListElements&) = delete;
  OV_EXPORT ~ListElements();
};

/// What lists of every element type have in common.
class OV_EXPORT AnyList : public OVObject {
 public:
  [[nodiscard]] std::size_t size() const { return elements_->items.size(); }
  [[nodiscard]] bool empty() const { return elements_->items.empty(); }
  void clear();
  /// Removes the element at `index`; throws `std::out_of_range` past the end.
  void erase(std::size_t index);
  /// True when this list can only have been made as an immutable one.
  [[nodiscard]] bool isImmutable() const { return elements_->immutable; }

  [[nodiscard]] const OVClass* classForCoder() const override;
  void encodeWithCoder(OVKeyedArchiver& coder) const override;
  void initWithCoder(OVKeyedUnarchiver& coder) override;

  [[nodiscard]] const std::shared_ptr<ListElements>& elements() const { return elements_; }

 protected:
  explicit AnyList(std::shared_ptr<ListElements> elements) : elements_(std::move(elements)) {}

  [[nodiscard]] const OVRef<OVObject>& itemAt(std::size_t index) const;
  OVRef<OVObject>& itemAt(std::size_t index);
  void insertItem(std::size_t index, OVRef<OVObject> item);

 private:
  std::shared_ptr<ListElements> elements_;
};

/// Equality of elements: texts by their characters, other objects by identity. Null is no element:
/// what merely reads as null is not equal to it.
inline bool sameElement(const OVString& a, const OVString& b) { return !a.isNull() && a == b; }
template <class T>
bool sameElement(const OVRef<T>& a, const OVRef<T>& b) {
  return a != nullptr && a == b;
}

}  // namespace ov::detail

/// An ordered list, shared by reference: a change through one reference shows in all.
///
/// Elements are `OVRef<T>`, or `OVString` for a list of strings. Nothing null can be put into a
/// list (`std::invalid_argument`). A list that came out of an archive may hold objects of another
/// class than T: they read as null, are kept, and are written back. Positions past the end raise
/// `std::out_of_range`. Changing a list invalidates its iterators.
template <class T>
class OVList final : public ov::detail::AnyList {
 public:
  /// `OVRef<T>`, or `OVString` in a list of strings.
  using value_type = ov::Handle<T>;

  /// Walks through the elements; gives them as `OVRef<T>`, or `OVString`.
  class const_iterator {
   public:
    /// What the standard asks of a random-access iterator.
    /// @{
    using iterator_concept = std::random_access_iterator_tag;
    using iterator_category = std::input_iterator_tag;
    using value_type = ov::Handle<T>;
    using difference_type = std::ptrdiff_t;
    using reference = value_type;

    const_iterator() = default;
    value_type operator*() const { return ov::cast<T>(*at_); }
    value_type operator[](difference_type n) const { return *(*this + n); }
    const_iterator& operator++() { return *this += 1; }
    const_iterator& operator--() { return *this += -1; }
    const_iterator operator++(int) { return std::exchange(*this, *this + 1); }
    const_iterator operator--(int) { return std::exchange(*this, *this - 1); }
    const_iterator& operator+=(difference_type n) {
      at_ += n;
      return *this;
    }
    const_iterator& operator-=(difference_type n) { return *this += -n; }
    friend const_iterator operator+(const_iterator i, difference_type n) { return i += n; }
    friend const_iterator operator+(difference_type n, const_iterator i) { return i += n; }
    friend const_iterator operator-(const_iterator i, difference_type n) { return i -= n; }
    friend difference_type operator-(const_iterator a, const_iterator b) { return a.at_ - b.at_; }
    friend auto operator<=>(const_iterator, const_iterator) = default;
    /// @}

   private:
    friend class OVList;
    explicit const_iterator(const OVRef<OVObject>* at) : at_(at) {}
    const OVRef<OVObject>* at_ = nullptr;
  };
  /// Elements cannot be changed through an iterator.
  using iterator = const_iterator;

  /// A new list of the given elements.
  [[nodiscard]] static OVRef<OVList> list(std::initializer_list<value_type> values = {}) {
    auto made = std::shared_ptr<OVList>(new OVList(std::make_shared<ov::detail::ListElements>()));
    for (const value_type& value : values) made->push_back(value);
    return made;
  }
  /// A new, empty list that is recorded as immutable.
  [[nodiscard]] static OVRef<OVList> immutableList() {
    auto made = list();
    made->elements()->immutable = true;
    return made;
  }
  /// This very kind of list over the elements of another; null for null.
  [[nodiscard]] static OVRef<OVList> viewOf(const OVRef<ov::detail::AnyList>& other) {
    if (other == nullptr) return nullptr;
    if (auto same = std::dynamic_pointer_cast<OVList>(other)) return same;
    return std::shared_ptr<OVList>(new OVList(other->elements()));
  }
  /// A new list of the same elements.
  [[nodiscard]] OVRef<OVList> copy() const {
    auto made = list();
    made->elements()->items = elements()->items;
    return made;
  }

  /// The first element.
  [[nodiscard]] const_iterator begin() const { return const_iterator(elements()->items.data()); }
  /// Past the last element.
  [[nodiscard]] const_iterator end() const { return begin() + static_cast<std::ptrdiff_t>(size()); }

  /// The element at a position: the first, the last or any.
  /// @{
  value_type operator[](std::size_t index) const { return ov::cast<T>(itemAt(index)); }
  [[nodiscard]] value_type front() const { return (*this)[0]; }
  [[nodiscard]] value_type back() const { return (*this)[size() - 1]; }
  /// @}

  /// Puts an element after the last one.
  void push_back(const value_type& value) { insertItem(size(), value); }
  /// Puts an element before the one at `index`, or after the last one.
  void insert(std::size_t index, const value_type& value) { insertItem(index, value); }
  /// Puts `value` in the place of the element at `index`.
  void replace(std::size_t index, const value_type& value) {
    itemAt(index);
    insertItem(index, value);
    erase(index + 1);
  }
  /// The first element equal to `value`: texts by their characters, objects by identity.
  [[nodiscard]] const_iterator find(const value_type& value) const {
    auto at = begin();
    while (at != end() && !ov::detail::sameElement(*at, value)) ++at;
    return at;
  }
  /// Whether the element stands in the list.
  [[nodiscard]] bool contains(const value_type& value) const { return find(value) != end(); }
  /// Removes every element equal to `value`; returns how many there were.
  std::size_t remove(const value_type& value) {
    return std::erase_if(elements()->items, [&](const OVRef<OVObject>& item) {
      return ov::detail::sameElement(ov::cast<T>(item), value);
    });
  }

 private:
  friend struct ov::detail::Maker;
  explicit OVList(std::shared_ptr<ov::detail::ListElements> elements)
      : AnyList(std::move(elements)) {}
};

/// @name Iteration over a reference
/// `for (const auto person : book->allPersons())` keeps the list alive for the whole loop, which
/// `*book->allPersons()` would not. Null counts as empty.
/// @{
template <class T>
typename OVList<T>::const_iterator begin(const OVRef<OVList<T>>& list) {
  return list == nullptr ? typename OVList<T>::const_iterator() : list->begin();
}
template <class T>
typename OVList<T>::const_iterator end(const OVRef<OVList<T>>& list) {
  return list == nullptr ? typename OVList<T>::const_iterator() : list->end();
}
/// @}

template <class T>
struct ov::detail::Cast<OVList<T>> {
  static OVRef<OVList<T>> from(const OVRef<OVObject>& object) {
    return OVList<T>::viewOf(std::dynamic_pointer_cast<AnyList>(object));
  }
};
