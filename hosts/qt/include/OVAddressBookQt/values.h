#pragma once

#include <QtCore/QLocale>
#include <QtCore/QString>
#include <QtCore/QUrl>
#include <QtCore/QVariant>

#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>
#include <OVAddressBookSDK/value_type.h>

namespace ov::qt {

/// The year of a date whose year is not known.
inline constexpr int kNoYear = 1604;

/// A datum as people read it: an address on the lines of its country's layout, a date in the form
/// of the locale, without the year where that is not known. "" for null and for what cannot be
/// read, such as an image.
[[nodiscard]] QString textOf(const OVRef<OVObject>& datum, const QLocale& locale = QLocale());

/// What a click on a datum opens: a call, a mail, a chat, a web page, the place on a map. Invalid
/// for none.
[[nodiscard]] QUrl urlOf(const OVRef<OVObject>& datum, const OVString& property);

/// A datum as an editor takes it, and gives it back to `datumOf`:
///
/// | type | |
/// |---|---|
/// | text, note, phone, e-mail | QString |
/// | date | QDate, of the year `kNoYear` when that is not known |
/// | name | QStringList of first, middle and last name |
/// | address | QVariantMap of texts by field name, and "countryCode" |
/// | instant message | QVariantMap of "userName" and "service", the service's key |
///
/// Invalid for null and for anything else.
[[nodiscard]] QVariant editedFormOf(const OVRef<OVObject>& datum);

/// The datum that an editor gave; null for nothing (blanks only, an invalid date) and for a type
/// that has no edited form.
[[nodiscard]] OVRef<OVObject> datumOf(const QVariant& edited, OVValueType type);

/// The code of the country whose layout an address gets that names none: the user's; "" when none
/// is known.
[[nodiscard]] OVString userCountryCode();

}  // namespace ov::qt
