#pragma once

#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/text.h>
#include <OVAddressBookSDK/text_view.h>
#include <OVAddressBookSDK/value_type.h>

/// @name The names of properties
/// @{
OV_EXPORT extern const OVString OVProPertyThumbnail;
OV_EXPORT extern const OVString OVProPertyName;
OV_EXPORT extern const OVString OVProPertyTags;
OV_EXPORT extern const OVString OVProPertyPhone;
OV_EXPORT extern const OVString OVProPertyEmail;
/// "Prefix": what precedes the name.
OV_EXPORT extern const OVString OVProPertyTitle;
OV_EXPORT extern const OVString OVProPertySuffix;
OV_EXPORT extern const OVString OVProPertyMaidenName;
OV_EXPORT extern const OVString OVProPertyNickname;
OV_EXPORT extern const OVString OVProPertyCompany;
OV_EXPORT extern const OVString OVProPertyDepartment;
OV_EXPORT extern const OVString OVProPertyJobTitle;
OV_EXPORT extern const OVString OVProPertyBirthday;
OV_EXPORT extern const OVString OVProPertyFirstNamePhonetic;
OV_EXPORT extern const OVString OVProPertyLastNamePhonetic;
/// "URL", in the singular.
OV_EXPORT extern const OVString OVProPertyURLs;
OV_EXPORT extern const OVString OVProPertyInstantMessage;
/// For the host's own use: not in the catalogue, never archived.
OV_EXPORT extern const OVString OVProPertySocialProfile;
OV_EXPORT extern const OVString OVProPertyAddress;
OV_EXPORT extern const OVString OVProPertyRelatedNames;
OV_EXPORT extern const OVString OVProPertyNote;
OV_EXPORT extern const OVString OVProPertyOther;
OV_EXPORT extern const OVString OVProPertyDate;
/// For the host's own use: not in the catalogue, never archived.
OV_EXPORT extern const OVString OVMacOtherProperty;
/// A text, not a flag.
OV_EXPORT extern const OVString OVProPertyIsOrganization;
/// @}

/// Describes one property of a person. Only the catalogue makes them; they are immutable, compared
/// by identity, and live until the process ends. Any thread may use them.
class OV_EXPORT OVProperty final : public OVObject {
 public:
  /// The 23 standard properties in their fixed order: the same list on every call. Built on the
  /// first call of any of these operations.
  [[nodiscard]] static OVList<const OVProperty> StandardPropertyArray();
  /// The same descriptors by name: the same dictionary on every call.
  [[nodiscard]] static OVDictionary<const OVProperty> StandardPropertyDictionary();
  /// Null for null and for a name that is not in the catalogue.
  [[nodiscard]] static OVRef<OVProperty> propertyWithName(const OVStringView& name);
  /// Writes the line "aa" to the system log, for diagnosis.
  static void testAddress();

  /// The key of the property's value in a person.
  [[nodiscard]] OVString name() const { return name_; }
  /// The text shown to the user; for many properties the same text object as the name.
  [[nodiscard]] OVString displayName() const { return displayName_; }
  /// What a person's value of the property is: the type of its datum, or `OVValueTypeMultiple` for
  /// the eight properties that hold several values.
  [[nodiscard]] OVValueType valueType() const { return valueType_; }
  /// The type of the entries of those eight; 0 for every other property.
  [[nodiscard]] OVValueType subValueType() const { return subValueType_; }
  /// The display name.
  [[nodiscard]] OVString description() const { return displayName_; }

 private:
  friend struct ov::detail::Maker;
  OVProperty(OVString name, OVString displayName, OVValueType valueType, OVValueType subValueType);

  const OVString name_;
  const OVString displayName_;
  const OVValueType valueType_;
  const OVValueType subValueType_;
};
