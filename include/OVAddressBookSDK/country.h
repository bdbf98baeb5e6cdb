#pragma once

#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>
#include <OVAddressBookSDK/text_view.h>

/// A country: a two-letter code and an English name. Immutable.
///
/// The class keeps one list of known countries for the whole process: the country codes of the
/// platform, from `OVLocale::isoCountryCodes`, that have a name in the library's own vocabulary.
/// Codes are ASCII; their case does not depend on the locale.
///
/// The list is built by the first call of `allCountry`, `countryWithCode`, `local` or
/// `defaultCountry`, or of anything that calls them (an address's `setCountryCode`, the formatter's
/// local layout), so a host installs its locale before that. Several threads may make the first
/// call at once; each of them may then ask the locale for the codes. A locale that asks for a
/// country while it is asked for its codes gets a `std::logic_error`; one that throws is asked
/// again by the next call. Once built, the list is shared and handed out live: `addCountryByCode`
/// and `sort` must not run while other threads read it. A change of the list alone does not affect
/// look-ups by code.
///
/// \code
/// OVLocale::setCurrentLocale(OVLocale::withIdentifier("fr_CH"));
/// std::cout << OVCountry::countryWithCode("nz")->name() << "\n";  // New Zealand
/// std::cout << OVCountry::local()->name() << "\n";                // Switzerland
/// OVCountry::setDefaultCountry(OVCountry::countryWithCode("fi"));
/// std::cout << OVCountry::defaultCountry()->name() << "\n";  // Finland
/// \endcode
class OV_EXPORT OVCountry : public OVObject {
 public:
  /// Keeps both as they are, null included.
  [[nodiscard]] static OVRef<OVCountry> initWithCodeName(OVString code, OVString name);

  /// Lower case for every country of the list; null only if made with null.
  [[nodiscard]] OVString code() const { return code_; }
  /// The English name; null only if made with null.
  [[nodiscard]] OVString name() const { return name_; }

  /// The shared list itself, ordered by name when it is built. Never null.
  [[nodiscard]] static OVList<OVCountry> allCountry();

  /// The country with exactly this code; for null, the country of the current locale.
  ///
  /// Known codes are lower case. Any other text whose upper-case form is a country code of the
  /// platform ("DE", "De", or a code without a name) gives the United States; everything else gives
  /// null. Throws `std::out_of_range` for null when the locale identifier has no underscore.
  [[nodiscard]] static OVRef<OVCountry> countryWithCode(const OVStringView& code);

  /// The English name for a code in any case; null for null and for codes without a name.
  [[nodiscard]] static OVString countryNameByCode(const OVStringView& code);

  /// Appends a new country to the shared list, even when the code is there already, and makes it
  /// the one that `countryWithCode` finds; when memory runs out, neither. Does nothing when the
  /// code has no name, and nothing before the list has been built.
  static void addCountryByCode(const OVStringView& code);

  /// Sorts the shared list by name, byte by byte; a null name counts as "". Countries of one name
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

  /// The country that the user chose, read from the user defaults on each call; a choice made in
  /// another process takes effect some milliseconds later. `local()` when none is stored or the
  /// stored code gives no country. Throws as `standCode` does when it falls back to `local()`.
  [[nodiscard]] static OVRef<OVCountry> defaultCountry();

  /// Stores the country's code as the user's choice and flushes the user defaults; a null code
  /// clears the choice. Does nothing for a null country.
  static void setDefaultCountry(const OVRef<OVCountry>& country);

 protected:
  /// `initWithCodeName` makes countries.
  OVCountry(OVString code, OVString name);

 private:
  friend struct ov::detail::Maker;

  OVString code_;
  OVString name_;
};
