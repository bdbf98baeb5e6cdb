#pragma once

#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>
#include <OVAddressBookSDK/text_field.h>

/// A person's structured name. Immutable; any thread may read it.
///
/// A part is null or a non-empty text without line breaks (line feed, carriage return, U+0085),
/// but a name out of an archive holds whatever text the archive held; what is no text there reads
/// as null and is written back.
class OV_EXPORT OVObjectPersonName : public OVObject {
 public:
  /// Each part goes through `standString`. Null when all three are null or empty as given; a part
  /// that holds only line breaks counts as given and becomes null.
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
  /// `OVAddressBook::lastNameInFront` asks for at the time of the call: first or last name in
  /// front, the middle name always in the middle. Never null.
  [[nodiscard]] OVString displayString() const;

  /// The text without line feeds, carriage returns and U+0085; null for null and when nothing is
  /// left. Nothing else is changed.
  [[nodiscard]] OVString standString(const OVString& text) const;

  /// The class under which objects are archived.
  [[nodiscard]] static const OVClass& archivedClass();
  [[nodiscard]] const OVClass* classForCoder() const override;
  void encodeWithCoder(OVKeyedArchiver& coder) const override;
  void initWithCoder(OVKeyedUnarchiver& coder) override;

 protected:
  friend struct ov::detail::Maker;
  OVObjectPersonName() = default;
  /// For a class that derives from this one: each part goes through `standString`.
  OVObjectPersonName(const OVString& first, const OVString& middle, const OVString& last);

 private:
  ov::detail::TextField first_;
  ov::detail::TextField middle_;
  ov::detail::TextField last_;
};
