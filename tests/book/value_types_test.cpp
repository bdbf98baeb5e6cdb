#include <functional>
#include <string>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/address.h>
#include <OVAddressBookSDK/address_book_general.h>
#include <OVAddressBookSDK/address_field.h>
#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/instant_message.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_name.h>

#include "support/fakes/fake_platform.h"
#include "support/values.h"

namespace {

/// A datum of one value type, and what is to be seen of it after a way through an archive.
struct TypeRow {
  const char* property;
  OVValueType type;
  std::function<OVRef<OVObject>()> make;
  std::function<bool(const OVRef<OVObject>&)> isIntact;
};

const TypeRow kTypeRows[] = {
    {"Company", OVValueTypeString, [] { return OVString("Łódź \U0001F600"); },
     [](auto& datum) { return ov::cast<OVString>(datum) == "Łódź \U0001F600"; }},
    {"Birthday", OVValueTypeDate, [] { return OVDate::dateWithYearMonthDay(1970, 2, 28); },
     [](auto& datum) {
       return ov::cast<OVDate>(datum)->day() == OVDate::Day{.year = 1970, .month = 2, .day = 28};
     }},
    {"Thumbnail", OVValueTypeImage,
     [] { return OVImage::imageWithData(OVData::dataWithText("\x89PNG")); },
     [](auto& datum) { return ov::cast<OVImage>(datum)->data()->text() == "\x89PNG"; }},
    {"Phone", OVValueTypePhone, [] { return OVObjectPhone::initWithPhoneNumber("+1 555"); },
     [](auto& datum) { return ov::cast<OVObjectPhone>(datum)->phoneNumber() == "+1 555"; }},
    {"Email", OVValueTypeEmail, [] { return OVObjectEmail::initWithEmail("a@b"); },
     [](auto& datum) { return ov::cast<OVObjectEmail>(datum)->email() == "a@b"; }},
    {"Name", OVValueTypePersonName,
     [] { return OVObjectPersonName::initWithFirstMiddleLast("A", nullptr, "B"); },
     [](auto& datum) { return ov::cast<OVObjectPersonName>(datum)->displayString() == "A B"; }},
    {"Address", OVValueTypeAddress,
     [] {
       auto address = OVObjectAddress::init();
       address->setStringValueForFieldName("Oslo", OVAddressFieldCity);
       return address;
     },
     [](auto& datum) {
       const auto address = ov::cast<OVObjectAddress>(datum);
       return address->stringValueByFieldName(OVAddressFieldCity) == "Oslo";
     }},
    {"Tags", OVValueTypeTags,
     [] {
       return OVList<OVString>::list({"A", "B"});
     },
     [](auto& datum) {
       const auto tags = ov::cast<OVList<OVString>>(datum);
       return tags.size() == 2 && tags.back() == "B";
     }},
    {"Note", OVValueTypeNote, [] { return OVString("line\nline"); },
     [](auto& datum) { return ov::cast<OVString>(datum) == "line\nline"; }},
    {"InstantMessage", OVValueTypeInstantMessage,
     [] {
       return OVObjectInstantMessage::initWithUserNameServer(
           "user", OVInstantMessageServer::supportServer().front());
     },
     [](auto& datum) {
       const auto account = ov::cast<OVObjectInstantMessage>(datum);
       return account->userName() == "user" &&
              account->server() == OVInstantMessageServer::supportServer().front();
     }},
};

class ValueTypeInABook : public testing::TestWithParam<TypeRow> {
 protected:
  static OVRef<OVValue> restoredInABook(const OVRef<OVValue>& value) {
    const auto person = OVPersonGeneral::initWithID("p");
    person->setValueByPropertyName(value, GetParam().property);
    const auto book = OVAddressBookGeneral::init();
    book->addPerson(person);
    const auto again = ov::cast<OVAddressBookGeneral>(
        OVAddressBookGeneral::addressBookWithData(book->saveToData()));
    return again->personsDic()["p"]->valueByPropertyName(GetParam().property);
  }

 private:
  const FakePlatform platform_;
};

TEST_P(ValueTypeInABook, ComesBackInASingleValue) {
  const auto value = ov::cast<OVMutableSingleValue>(
      restoredInABook(valueOf(GetParam().type, GetParam().make(), labelOf("home"))));
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(value->type(), GetParam().type);
  EXPECT_EQ(value->label()->name(), "home");
  ASSERT_NE(value->value(), nullptr);
  EXPECT_TRUE(GetParam().isIntact(value->value()));
}

TEST_P(ValueTypeInABook, ComesBackInAMultipleValue) {
  auto multiple = OVMutableMultipleValue::init();
  multiple->addValue(valueOf(GetParam().type, GetParam().make()));
  multiple->addValue(valueOf(GetParam().type, GetParam().make()));
  multiple->setMainValue(multiple->valueAtIndex(1));
  const auto again = ov::cast<OVMutableMultipleValue>(restoredInABook(multiple));
  ASSERT_NE(again, nullptr);
  EXPECT_EQ(again->count(), 2U);
  EXPECT_EQ(again->subType(), GetParam().type);
  EXPECT_EQ(again->mainValue(), again->valueAtIndex(1));
  EXPECT_TRUE(GetParam().isIntact(again->mainValue()->value()));
}

TEST_P(ValueTypeInABook, ComesBackWithoutDatum) {
  const auto value = ov::cast<OVSingleValue>(restoredInABook(valueOf(GetParam().type, nullptr)));
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(value->type(), GetParam().type);
  EXPECT_EQ(value->value(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(All, ValueTypeInABook, testing::ValuesIn(kTypeRows),
                         [](const auto& row) { return std::string(row.param.property); });

}  // namespace
