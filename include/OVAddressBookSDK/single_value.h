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

/// One labelled datum, to be read. Label and datum are shared, never copied.
///
/// Every single value that the library makes is an `OVMutableSingleValue`.
class OV_EXPORT OVSingleValue : public OVValue {
 public:
  /// An empty value that stays empty: type 0, no label, no datum. Values of this very class that
  /// hold anything come out of archives of other programs.
  [[nodiscard]] static OVRef<OVSingleValue> init();
  ~OVSingleValue() override;

  /// May be null, and is null when an archive held something that is no label. Any thread may read
  /// it.
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

  /// What every copy of this value, also inside a copy of a multiple value, is made from: a new
  /// value that gets type, label and datum, in this order. Override it so that copies keep a class
  /// and the fields that it adds; null counts as an `OVMutableSingleValue`.
  [[nodiscard]] virtual OVRef<OVMutableSingleValue> newCopy() const;

  [[nodiscard]] OVRef<OVValue> copyValue() const final;

 private:
  friend class OVMutableSingleValue;

  // An archive may hold objects of any class in both places: they are kept and written back.
  OVAtomic<OVRef<OVObject>> label_;
  OVAtomic<OVRef<OVObject>> value_;
};

/// One labelled datum. The setters only store: nothing is checked or announced. They may run while
/// other threads read the value or save its book, which get the old or the new one.
class OV_EXPORT OVMutableSingleValue : public OVSingleValue {
 public:
  /// A new value: type 0, no label, no datum.
  [[nodiscard]] static OVRef<OVMutableSingleValue> init();

  /// Replaces the type; the datum stays. Any code will do, such as
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

/// A new single value of a datum, which it shares: what most entries of a person are made with.
///
///     phones->addValue(ov::labelled(phone, "work", OVValueTypePhone));
///     person->setValueByPropertyName(ov::labelled("Ferry pilot", "job", OVValueTypeString),
///                                    OVProPertyJobTitle);
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
