// The class of a datum decides how it is read and edited. On the way back the type of the value
// does, since a text in an editor may be a phone number or an e-mail address as well.

#include <OVAddressBookQt/values.h>

#include <QtCore/QDate>
#include <QtCore/QStringList>
#include <QtCore/QVariantMap>

#include <stdexcept>

#include <OVAddressBookQt/qt_text.h>
#include <OVAddressBookSDK/address.h>
#include <OVAddressBookSDK/address_formater.h>
#include <OVAddressBookSDK/country.h>
#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/email.h>
#include <OVAddressBookSDK/instant_message.h>
#include <OVAddressBookSDK/person_name.h>
#include <OVAddressBookSDK/phone.h>

#include "date_form.h"

namespace ov::qt {

namespace {

QDate dateOf(const OVDate& date) {
  const OVDate::Day day = date.day();
  return {day.year, static_cast<int>(day.month), static_cast<int>(day.day)};
}

/// The standard fields, one a line, where no layout shows them.
constexpr std::initializer_list<const OVString*> kFields{
    &OVAddressFieldStreet, &OVAddressFieldCity, &OVAddressFieldProvince, &OVAddressFieldPostalCode,
    &OVAddressFieldCountryOrArea};

QString addressText(const OVRef<OVObjectAddress>& address) {
  const OVString own = address->countryCode();
  const OVString code = own.isNull() ? userCountryCode() : own;
  return qString(OVAddressFormater::initWithObject(address)->formatStringByCountryCode(code));
}

QString listText(const OVList<OVString>& texts) {
  QStringList list;
  for (const OVString& text : texts) list.append(qString(text));
  return list.join(QStringLiteral(", "));
}

OVRef<OVObject> addressOf(const QVariantMap& fields) {
  const auto address = OVObjectAddress::init();
  const QString code = fields.value(QStringLiteral("countryCode")).toString();
  if (!code.isEmpty()) address->setCountryCode(ovString(code));
  for (const OVString* const field : kFields) {
    const QString text = fields.value(qString(*field)).toString().trimmed();
    if (!text.isEmpty()) address->setStringValueForFieldName(ovString(text), *field);
  }
  return address->valueCount() == 0 ? nullptr : address;
}

QVariantMap fieldsOf(const OVObjectAddress& address) {
  QVariantMap fields{{QStringLiteral("countryCode"), qString(address.countryCode())}};
  for (const OVString* const field : kFields) {
    fields.insert(qString(*field), qString(address.stringValueByFieldName(*field)));
  }
  return fields;
}

OVRef<OVObject> accountOf(const QVariantMap& account) {
  const QString user = account.value(QStringLiteral("userName")).toString().trimmed();
  if (user.isEmpty()) return nullptr;
  const QString service = account.value(QStringLiteral("service")).toString();
  return OVObjectInstantMessage::initWithUserNameServer(
      ovString(user), OVInstantMessageServer::serverWithName(ovString(service)));
}

OVRef<OVObject> dateOf(const QVariant& edited) {
  const QDate date = edited.toDate();
  if (!date.isValid()) return nullptr;
  return OVDate::dateWithYearMonthDay(date.year(), static_cast<unsigned>(date.month()),
                                      static_cast<unsigned>(date.day()));
}

OVRef<OVObject> nameOf(const QStringList& parts) {
  const auto part = [&parts](qsizetype i) { return ovString(parts.value(i).trimmed()); };
  return OVObjectPersonName::initWithFirstMiddleLast(part(0), part(1), part(2));
}

}  // namespace

OVString userCountryCode() {
  try {
    if (const auto country = OVCountry::defaultCountry()) return country->code();
  } catch (const std::out_of_range&) {  // the locale names no country
  }
  return "";
}

QString textOf(const OVRef<OVObject>& datum, const QLocale& locale) {
  if (const auto text = ov::cast<OVString>(datum); !text.isNull()) return qString(text);
  if (const auto name = ov::cast<OVObjectPersonName>(datum)) return qString(name->displayString());
  if (const auto phone = ov::cast<OVObjectPhone>(datum)) return qString(phone->displayString());
  if (const auto email = ov::cast<OVObjectEmail>(datum)) return qString(email->email());
  if (const auto account = ov::cast<OVObjectInstantMessage>(datum)) {
    return qString(account->userName());
  }
  if (const auto address = ov::cast<OVObjectAddress>(datum)) return addressText(address);
  if (const auto date = ov::cast<OVDate>(datum)) {
    const QDate day = dateOf(*date);
    return day.isValid() ? dateText(day, day.year() != kNoYear, locale) : QString();
  }
  return listText(ov::cast<OVList<OVString>>(datum));
}

QVariant editedFormOf(const OVRef<OVObject>& datum) {
  if (const auto text = ov::cast<OVString>(datum); !text.isNull()) return qString(text);
  if (const auto phone = ov::cast<OVObjectPhone>(datum)) return qString(phone->phoneNumber());
  if (const auto email = ov::cast<OVObjectEmail>(datum)) return qString(email->email());
  if (const auto date = ov::cast<OVDate>(datum)) return dateOf(*date);
  if (const auto name = ov::cast<OVObjectPersonName>(datum)) {
    return QStringList{qString(name->first()), qString(name->middle()), qString(name->last())};
  }
  if (const auto address = ov::cast<OVObjectAddress>(datum)) return fieldsOf(*address);
  if (const auto account = ov::cast<OVObjectInstantMessage>(datum)) {
    const auto server = account->server();
    return QVariantMap{
        {QStringLiteral("userName"), qString(account->userName())},
        {QStringLiteral("service"), server == nullptr ? QString() : qString(server->name())}};
  }
  return {};
}

OVRef<OVObject> datumOf(const QVariant& edited, OVValueType type) {
  const QString text = edited.toString().trimmed();
  switch (type) {
    case OVValueTypeString:
    case OVValueTypeNote:
      return text.isEmpty() ? OVRef<OVObject>() : OVRef<OVObject>(ovString(text));
    case OVValueTypePhone:
      return text.isEmpty() ? nullptr : OVObjectPhone::initWithPhoneNumber(ovString(text));
    case OVValueTypeEmail:
      return text.isEmpty() ? nullptr : OVObjectEmail::initWithEmail(ovString(text));
    case OVValueTypeDate:
      return dateOf(edited);
    case OVValueTypePersonName:
      return nameOf(edited.toStringList());
    case OVValueTypeAddress:
      return addressOf(edited.toMap());
    case OVValueTypeInstantMessage:
      return accountOf(edited.toMap());
    default:
      return nullptr;
  }
}

}  // namespace ov::qt
