#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <vector>

#include <OVAddressBookSDK/atomic.h>
#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/single_value.h>
#include <OVAddressBookSDK/value.h>

class OVMultipleValue;
class OVMutableMultipleValue;

template <>
struct ov::detail::Usual<OVMultipleValue> {
  using type = OVMutableMultipleValue;
};

/// The position returned when nothing is found.
inline constexpr std::uint64_t OVNotFound = 9223372036854775807U;

/// A read-only, ordered list of single values, one of which may be the main value.
///
/// Elements are compared by identity. Every multiple value that the library makes is an
/// `OVMutableMultipleValue`; a value of exactly this class is empty and stays empty.
class OV_EXPORT OVMultipleValue : public OVValue {
 public:
  /// A new empty value.
  [[nodiscard]] static OVRef<OVMultipleValue> init();

  /// Always `OVValueTypeMultiple`.
  [[nodiscard]] OVValueType type() const final;
  /// The type of the main value; 0 without one.
  [[nodiscard]] virtual OVValueType subType() const;
  /// How many elements there are.
  [[nodiscard]] virtual std::uint64_t count() const;
  /// May be null.
  [[nodiscard]] virtual OVRef<OVSingleValue> mainValue() const;
  /// Null past the end.
  [[nodiscard]] virtual OVRef<OVSingleValue> valueAtIndex(std::uint64_t index) const;
  /// The first position of this object; `OVNotFound` for null and when absent.
  [[nodiscard]] virtual std::uint64_t indexOfValue(const OVRef<OVSingleValue>& value) const;

  /// Always a new empty immutable list, even when there are elements.
  [[nodiscard]] OVList<const OVLabel> allLabel() const;
  /// A new list of the display names of the elements' labels, in order. Throws
  /// `std::invalid_argument` when an element has no label or its label no display name.
  [[nodiscard]] virtual OVList<OVString> allLabelName() const;

  /// A new multiple value with copies of the elements, added one by one: elements that
  /// `OVMutableMultipleValue::addValue` refuses are left out. Its main value is the element at the
  /// position that the main value has here, null when there is none.
  [[nodiscard]] OVRef<OVMutableMultipleValue> copy() const { return mutableCopy(); }
  /// The same as `copy`.
  [[nodiscard]] OVRef<OVMutableMultipleValue> mutableCopy() const;

  /// The class under which objects are archived.
  [[nodiscard]] static const OVClass& archivedClass();
  [[nodiscard]] const OVClass* classForCoder() const override;
  void encodeWithCoder(OVKeyedArchiver& coder) const override;

 protected:
  friend struct ov::detail::Maker;
  OVMultipleValue() { storeType(OVValueTypeMultiple); }

  /// The new value that every copy of this one starts as; it is given the elements. Override it so
  /// that copies keep the class and the fields that it adds; null counts as an
  /// `OVMutableMultipleValue`.
  [[nodiscard]] virtual OVRef<OVMutableMultipleValue> newCopy() const;

  [[nodiscard]] OVRef<OVValue> copyValue() const final;
};

/// An ordered list of single values of one type, which is that of the main value.
///
/// Bad input is silently refused: null, a value without datum, a position past the end, an element
/// that is not there. The same object may be in the list more than once.
///
/// A multiple value that was archived empty comes back without a list. It stays empty: `addValue`
/// makes the value the main value, if there is none, but stores it nowhere else; `indexOfValue`
/// returns 0 for every value but null; archived again, it is empty again.
///
/// \code
/// auto phones = OVMutableMultipleValue::init();
/// for (const char* number : {"+44 55 50 23", "+44 55 50 24"}) {
///   auto phone = OVObjectPhone::initWithPhoneNumber(number);
///   phones->addValue(ov::labelled(phone, "work", OVValueTypePhone));
/// }
/// phones->setMainValue(phones->valueAtIndex(1));
/// for (const auto& entry : phones)
///   std::cout << (entry == phones->mainValue() ? "main " : "other ");  // other main
/// \endcode
class OV_EXPORT OVMutableMultipleValue : public OVMultipleValue {
 public:
  /// A new, empty multiple value.
  [[nodiscard]] static OVRef<OVMutableMultipleValue> init();
  /// A mutable copy of `other`; null for null.
  [[nodiscard]] static OVRef<OVMutableMultipleValue> mutableMultipleValueWithOther(
      const OVRef<OVMultipleValue>& other);
  ~OVMutableMultipleValue() override;

  [[nodiscard]] OVValueType subType() const override;
  [[nodiscard]] std::uint64_t count() const override;
  /// Any thread may read it.
  [[nodiscard]] OVRef<OVSingleValue> mainValue() const override;
  [[nodiscard]] OVRef<OVSingleValue> valueAtIndex(std::uint64_t index) const override;
  [[nodiscard]] std::uint64_t indexOfValue(const OVRef<OVSingleValue>& value) const override;
  [[nodiscard]] OVList<OVString> allLabelName() const override;

  /// Appends `value`, which becomes the main value when there is none. Refused when its type is not
  /// that of the main value. Without a list it can only become the main value.
  void addValue(const OVRef<OVSingleValue>& value);
  /// The value need not be in the list. Null clears the main value.
  void setMainValue(const OVRef<OVSingleValue>& value);
  /// The new element may be of any type; it becomes the main value when the old one was.
  void replaceValueForIndex(const OVRef<OVSingleValue>& value, std::uint64_t index);
  /// Replaces the first occurrence of `original`.
  void replaceValueForOriginal(const OVRef<OVSingleValue>& value,
                               const OVRef<OVSingleValue>& original);
  /// Removes every occurrence. If it was the main value, the first remaining element becomes it.
  void removeValue(const OVRef<OVSingleValue>& value);
  /// The same for the element at `index`, its other occurrences included.
  void removeValueAtIndex(std::uint64_t index);

  /// The class under which objects are archived.
  [[nodiscard]] static const OVClass& archivedClass();
  [[nodiscard]] const OVClass* classForCoder() const override;
  void encodeWithCoder(OVKeyedArchiver& coder) const override;
  void initWithCoder(OVKeyedUnarchiver& coder) override;

 protected:
  friend struct ov::detail::Maker;
  OVMutableMultipleValue() = default;

 private:
  [[nodiscard]] bool isMain(const OVRef<OVObject>& element) const;

  // An archive may hold objects of any class: they read as null, are kept and written back. Without
  // a list, what was in its place is all that is here.
  bool hasList_ = true;
  std::vector<OVRef<OVObject>> elements_;
  OVAtomic<OVRef<OVObject>> mainValue_;
};

/// Iterates over the single values of a multiple value, in order; objects of other classes, which
/// an archive may hold there, are skipped. The value may change meanwhile.
class OVMultipleValueIterator {
 public:
  /// What the standard requires of an input iterator.
  /// @{
  using iterator_concept = std::input_iterator_tag;
  using value_type = OVRef<OVSingleValue>;
  using difference_type = std::ptrdiff_t;

  OVMultipleValueIterator() = default;
  explicit OVMultipleValueIterator(OVRef<const OVMultipleValue> multiple)
      : multiple_(std::move(multiple)) {
    skipOthers();
  }
  const value_type& operator*() const { return value_; }
  OVMultipleValueIterator& operator++() {
    ++index_;
    skipOthers();
    return *this;
  }
  void operator++(int) { ++*this; }
  friend bool operator==(const OVMultipleValueIterator& at, std::default_sentinel_t) {
    return at.value_ == nullptr;
  }
  /// @}

 private:
  void skipOthers() {
    value_ = nullptr;
    const std::uint64_t count = multiple_ == nullptr ? 0 : multiple_->count();
    for (; index_ < count && value_ == nullptr; ++index_) value_ = multiple_->valueAtIndex(index_);
    if (value_ != nullptr) --index_;
  }

  OVRef<const OVMultipleValue> multiple_;
  std::uint64_t index_ = 0;
  OVRef<OVSingleValue> value_;
};

/// @name Iteration over a reference
/// `for (const auto& value : multiple)` iterates over a multiple value, which the iterator keeps
/// alive. Null counts as empty.
/// @{
template <std::derived_from<OVMultipleValue> T>
OVMultipleValueIterator begin(const std::shared_ptr<T>& multiple) {
  return OVMultipleValueIterator(multiple);
}
template <std::derived_from<OVMultipleValue> T>
std::default_sentinel_t end(const std::shared_ptr<T>& /*multiple*/) {
  return {};
}
/// @}
