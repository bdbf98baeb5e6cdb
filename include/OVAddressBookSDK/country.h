#pragma once

#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>
#include <OVAddressBookSDK/text_view.h>

/// A country: a two-letter code and an English name. Immutable.
///
/// The class keeps one list of known countries for the whole process: the country codes of the
/// platform, as `OVLocale::isoCountryCodes` gives them, that have a name in the library's own
/// vocabulary. Codes are ASCII; their case does not depend on the locale.
///
/// The first call of `allCountry`, `countryWithCode`, `local` or `defaultCountry`, or of what asks
/// them (an address's `setCountryCode`, the formatter's local layout), reads the codes and builds
/// the list, so a host installs its locale before. Building is safe when several threads
/// come first; each of them may ask the locale for the codes then. A locale that asks for a country
/// while it is asked for its codes gets a `std::logic_error`; one that throws is asked again by the
/// next call. Once built, the list is everybody's, and handed out live: `addCountryByCode` and
/// `sort` must not run beside readers. What is changed in the list alone does not change what codes
/// give.
class OV_EXPORT OVCountry : public OVObject {
 public:
  /// Keeps both as they are, null included.
  [[nodiscard]] static OVRef<OVCountry> initWithCodeName(OVString code, OVString name);

  /// Lower case for every country of the list; null only where the maker gave null.
  [[nodiscard]] OVString code() const { return code_; }
  /// The English name; null only where the maker gave null.
  [[nodiscard]] OVString name() const { return name_; }

  /// The shared list itself, ordered by name when it is built. Never null.
  [[nodiscard]] static OVList<OVCountry> allCountry();

  /// The country under exactly this code; null asks for the country of the current locale.
  ///
  /// Known codes are lower case. Any other text whose upper-case form is a country code of the
  /// platform ("DE", "De", or a code without a name) gives the United States; everything else gives
  /// null.
  /// Throws `std::out_of_range` for null when the locale identifier has no underscore.
  [[nodiscard]] static OVRef<OVCountry> countryWithCode(const OVStringView& code);

  /// The English name for a code in any case; null for null and for codes without a name.
  [[nodiscard]] static OVString countryNameByCode(const OVStringView& code);

  /// Appends a new country to the shared list, even when the code is there already, and makes
  /// it the one that `countryWithCode` finds: both, or neither when memory runs out. Does nothing
  /// when the code has no name, and nothing before the list was built.
  static void addCountryByCode(const OVStringView& code);

  /// Orders the shared list by name, byte by byte; a null name counts as "". Countries of one name
  /// keep their order. Does nothing before the list was built.
  static void sort();

  /// `standCode` of the current locale's identifier.
  [[nodiscard]] static OVString localeCode();

  /// The country of the current locale; null when it is not known, as for "en_US_POSIX", which is
  /// the locale "C". Throws as `standCode` does.
  [[nodiscard]] static OVRef<OVCountry> local();

  /// What follows the first underscore of a locale identifier, with the letters of ASCII in lower
  /// case: "us" for "en_US", "latn_rs" for "sr_Latn_RS". Null for null. Throws `std::out_of_range`
  /// without an underscore.
  [[nodiscard]] static OVString standCode(const OVString& localeIdentifier);

  /// The country that the user chose, read from the user defaults on each call; what another
  /// process has chosen shows some milliseconds late. `local()` when none is stored or the stored
  /// code gives no country. Throws as `standCode` does when it needs `local()`.
  [[nodiscard]] static OVRef<OVCountry> defaultCountry();

  /// Stores the country's code as the user's choice and writes the user defaults through; a null
  /// code takes the choice back. Does nothing for a null country.
  static void setDefaultCountry(const OVRef<OVCountry>& country);

 protected:
  /// `initWithCodeName` makes countries.
  OVCountry(OVString code, OVString name);

 private:
  friend struct ov::detail::Maker;

  OVString code_;
  OVString name_;
};
