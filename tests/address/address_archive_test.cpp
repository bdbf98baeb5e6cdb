#include <OVAddressBookSDK/address.h>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>
#include <OVAddressBookSDK/number.h>

#include "support/archive/archived_fields.h"
#include "support/printers.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Values = OVDictionary<OVString>;

constexpr const char* kClassName = "OVObjectAddress";

OVRef<OVObjectAddress> readFrom(std::vector<ArchivedField> fields) {
  return restored<OVObjectAddress>(archivedAs(kClassName, std::move(fields)));
}

TEST(AddressArchive, KeepsBothFields) {
  const auto address = OVObjectAddress::init();
  address->setCountryCode("de");
  address->setStringValueForFieldName("Berlin", OVAddressFieldCity);
  address->setStringValueForFieldName("10115", OVAddressFieldZIP);
  EXPECT_THAT(ArchivedForm(address).keys(), ElementsAre("valueDic", "countryCode"));
  const auto read = restored<OVObjectAddress>(address);
  EXPECT_EQ(read->countryCode(), "de");
  EXPECT_EQ(read->valueCount(), 2U);
  EXPECT_EQ(read->stringValueByFieldName(OVAddressFieldCity), "Berlin");
  EXPECT_EQ(read->stringValueByFieldName(OVAddressFieldPostalCode), "10115");
  EXPECT_TRUE(read->isequalToAddress(address));
}

TEST(AddressArchive, IsRecordedUnderItsName) {
  EXPECT_EQ(ArchivedForm(OVObjectAddress::init()).className(), kClassName);
}

TEST(AddressArchive, ANullCountryCodeIsNotWritten) {
  const auto address = OVObjectAddress::init();
  EXPECT_THAT(ArchivedForm(address).keys(), ElementsAre("valueDic"));
  EXPECT_EQ(restored<OVObjectAddress>(address)->countryCode(), nullptr);
}

TEST(AddressArchive, ValuesAreUnderTheStandardNames) {
  const auto address = OVObjectAddress::init();
  address->setStringValueForFieldName("Bayern", OVAddressFieldState);
  const auto values = ov::cast<Values>(ArchivedForm(address).object("valueDic"));
  ASSERT_NE(values, nullptr);
  EXPECT_FALSE(values.isImmutable());
  EXPECT_EQ(values.size(), 1U);
  EXPECT_EQ(values["OVAddressFieldProvince"], "Bayern");
}

TEST(AddressArchive, OneReadBackTakesNewValues) {
  const auto read = restored<OVObjectAddress>(OVObjectAddress::init());
  read->setStringValueForFieldName("Berlin", OVAddressFieldCity);
  EXPECT_EQ(read->stringValueByFieldName(OVAddressFieldCity), "Berlin");
}

TEST(AddressArchive, WithoutValuesItIsEmptyAndUnwritable) {
  const auto read = readFrom({{"countryCode", OVString("de")}});
  ASSERT_NE(read, nullptr);
  EXPECT_EQ(read->countryCode(), "de");
  read->setStringValueForFieldName("Berlin", OVAddressFieldCity);
  read->setStringValueForFieldName("", OVAddressFieldCity);
  EXPECT_EQ(read->valueCount(), 0U);
  EXPECT_EQ(read->stringValueByFieldName(OVAddressFieldCity), nullptr);
  EXPECT_THAT(ArchivedForm(read).keys(), ElementsAre("countryCode"));
}

TEST(AddressArchive, WithoutValuesItIsEqualToAnEmptyOne) {
  const auto read = readFrom({{"countryCode", OVString("de")}});
  const auto address = OVObjectAddress::init();
  address->setCountryCode("de");
  EXPECT_TRUE(read->isequalToAddress(address));
  EXPECT_TRUE(address->isequalToAddress(read));
  EXPECT_TRUE(read->isequalToAddress(read));
  address->setStringValueForFieldName("Berlin", OVAddressFieldCity);
  EXPECT_FALSE(read->isequalToAddress(address));
  EXPECT_FALSE(address->isequalToAddress(read));
}

TEST(AddressArchive, WithoutAnyKeyItWritesNone) {
  const auto read = readFrom({});
  EXPECT_THAT(ArchivedForm(read).keys(), IsEmpty());
}

TEST(AddressArchive, TheCountryCodeIsReadUnchanged) {
  for (const char* code : {"FR", "xx", "", "Deutschland"}) {
    const auto read = readFrom({{"countryCode", OVString(code)}});
    EXPECT_EQ(read->countryCode(), code);
    EXPECT_THAT(ArchivedForm(read).keys(), ElementsAre("countryCode"));
  }
}

TEST(AddressArchive, ForeignContentIsKeptAndWrittenBack) {
  const auto stored = OVDictionary<OVObject>::dictionary();
  stored.set("OVAddressFieldCity", OVNumber::numberWithInteger(7));
  stored.set("OVAddressFieldStreet", OVString(""));
  stored.set("OVAddressFieldZIP", OVString("10115"));
  const auto read = readFrom({{"valueDic", stored}});
  EXPECT_EQ(read->valueCount(), 3U);
  EXPECT_EQ(read->stringValueByFieldName(OVAddressFieldCity), nullptr);
  EXPECT_EQ(read->stringValueByFieldName(OVAddressFieldStreet), "");
  EXPECT_EQ(read->stringValueByFieldName(OVAddressFieldZIP), nullptr);
  const auto again = ov::cast<OVDictionary<OVObject>>(ArchivedForm(read).object("valueDic"));
  EXPECT_EQ(ov::cast<OVNumber>(again["OVAddressFieldCity"])->integerValue(), 7);
  EXPECT_EQ(again.size(), 3U);
}

TEST(AddressArchive, ForeignValuesAreEqualToThemselvesOnly) {
  const auto values = OVDictionary<OVObject>::dictionary();
  values.set("OVAddressFieldCity", OVNumber::numberWithInteger(7));
  const auto address = readFrom({{"valueDic", values}, {"countryCode", OVString("de")}});
  EXPECT_TRUE(address->isequalToAddress(address));
  EXPECT_FALSE(address->isequalToAddress(restored<OVObjectAddress>(address)));
}

TEST(AddressArchive, FieldsOfAnotherKindReadAsNull) {
  const auto read = readFrom({{"valueDic", OVString("no dictionary")}, {"countryCode", 49}});
  EXPECT_EQ(read->countryCode(), nullptr);
  EXPECT_EQ(read->valueCount(), 0U);
  read->setStringValueForFieldName("Berlin", OVAddressFieldCity);
  EXPECT_EQ(read->valueCount(), 0U);
}

TEST(AddressArchive, AnImmutableDictionaryCanBeWrittenTo) {
  const auto values = Values::dictionary({{"OVAddressFieldCity", "Berlin"}});
  static_cast<ov::detail::DictionaryObject&>(*values.object()).immutable = true;
  const auto read = readFrom({{"valueDic", values}});
  read->setStringValueForFieldName("10115", OVAddressFieldPostalCode);
  EXPECT_EQ(read->valueCount(), 2U);
}

TEST(AddressArchive, TheSameContentGivesTheSameBytes) {
  const auto address = OVObjectAddress::init();
  address->setCountryCode("jp");
  for (const OVString& name : {OVAddressFieldStreet, OVAddressFieldCity, OVAddressFieldZIP})
    address->setStringValueForFieldName(name, name);
  const auto first = OVKeyedArchiver::archivedDataWithRootObject(address);
  const auto second = OVKeyedArchiver::archivedDataWithRootObject(
      OVKeyedUnarchiver::unarchiveObjectWithData(first));
  EXPECT_EQ(first->text(), second->text());
}

TEST(AddressArchive, FieldsOfAnotherKindAreWrittenBack) {
  const auto read = readFrom({{"valueDic", foreignObject()}, {"countryCode", foreignObject()}});
  read->setStringValueForFieldName("Berlin", OVAddressFieldCity);
  EXPECT_EQ(read->valueCount(), 0U);
  EXPECT_FALSE(read->isequalToAddress(read));
  const ArchivedForm form(read);
  EXPECT_TRUE(isForeignObject(form.object("valueDic")));
  EXPECT_TRUE(isForeignObject(form.object("countryCode")));
}

TEST(AddressArchive, TwoMayShareADictionary) {
  const auto values = Values::dictionary({{"OVAddressFieldCity", "Berlin"}});
  const auto list = restored<OVList<OVObjectAddress>>(OVList<OVObject>::list(
      {archivedAs(kClassName, {{"valueDic", values}, {"countryCode", OVString("de")}}),
       archivedAs(kClassName, {{"valueDic", values}, {"countryCode", OVString("de")}})}));
  const auto again = restored<OVList<OVObjectAddress>>(list);
  for (const auto& addresses : {list, again}) {
    addresses[0]->setStringValueForFieldName("10115", OVAddressFieldZIP);
    EXPECT_EQ(addresses[1]->stringValueByFieldName(OVAddressFieldPostalCode), "10115");
    EXPECT_TRUE(addresses[0]->isequalToAddress(addresses[1]));
    addresses[1]->setStringValueForFieldName("", OVAddressFieldCity);
    EXPECT_EQ(addresses[0]->valueCount(), 1U);
  }
}

/// A host's own kind of address.
class Depot : public OVObjectAddress {};

TEST(DerivedAddress, TakesValues) {
  const auto depot = std::make_shared<Depot>();
  depot->setStringValueForFieldName("Berlin", OVAddressFieldCity);
  EXPECT_EQ(depot->valueCount(), 1U);
  EXPECT_EQ(restored<OVObjectAddress>(depot)->stringValueByFieldName(OVAddressFieldCity), "Berlin");
}

}  // namespace
