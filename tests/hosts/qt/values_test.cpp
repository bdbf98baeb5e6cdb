#include <QtCore/QDate>

#include <OVAddressBookQt/values.h>
#include <OVAddressBookSDK/address.h>
#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/email.h>
#include <OVAddressBookSDK/phone.h>
#include <OVAddressBookSDK/property.h>

#include "qt_books.h"

namespace {

QString dateIn(const char* locale, int year) {
  return ov::qt::textOf(OVDate::dateWithYearMonthDay(year, 11, 30),
                        QLocale(QString::fromLatin1(locale)));
}

}  // namespace

TEST(SheetText, DatesAreInTheFormOfTheLocale) {
  EXPECT_EQ(dateIn("en_US", 1957), "November 30, 1957");
  EXPECT_EQ(dateIn("de_DE", 1957), "30. November 1957");
  EXPECT_EQ(dateIn("ja_JP", 1957), "1957\u5e7411\u670830\u65e5");
}

TEST(SheetText, AYearThatIsNotKnownIsNotShown) {
  EXPECT_EQ(dateIn("en_US", 1604), "November 30");
  EXPECT_EQ(dateIn("de_DE", 1604), "30. November");
  EXPECT_EQ(dateIn("ja_JP", 1604), "11\u670830\u65e5");
}

TEST(SheetText, AnAddressIsLaidOutAsItsCountryDoes) {
  const auto address = OVObjectAddress::init();
  address->setCountryCode("de");
  address->setStringValueForFieldName("M\u00f6wenweg 7", OVAddressFieldStreet);
  address->setStringValueForFieldName("25761", OVAddressFieldPostalCode);
  address->setStringValueForFieldName("B\u00fcsum", OVAddressFieldCity);
  EXPECT_EQ(ov::qt::textOf(address), "M\u00f6wenweg 7\n25761 B\u00fcsum");
  EXPECT_EQ(ov::qt::urlOf(address, OVProPertyAddress).toString(QUrl::FullyEncoded),
            "geo:0,0?q=M%C3%B6wenweg%207%2025761%20B%C3%BCsum");
}

TEST(SheetURL, IsWhatAClickOpens) {
  const auto phone = [](const char* number) {
    return ov::qt::urlOf(OVObjectPhone::initWithPhoneNumber(number), OVProPertyPhone);
  };
  EXPECT_EQ(phone("+44 (55) 50"), QUrl("tel:+445550"));
  EXPECT_FALSE(phone("ask Ann").isValid());
  EXPECT_FALSE(phone("").isValid());
  EXPECT_EQ(ov::qt::urlOf(OVObjectEmail::initWithEmail("a@b"), OVProPertyEmail),
            QUrl("mailto:a@b"));
  EXPECT_EQ(ov::qt::urlOf(OVString("example.org"), OVProPertyURLs), QUrl("http://example.org"));
  EXPECT_FALSE(ov::qt::urlOf(OVString("file:///etc/passwd"), OVProPertyURLs).isValid());
  EXPECT_FALSE(ov::qt::urlOf(OVString("example.org"), OVProPertyNote).isValid());
}

TEST(EditedForm, OfNothingIsNothing) {
  for (const OVValueType type :
       {OVValueTypeString, OVValueTypeNote, OVValueTypePhone, OVValueTypeEmail, OVValueTypeDate,
        OVValueTypePersonName, OVValueTypeAddress, OVValueTypeInstantMessage, OVValueTypeImage}) {
    EXPECT_EQ(ov::qt::datumOf({}, type), nullptr) << type;
    EXPECT_EQ(ov::qt::datumOf(" ", type), nullptr) << type;
  }
}
