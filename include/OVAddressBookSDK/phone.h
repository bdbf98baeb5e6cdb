#pragma once

#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>
#include <OVAddressBookSDK/text_field.h>

/// A telephone number as the user typed it. Immutable; any thread may read it.
class OV_EXPORT OVObjectPhone : public OVObject {
 public:
  /// Keeps the text as it is. Null for null; an empty text is accepted, and is valid.
  [[nodiscard]] static OVRef<OVObjectPhone> initWithPhoneNumber(const OVString& phoneNumber);

  /// Null only for a phone from an archive that held no text there.
  [[nodiscard]] OVString phoneNumber() const { return phoneNumber_.text(); }
  /// The number as it is.
  [[nodiscard]] OVString displayString() const { return phoneNumber(); }

  /// True when the number holds nothing but digits, spaces, no-break spaces, parentheses, "+" and
  /// "-". The test looks at the low byte of each UTF-16 code unit: U+0130 counts as "0".
  [[nodiscard]] bool valid() const { return valid_; }
  /// Computes `valid`, as the initialisers have done already. The number never changes, so this has
  /// no effect.
  void initValid();

  /// The same as `valid`, as are the next two.
  [[nodiscard]] bool canDoCall() const { return valid(); }
  /// The same as `valid`.
  [[nodiscard]] bool canDoVideoCall() const { return valid(); }
  /// The same as `valid`.
  [[nodiscard]] bool canDoSendMessage() const { return valid(); }

  /// Opens "tel:" and the digits of the number on the shared workspace. Like the other two actions,
  /// does nothing for an invalid number; whether the desktop accepted the URL is not reported.
  void call() const;
  /// The same with "facetime://".
  void videoCall() const;
  /// The same with "imessage://".
  void sendMessage() const;

  /// The digits of `number`, by the low byte of each UTF-16 code unit. Never null; "" for null.
  [[nodiscard]] OVString adjustNumber(const OVString& number) const;

  /// The class under which objects are archived.
  [[nodiscard]] static const OVClass& archivedClass();
  [[nodiscard]] const OVClass* classForCoder() const override;
  void encodeWithCoder(OVKeyedArchiver& coder) const override;
  void initWithCoder(OVKeyedUnarchiver& coder) override;

 protected:
  friend struct ov::detail::Maker;
  OVObjectPhone() = default;
  /// For derived classes; null is kept as null.
  explicit OVObjectPhone(const OVString& phoneNumber);

 private:
  ov::detail::TextField phoneNumber_;
  bool valid_ = true;
};
