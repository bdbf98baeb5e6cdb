#pragma once

#include <cstdint>

#include <OVAddressBookSDK/address_field.h>
#include <OVAddressBookSDK/atomic.h>
#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>
#include <OVAddressBookSDK/text_field.h>
#include <OVAddressBookSDK/text_view.h>

/// A postal address: a country code, and texts under five standard field names.
///
/// Every field name of `OVAdressField` is accepted and folded onto one of the standard five
/// (country, province, city, street, postal code), so that all layouts read the same values.
///
/// \code
/// auto address = OVObjectAddress::init();
/// address->setCountryCode("jp");
/// address->setStringValueForFieldName("Aomori", OVAddressFieldPrefecture);
/// std::cout << address->stringValueByFieldName(OVAddressFieldProvince) << "\n";  // Aomori
/// \endcode
class OV_EXPORT OVObjectAddress : public OVObject {
 public:
  /// No values, no country.
  [[nodiscard]] static OVRef<OVObjectAddress> init();
  ~OVObjectAddress() override;

  /// Null until it is set or an archive supplies a text. Other threads may read it, and save the
  /// book, while it is set.
  [[nodiscard]] OVString countryCode() const { return countryCode_.load().text(); }

  /// Stores the code of the country that `OVCountry::countryWithCode` finds: "fr" for "fr", "us"
  /// for "FR", the current locale's country for null, null for an unknown code. Throws
  /// `std::out_of_range` for null when the locale identifier has no underscore.
  void setCountryCode(const OVStringView& code);

  /// The standard field that stores this one; null for null and for unknown names.
  [[nodiscard]] static OVString standFieldName(const OVStringView& fieldName);

  /// The value of the field, never "" when it was set here; null when there is none and for unknown
  /// names.
  [[nodiscard]] OVString stringValueByFieldName(const OVStringView& fieldName) const;

  /// Stores the value unchanged; "" removes the field's value. Does nothing for a null value or an
  /// unknown name, and nothing in an address whose archive held no values at all.
  void setStringValueForFieldName(const OVString& value, const OVStringView& fieldName);

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
  OVObjectAddress();

 private:
  friend struct ov::detail::Maker;
  using Values = OVDictionary<OVObject>;

  explicit OVObjectAddress(const Values& values) : valueDic_(values) {}
  [[nodiscard]] Values values() const { return ov::cast<Values>(valueDic_); }

  // An archive may hold objects of any class, in the place of the dictionary and in it.
  OVRef<OVObject> valueDic_;
  OVAtomic<ov::detail::TextField> countryCode_;
};
