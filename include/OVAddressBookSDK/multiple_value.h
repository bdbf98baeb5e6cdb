#pragma once

#include <cstdint>
#include <vector>

#include <OVAddressBookSDK/atomic.h>
#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/single_value.h>
#include <OVAddressBookSDK/value.h>

class OVMutableMultipleValue;

/// The position reported when nothing is found.
inline constexpr std::uint64_t OVNotFound = 9223372036854775807U;

/// An ordered list of single values, one of which may be the main value, to be read.
///
/// Elements are compared by identity. Every multiple value that the library makes is an
/// `OVMutableMultipleValue`; a value of this very class is empty and stays so.
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
  /// The first position of this very object; `OVNotFound` for null and when absent.
  [[nodiscard]] virtual std::uint64_t indexOfValue(const OVRef<OVSingleValue>& value) const;

  /// Always a new empty immutable list, even when there are elements.
  [[nodiscard]] OVRef<OVList<OVLabel>> allLabel() const;
  /// A new list of the display names of the elements' labels, in order. Throws
  /// `std::invalid_argument` when an element has no label or its label no display name.
  [[nodiscard]] virtual OVRef<OVList<OVString>> allLabelName() const;

  /// A new multiple value of copies of the elements, added one by one: elements that
  /// `OVMutableMultipleValue::addValue` refuses are left out. Its main value is the element at the
  /// position that the main value has here, null when there is none.
  [[nodiscard]] OVRef<OVMutableMultipleValue> copy() const { return mutableCopy(); }
  /// The same as `copy`.
  [[nodiscard]] OVRef<OVMutableMultipleValue> mutableCopy() const;

  /// The class under which objects are archived.
  [[nodiscard]] static const OVClass& archivedClass();
  [[nodiscard]] const OVClass* classForCoder() const override;

 protected:
  friend struct ov::detail::Maker;
  OVMultipleValue() = default;

  [[nodiscard]] OVRef<OVValue> copyValue() const override;
};

/// An ordered list of single values of one type, learned from the main value.
///
/// Bad input is refused in silence: null, a value without datum, a position past the end, an
/// element that is not there. The same object may stand in the list more than once.
///
/// A multiple value that was archived empty comes back without any list: nothing can be added to
/// it, and `indexOfValue` answers 0 for every value but null.
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
  [[nodiscard]] OVRef<OVList<OVString>> allLabelName() const override;

  /// Appends `value`, which becomes the main value when there is none. Refused when its type is not
  /// that of the main value.
  void addValue(const OVRef<OVSingleValue>& value);
  /// Unconditional: the value need not be in the list. Null leaves no main value.
  void setMainValue(const OVRef<OVSingleValue>& value);
  /// The new element may be of any type; it becomes the main value when the old one was.
  void replaceValueForIndex(const OVRef<OVSingleValue>& value, std::uint64_t index);
  /// Replaces the first occurrence of `original`.
  void replaceValueForOriginal(const OVRef<OVSingleValue>& value,
                               const OVRef<OVSingleValue>& original);
  /// Removes every occurrence. After the main value, the first element left is the main value.
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

  // An archive may hold objects of any class: they read as null, are kept and written back.
  bool hasList_ = true;
  std::vector<OVRef<OVObject>> elements_;
  OVAtomic<OVRef<OVObject>> mainValue_;
};
