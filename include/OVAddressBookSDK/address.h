#pragma once

#include <cstdint>

#include <OVAddressBookSDK/address_field.h>
#include <OVAddressBookSDK/atomic.h>
#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>

/// A postal address: a country code, and texts under five standard field names.
///
/// Every field name of `OVAdressField` is accepted and folded onto one of the standard five
/// (country, province, city, street, postal code), so that all layouts read the same values.
class OV_EXPORT OVObjectAddress : public OVObject {
 public:
  /// No values, no country.
  [[nodiscard]] static OVRef<OVObjectAddress> init();

  /// Null until it is set or an archive supplies one. The getter may run beside the setter.
  [[nodiscard]] OVString countryCode() const { return countryCode_.load(); }

  /// Stores the code of the country that `OVCountry::countryWithCode` finds: "fr" for "fr", "us"
  /// for "FR", the current locale's country for null, null for an unknown code. Throws
  /// `std::out_of_range` for null when the locale identifier has no underscore.
  void setCountryCode(const OVString& code);

  /// The standard field that stores this one; null for null and for unknown names.
  [[nodiscard]] static OVString standFieldName(const OVString& fieldName);

  /// The value of the field, never "" when it was set here; null when there is none and for unknown
  /// names.
  [[nodiscard]] OVString stringValueByFieldName(const OVString& fieldName) const;

  /// Stores the value unchanged; "" removes the field's value. Does nothing for a null value or an
  /// unknown name, and nothing in an address whose archive held no values at all.
  void setStringValueForFieldName(const OVString& value, const OVString& fieldName);

  /// True when both have a country code, and the codes and all values are equal. False for null.
  [[nodiscard]] bool isequalToAddress(const OVRef<OVObjectAddress>& other) const;

  /// How many values there are.
  [[nodiscard]] std::uint64_t valueCount() const;

  /// The class under which objects are archived.
  [[nodiscard]] static const OVClass& archivedClass();
  [[nodiscard]] const OVClass* classForCoder() const override;
  void encodeWithCoder(OVKeyedArchiver& coder) const override;
  void initWithCoder(OVKeyedUnarchiver& coder) override;

 protected:
  OVObjectAddress() = default;

 private:
  friend struct ov::detail::Maker;

  OVDictionary<OVObject> valueDic_;  // of texts, or what else an archive held
  OVAtomic<OVString> countryCode_;
};
