#pragma once

#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>
#include <OVAddressBookSDK/text_field.h>

/// A person's structured name. Immutable; any thread may read it.
///
/// A part is null or a non-empty text without line breaks (line feed, carriage return, U+0085), but
/// a name from an archive keeps whatever text the archive held; anything else there reads as null
/// and is written back.
class OV_EXPORT OVObjectPersonName : public OVObject {
 public:
  /// Each part goes through `standString`. Null when all three arguments are null or empty; a part
  /// of nothing but line breaks counts as given and becomes null.
  [[nodiscard]] static OVRef<OVObjectPersonName> initWithFirstMiddleLast(const OVString& first,
                                                                         const OVString& middle,
                                                                         const OVString& last);

  /// The part as it was given or archived; may be null.
  /// @{
  [[nodiscard]] OVString first() const { return first_.text(); }
  [[nodiscard]] OVString middle() const { return middle_.text(); }
  [[nodiscard]] OVString last() const { return last_.text(); }
  /// @}

  /// The parts that are not null, with single spaces between them, in the order that
  /// `OVAddressBook::lastNameInFront` says at the time of the call: first or last name first, the
  /// middle name always in the middle. Never null.
  [[nodiscard]] OVString displayString() const;

  /// The text without line feeds, carriage returns and U+0085, otherwise unchanged; null for null
  /// and when nothing is left.
  [[nodiscard]] OVString standString(const OVString& text) const;

  /// The class under which objects are archived.
  [[nodiscard]] static const OVClass& archivedClass();
  [[nodiscard]] const OVClass* classForCoder() const override;
  void encodeWithCoder(OVKeyedArchiver& coder) const override;
  void initWithCoder(OVKeyedUnarchiver& coder) override;

 protected:
  friend struct ov::detail::Maker;
  OVObjectPersonName() = default;
  /// For derived classes: each part goes through `standString`.
  OVObjectPersonName(const OVString& first, const OVString& middle, const OVString& last);

 private:
  ov::detail::TextField first_;
  ov::detail::TextField middle_;
  ov::detail::TextField last_;
};
