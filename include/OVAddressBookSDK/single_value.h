#pragma once

#include <cstddef>

#include <OVAddressBookSDK/atomic.h>
#include <OVAddressBookSDK/label.h>
#include <OVAddressBookSDK/text.h>
#include <OVAddressBookSDK/value.h>

class OVMutableSingleValue;
class OVSingleValue;

template <>
struct ov::detail::Usual<OVSingleValue> {
  using type = OVMutableSingleValue;
};

/// One labelled datum, read-only. Label and datum are shared, never copied.
///
/// Every single value that the library makes is an `OVMutableSingleValue`.
class OV_EXPORT OVSingleValue : public OVValue {
 public:
  /// An empty value that stays empty: type 0, no label, no datum. Only archives of other programs
  /// give values of exactly this class that hold anything.
  [[nodiscard]] static OVRef<OVSingleValue> init();
  ~OVSingleValue() override;

  /// May be null, and is null when an archive held something that is not a label. Any thread may
  /// read it.
  [[nodiscard]] OVRef<OVLabel> label() const { return ov::cast<OVLabel>(label_.load()); }
  /// The datum; may be null. Any thread may read it.
  [[nodiscard]] OVRef<OVObject> value() const { return value_.load(); }

  /// A new value of the same type that shares label and datum. It is mutable: there are no
  /// immutable copies. Its class is what `newCopy` says.
  [[nodiscard]] OVRef<OVMutableSingleValue> copy() const { return mutableCopy(); }
  /// The same as `copy`.
  [[nodiscard]] OVRef<OVMutableSingleValue> mutableCopy() const;

  /// The class under which objects are archived.
  [[nodiscard]] static const OVClass& archivedClass();
  [[nodiscard]] const OVClass* classForCoder() const override;
  void encodeWithCoder(OVKeyedArchiver& coder) const override;
  void initWithCoder(OVKeyedUnarchiver& coder) override;

 protected:
  friend struct ov::detail::Maker;
  OVSingleValue() = default;

  /// The new value that every copy of this one, also inside a copy of a multiple value, starts as;
  /// it is given type, label and datum, in this order. Override it so that copies keep the class
  /// and the fields that it adds; null counts as an `OVMutableSingleValue`.
  [[nodiscard]] virtual OVRef<OVMutableSingleValue> newCopy() const;

  [[nodiscard]] OVRef<OVValue> copyValue() const final;

 private:
  friend class OVMutableSingleValue;

  // An archive may hold objects of any class in both places: they are kept and written back.
  OVAtomic<OVRef<OVObject>> label_;
  OVAtomic<OVRef<OVObject>> value_;
};

/// One labelled datum. The setters only store: nothing is checked or announced. Other threads may
/// meanwhile read the value or save its book; they get the old or the new one.
class OV_EXPORT OVMutableSingleValue : public OVSingleValue {
 public:
  /// A new value: type 0, no label, no datum.
  [[nodiscard]] static OVRef<OVMutableSingleValue> init();

  /// Replaces the type; the datum is kept. Any code is accepted, such as
  /// `static_cast<OVValueType>(14)`.
  void setType(OVValueType type) { storeType(type); }
  /// Null clears the label.
  void setLabel(OVRef<OVLabel> label) { label_.store(std::move(label)); }
  /// Null clears the datum.
  void setValue(OVRef<OVObject> value) { value_.store(std::move(value)); }
  /// The same with a text, which may be a literal or a `std::string`.
  void setValue(const OVString& text) { value_.store(text); }
  /// Clears the datum.
  void setValue(std::nullptr_t) { value_.store(nullptr); }

  /// The class under which objects are archived.
  [[nodiscard]] static const OVClass& archivedClass();
  [[nodiscard]] const OVClass* classForCoder() const override;

 protected:
  friend struct ov::detail::Maker;
  OVMutableSingleValue() = default;
};

namespace ov {

/// A new single value of a datum, which it shares; most entries of a person are made with it.
///
/// \code
/// auto phone = OVObjectPhone::initWithPhoneNumber("+44 55 50 23");
/// auto value = ov::labelled(phone, "work", OVValueTypePhone);
/// std::cout << value->label()->displayName() << "\n";  // work
/// std::cout << (value->value() == phone) << "\n";      // 1
/// \endcode
///
/// Its label is a new one that has `label` as its name and its display name; a null `label` gives a
/// value without one. Null for a null datum.
/// @{
[[nodiscard]] OV_EXPORT OVRef<OVMutableSingleValue> labelled(const OVRef<OVObject>& datum,
                                                             const OVString& label,
                                                             OVValueType type);
[[nodiscard]] OV_EXPORT OVRef<OVMutableSingleValue> labelled(const OVString& text,
                                                             const OVString& label,
                                                             OVValueType type);
[[nodiscard]] OV_EXPORT OVRef<OVMutableSingleValue> labelled(std::nullptr_t datum,
                                                             const OVString& label,
                                                             OVValueType type);
/// @}

}  // namespace ov
