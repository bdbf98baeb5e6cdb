#pragma once

#include <string>

#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>

/// The platform's languages and countries, as far as the library needs them. Any thread may call
/// it, and the library holds no lock meanwhile.
///
/// A host installs its locale before it uses the library: the country codes are read once, by the
/// first call that needs the countries (see `OVCountry`). The identifier is read again on each
/// call. A host that lets the user choose a locale of its own can install one with that identifier:
///
/// \code
/// OVLocale::setCurrentLocale(OVLocale::withIdentifier("fr_CH"));
/// std::cout << OVLocale::currentLocale()->currentLocaleIdentifier() << "\n";  // fr_CH
/// \endcode
///
/// A host whose toolkit provides all of it derives from this class:
///
/// \code
/// class HostLocale : public OVLocale {
///   OVList<OVString> isoCountryCodes() const override { return toolkit.countries(); }
///   OVString currentLocaleIdentifier() const override { return toolkit.localeName(); }
///   OVString lowercase(const OVString& text) const override { return toolkit.lower(text); }
/// };
/// OVLocale::setCurrentLocale(std::make_shared<HostLocale>());
/// \endcode
class OV_EXPORT OVLocale {
 public:
  OVLocale(const OVLocale&) = delete;
  OVLocale& operator=(const OVLocale&) = delete;
  virtual ~OVLocale();

  /// The locale service that the library uses; never null.
  [[nodiscard]] static OVRef<OVLocale> currentLocale();
  /// Installs another one; null restores the platform's default.
  static void setCurrentLocale(OVRef<OVLocale> locale);

  /// The platform's default with another identifier, which is not checked. Null gives
  /// "en_US_POSIX".
  [[nodiscard]] static OVRef<OVLocale> withIdentifier(const OVString& identifier);

  /// The country codes that the platform knows: two upper-case letters of ASCII each, in the
  /// platform's order. A new list, which the caller may change; null reads as empty.
  ///
  /// The platform's default gives ICU's list: the alpha-2 codes of ISO 3166-1 and some that are not
  /// among them, such as "XK" for Kosovo. A host may give another list. It must not ask for a
  /// country meanwhile: countries are made from these codes.
  [[nodiscard]] virtual OVList<OVString> isoCountryCodes() const = 0;

  /// The user's locale: a language, "_" and a region ("de_DE"). The country is what follows the
  /// first underscore, so a script is put before it with "-" ("sr-Latn_RS"). Never null.
  ///
  /// The platform's default reads the first of the environment variables LC_ALL, LC_MESSAGES and
  /// LANG that is not empty, again on each call; a variant is dropped ("ca_ES@valencia" gives
  /// "ca_ES"). Without any of them, and for "C", "POSIX" and anything that names no locale, it is
  /// "en_US_POSIX". A language alone ("de") has no "_", and no country.
  [[nodiscard]] virtual OVString currentLocaleIdentifier() const = 0;

  /// The text in lower case; null for null. The platform's default maps all of Unicode, the same in
  /// every locale: an "I" becomes an "i" in Turkish too. The library compares the display names of
  /// services with it. Country codes do not depend on it.
  [[nodiscard]] virtual OVString lowercase(const OVString& text) const = 0;

  /// Bytes that sort the way a reader of the current locale expects the texts to: of two keys, the
  /// smaller is that of the text that comes first. Parts that are compared one after the other,
  /// such as last and first name, are put into one text with U+FFFE between them. "" for null.
  ///
  /// The platform's default gives ICU's collation keys for `currentLocaleIdentifier`, or those of
  /// the root collation when that names no language ("en_US_POSIX"). Do not store keys: those of
  /// another locale or process may differ. A host's locale sorts by `lowercase` unless it overrides
  /// this.
  [[nodiscard]] virtual std::string sortKey(const OVString& text) const;

  /// The text as a search compares it: texts that differ only in case, accents or width are equal;
  /// null for null. The library lower-cases ASCII texts itself, in every locale, and calls this for
  /// other texts only.
  ///
  /// The platform's default gives "jurgen grossling" for "J\u00fcrgen Gr\u00f6\u00dfling". A host's
  /// locale gives `lowercase` unless it overrides this.
  [[nodiscard]] virtual OVString searchForm(const OVString& text) const;

 protected:
  OVLocale() = default;
};
