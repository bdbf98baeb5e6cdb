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
  /// Works out `valid`, which the initialisers have done already: the address never changes, and
  /// this changes nothing.
  void initValid();

  /// Hands "mailto:" and the address as it is to the shared workspace. Does nothing for an
  /// invalid address, nor for one that makes no URL, and nothing tells whether the desktop took it.
  void sendEmail() const;

  /// The class under which objects are archived.
  [[nodiscard]] static const OVClass& archivedClass();
  [[nodiscard]] const OVClass* classForCoder() const override;
  void encodeWithCoder(OVKeyedArchiver& coder) const override;
  void initWithCoder(OVKeyedUnarchiver& coder) override;

 protected:
  friend struct ov::detail::Maker;
  OVObjectEmail() = default;
  /// For a class that derives from this one; null reads as null.
  explicit OVObjectEmail(const OVString& email);

 private:
  ov::detail::TextField email_;
  bool valid_ = false;
};
