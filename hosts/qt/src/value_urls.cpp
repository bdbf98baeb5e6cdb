#include <QtCore/QUrlQuery>

#include <OVAddressBookQt/qt_text.h>
#include <OVAddressBookQt/values.h>
#include <OVAddressBookSDK/address.h>
#include <OVAddressBookSDK/address_formater.h>
#include <OVAddressBookSDK/email.h>
#include <OVAddressBookSDK/instant_message.h>
#include <OVAddressBookSDK/phone.h>
#include <OVAddressBookSDK/property.h>

namespace ov::qt {

namespace {

/// "" for a service that no URL speaks of.
QString chatURL(const OVObjectInstantMessage& account) {
  struct Scheme {
    const char* service;
    const char* before;
    const char* after;
  };
  static constexpr Scheme kSchemes[] = {{"Jabber", "xmpp:", ""},
                                        {"GoogleTalk", "xmpp:", ""},
                                        {"Skype", "skype:", "?chat"},
                                        {"Facebook", "https://m.me/", ""},
                                        {"AIM", "aim:goim?screenname=", ""},
                                        {"MSN", "msnim:chat?contact=", ""},
                                        {"Yahoo", "ymsgr:sendIM?", ""}};
  const auto server = account.server();
  const QString service = server == nullptr ? QString() : qString(server->name());
  const QString user =
      QString::fromLatin1(QUrl::toPercentEncoding(qString(account.userName()), "@"));
  for (const Scheme& each : kSchemes) {
    if (!service.startsWith(QLatin1String(each.service), Qt::CaseInsensitive)) continue;
    return QLatin1String(each.before) + user + QLatin1String(each.after);
  }
  return {};
}

QUrl webPage(const QString& text) {
  const QUrl url = QUrl::fromUserInput(text);
  return url.isValid() && (url.scheme().startsWith(QLatin1String("http"))) ? url : QUrl();
}

QUrl place(const OVRef<OVObjectAddress>& address) {
  const OVString own = address->countryCode();
  const auto formater = OVAddressFormater::initWithObject(address);
  const OVString text = formater->stringByCountryCode(own.isNull() ? userCountryCode() : own);
  if (text.empty()) return {};
  QUrl url(QStringLiteral("geo:0,0"));
  QUrlQuery query;
  query.addQueryItem(QStringLiteral("q"), qString(text));
  url.setQuery(query);
  return url;
}

}  // namespace

QUrl urlOf(const OVRef<OVObject>& datum, const OVString& property) {
  if (const auto phone = ov::cast<OVObjectPhone>(datum)) {
    const QString digits = qString(phone->adjustNumber(phone->phoneNumber()));
    const bool isInternational =
        qString(phone->phoneNumber()).trimmed().startsWith(QLatin1Char('+'));
    if (!phone->canDoCall() || digits.isEmpty()) return {};
    return {QStringLiteral("tel:") + (isInternational ? QStringLiteral("+") : QString()) + digits};
  }
  if (const auto email = ov::cast<OVObjectEmail>(datum)) {
    return email->valid() ? QUrl(QStringLiteral("mailto:") + qString(email->email())) : QUrl();
  }
  if (const auto account = ov::cast<OVObjectInstantMessage>(datum)) return {chatURL(*account)};
  if (const auto address = ov::cast<OVObjectAddress>(datum)) return place(address);
  return property == OVProPertyURLs ? webPage(qString(ov::cast<OVString>(datum))) : QUrl();
}

}  // namespace ov::qt
