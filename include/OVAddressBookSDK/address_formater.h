#pragma once

#include <OVAddressBookSDK/address.h>
#include <OVAddressBookSDK/address_field.h>
#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>
#include <OVAddressBookSDK/text_view.h>

/// Lays out a postal address the way its country does.
///
/// Layouts are found by the exact country code. Every code without a layout of its own, "" and
/// upper-case codes included, has the layout of the United States; null has an empty one.
///
/// \code
/// auto address = OVObjectAddress::init();
/// address->setCountryCode("fr");
/// address->setStringValueForFieldName("Brest", OVAddressFieldCity);
/// address->setStringValueForFieldName("29200", OVAddressFieldPostalCode);
/// auto formater = OVAddressFormater::initWithObject(address);
/// std::cout << formater->string() << "\n";                   // 29200 Brest
/// std::cout << formater->stringByCountryCode("us") << "\n";  // Brest 29200
/// \endcode
class OV_EXPORT OVAddressFormater : public OVObject {
 public:
  /// A formatter that keeps the address and reads it again on every call; null for null.
  [[nodiscard]] static OVRef<OVAddressFormater> initWithObject(OVRef<OVObjectAddress> address);

  /// The address on several lines in the layout of its own country; "" when it has no country code.
  [[nodiscard]] OVString formatString() const;
  /// The address on one line in the layout of its own country; "" when it has no country code.
  [[nodiscard]] OVString string() const;

  /// The address on several lines: values on one line are joined by a space, lines without a value
  /// are left out. Never null.
  [[nodiscard]] OVString formatStringByCountryCode(const OVStringView& code) const;
  /// All values, joined by spaces. Never null.
  [[nodiscard]] OVString stringByCountryCode(const OVStringView& code) const;

  /// The layout: lines of fields, which are those of the catalogue. The lists belong to the caller;
  /// never null, empty for a null code.
  [[nodiscard]] static OVList<OVList<OVAdressField>> fieldFormaterByCountryCode(
      const OVStringView& code);
  /// The fields of the layout in one list, which belongs to the caller; never null, empty for a
  /// null code.
  [[nodiscard]] static OVList<OVAdressField> fieldArrayByCountryCode(const OVStringView& code);

  /// The layout of `OVCountry::local()`, empty when there is no local country. Throws when that
  /// does.
  [[nodiscard]] static OVList<OVList<OVAdressField>> fieldFormaterLocal();
  /// The fields of that layout in one list.
  [[nodiscard]] static OVList<OVAdressField> fieldArrayLocal();

 protected:
  /// For derived classes; `initWithObject` makes formatters. Without an address (null) every text
  /// is "".
  explicit OVAddressFormater(OVRef<OVObjectAddress> address);

 private:
  friend struct ov::detail::Maker;

  OVRef<OVObjectAddress> addressObject_;
};
