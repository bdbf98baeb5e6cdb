#pragma once

#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>
#include <OVAddressBookSDK/text_field.h>

/// An e-mail address as the user typed it. Immutable; any thread may read it.
class OV_EXPORT OVObjectEmail : public OVObject {
 public:
  /// Keeps the text as it is. Null for null; an empty text is accepted, and is invalid.
  [[nodiscard]] static OVRef<OVObjectEmail> initWithEmail(const OVString& email);

  /// Null only for an e-mail from an archive that held no text there.
  [[nodiscard]] OVString email() const { return email_.text(); }

  /// True when the address holds exactly one "@"; nothing else is looked at.
  [[nodiscard]] bool valid() const { return valid_; }
  /// Computes `valid`, as the initialisers have done already. The address never changes, so this
  /// has no effect.
  void initValid();

  /// Opens "mailto:" and the unchanged address on the shared workspace. Does nothing for an invalid
  /// address or one that makes no URL; whether the desktop accepted it is not reported.
  void sendEmail() const;

  /// The class under which objects are archived.
  [[nodiscard]] static const OVClass& archivedClass();
  [[nodiscard]] const OVClass* classForCoder() const override;
  void encodeWithCoder(OVKeyedArchiver& coder) const override;
  void initWithCoder(OVKeyedUnarchiver& coder) override;

 protected:
  friend struct ov::detail::Maker;
  OVObjectEmail() = default;
  /// For derived classes; null is kept as null.
  explicit OVObjectEmail(const OVString& email);

 private:
  ov::detail::TextField email_;
  bool valid_ = false;
};
