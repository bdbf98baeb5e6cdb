#pragma once

#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>
#include <OVAddressBookSDK/text_view.h>

/// The field names. Each reads as its own name: "OVAddressFieldCity" and so on.
OV_EXPORT extern const OVString OVAddressFieldCountryOrArea;
OV_EXPORT extern const OVString OVAddressFieldProvince;
OV_EXPORT extern const OVString OVAddressFieldCity;
OV_EXPORT extern const OVString OVAddressFieldStreet;
OV_EXPORT extern const OVString OVAddressFieldPostalCode;
OV_EXPORT extern const OVString OVAddressFieldZIP;
OV_EXPORT extern const OVString OVAddressFieldState;
OV_EXPORT extern const OVString OVAddressFieldAdjacentarea;
OV_EXPORT extern const OVString OVAddressFieldcounty;
OV_EXPORT extern const OVString OVAddressFieldIsland;
OV_EXPORT extern const OVString OVAddressFieldPostalDistricts;
OV_EXPORT extern const OVString OVAddressFieldRegion;
OV_EXPORT extern const OVString OVAddressFieldDepartment;
OV_EXPORT extern const OVString OVAddressFieldJurisdiction;
OV_EXPORT extern const OVString OVAddressFieldTownCity;
OV_EXPORT extern const OVString OVAddressFieldPostcode;
OV_EXPORT extern const OVString OVAddressFieldSuburb;
OV_EXPORT extern const OVString OVAddressFieldCountryCity;
OV_EXPORT extern const OVString OVAddressFieldPrefecture;
OV_EXPORT extern const OVString OVAddressFieldFurtherDivisions;

/// One kind of item of a postal address: a stable name and an English label. Immutable.
///
/// The catalogue holds one object for each of the 20 field names above, for the life of the
/// process, so that layouts and editors may compare fields by identity.
class OV_EXPORT OVAdressField : public OVObject {
 public:
  /// Keeps both as they are, null included. The field is not added to the catalogue.
  [[nodiscard]] static OVRef<OVAdressField> initWithNameDisplayName(OVString name,
                                                                    OVString displayName);

  /// One of the names above in the catalogue's fields.
  [[nodiscard]] OVString name() const { return name_; }
  /// What an editor shows for the field.
  [[nodiscard]] OVString displayName() const { return displayName_; }

  /// Builds the catalogue unless it exists. `fieldWithName` does so itself. Several threads may
  /// make the first call at once.
  static void checkInitField();

  /// The catalogue's field of exactly this name; null for null and for any other name.
  [[nodiscard]] static OVRef<OVAdressField> fieldWithName(const OVStringView& name);

 protected:
  /// `initWithNameDisplayName` makes fields.
  OVAdressField(OVString name, OVString displayName);

 private:
  friend struct ov::detail::Maker;

  OVString name_;
  OVString displayName_;
};
