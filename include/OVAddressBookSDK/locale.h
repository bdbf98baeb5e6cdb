#pragma once

#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>

/// What the library asks of the platform's languages and countries. Any thread may call it.
///
/// A host that lets the user choose a locale of its own can install one with that identifier:
///
///     OVLocale::setCurrentLocale(OVLocale::withIdentifier("fr_CH"));
///
/// One whose toolkit answers all of it derives from this class:
///
///     class HostLocale : public OVLocale {
///       OVList<OVString> isoCountryCodes() const override { return toolkit.countries(); }
///       OVString currentLocaleIdentifier() const override { return toolkit.localeName(); }
///       OVString lowercase(const OVString& text) const override { return toolkit.lower(text); }
///       OVString uppercase(const OVString& text) const override { return toolkit.upper(text); }
///     };
///     OVLocale::setCurrentLocale(std::make_shared<HostLocale>());
class OV_EXPORT OVLocale {
 public:
  OVLocale(const OVLocale&) = delete;
  OVLocale& operator=(const OVLocale&) = delete;
  virtual ~OVLocale();

  /// The locale service that the library uses; never null.
  [[nodiscard]] static OVRef<OVLocale> currentLocale();
  /// Installs another one; null brings the platform's default back.
  static void setCurrentLocale(OVRef<OVLocale> locale);

  /// The platform's default, but for the identifier, which is the given one whatever it says. Null
  /// gives "en_US_POSIX".
  [[nodiscard]] static OVRef<OVLocale> withIdentifier(const OVString& identifier);

  /// The ISO 3166-1 alpha-2 codes, upper case, in the platform's order. A new list, the caller's to
  /// change; never null.
  [[nodiscard]] virtual OVList<OVString> isoCountryCodes() const = 0;

  /// The user's locale: language, script where it matters, region and variant, joined by "_"
  /// ("de_DE", "sr_Latn_RS", "ca_ES_VALENCIA"); never null. The platform's default reads the first
  /// of the environment variables LC_ALL, LC_MESSAGES and LANG that is not empty, anew on each
  /// call; without any, and for "C", "POSIX" and what names no locale, it is "en_US_POSIX".
  [[nodiscard]] virtual OVString currentLocaleIdentifier() const = 0;

  /// The full Unicode mappings, the same in every locale: U+0130 becomes "i" and U+0307 everywhere.
  /// Null gives null.
  [[nodiscard]] virtual OVString lowercase(const OVString& text) const = 0;
  /// The text in upper case by the rules of this locale; null for null.
  [[nodiscard]] virtual OVString uppercase(const OVString& text) const = 0;

 protected:
  OVLocale() = default;
};
