#include <atomic>
#include <cstdlib>
#include <new>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/address.h>
#include <OVAddressBookSDK/address_field.h>
#include <OVAddressBookSDK/country.h>
#include <OVAddressBookSDK/instant_message.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_general.h>
#include <OVAddressBookSDK/property.h>
#include <OVAddressBookSDK/text.h>

// A program of its own: it counts every allocation.

namespace {

std::atomic<long> allocations = 0;

template <class Work>
long allocationsOf(Work work) {
  const long before = allocations;
  work();
  return allocations - before;
}

constexpr OVString kMobile(ov::detail::kConstant<"Mobile">);

}  // namespace

void* operator new(std::size_t size) {
  ++allocations;
  if (void* place = std::malloc(size == 0 ? 1 : size)) return place;
  throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t& /*nothrow*/) noexcept {
  ++allocations;
  return std::malloc(size == 0 ? 1 : size);
}
void operator delete(void* place) noexcept { std::free(place); }
void operator delete(void* place, std::size_t /*size*/) noexcept { std::free(place); }

namespace {

TEST(TextAllocations, AreCountedHere) {
  EXPECT_EQ(allocationsOf([] { OVString("one"); }), 1);
  EXPECT_EQ(allocationsOf([] { OVString(std::string_view("")); }), 1);
}

TEST(TextAllocations, ConstantsCostNone) {
  bool good = true;
  EXPECT_EQ(allocationsOf([&] {
              const OVString copy = kMobile;
              OVString assigned;
              assigned = OVProPertyName;
              const OVRef<OVObject> object = copy;
              good = good && ov::cast<OVString>(object).isSame(kMobile);
              good = good && assigned == "Name" && copy != assigned && copy < assigned;
              good = good && copy.view() == "Mobile" && std::hash<OVString>()(copy) != 0;
            }),
            0);
  EXPECT_TRUE(good);
}

TEST(TextAllocations, CopiesCostNone) {
  const OVString text("a text that is long enough to be allocated");
  EXPECT_EQ(allocationsOf([&] {
              OVString copy = text;
              const OVString moved = std::move(copy);
              static_cast<void>(moved == text);
            }),
            0);
}

TEST(TextAllocations, ComparingWithCharactersCostsNone) {
  const OVString text("text");
  bool isEqual = false;
  EXPECT_EQ(allocationsOf([&] { isEqual = text == "text" && text == std::string_view("text"); }),
            0);
  EXPECT_TRUE(isEqual);
}

TEST(TextAllocations, LookingUpInADictionaryCostsNone) {
  const auto dictionary = OVDictionary<OVString>::dictionary({{"a long key of no constant", "x"}});
  const std::string key = "a long key of no constant";
  bool isFound = false;
  EXPECT_EQ(allocationsOf([&] {
              isFound = dictionary[key] == "x" && dictionary.contains(key) &&
                        dictionary["a long key of no constant"] == "x" &&
                        dictionary.find(std::string_view(key)) != dictionary.end() &&
                        dictionary.find(nullptr) == dictionary.end() &&
                        dictionary["another long key, which is not there"].isNull() &&
                        !dictionary.erase("another long key, which is not there");
            }),
            0);
  EXPECT_TRUE(isFound);
}

TEST(TextAllocations, LookingUpInTheCataloguesCostsNone) {
  const std::string field = "OVAddressFieldFurtherDivisions";
  const std::string property = "FirstNamePhonetic";
  const auto lookUp = [&] {
    return OVProperty::propertyWithName(property) != nullptr &&
           OVProperty::propertyWithName("a long name of no property") == nullptr &&
           OVAdressField::fieldWithName(field) != nullptr &&
           OVAdressField::fieldWithName("OVAddressFieldOfNoCatalogue") == nullptr &&
           OVCountry::countryWithCode("de") != nullptr &&
           OVCountry::countryWithCode("DE") != nullptr &&
           OVCountry::countryWithCode("xx") == nullptr &&
           OVCountry::countryNameByCode("De") == "Germany" &&
           OVInstantMessageServer::serverWithName("GoogleTalkInstant") != nullptr;
  };
  EXPECT_TRUE(lookUp());  // builds the catalogues
  bool isRight = false;
  EXPECT_EQ(allocationsOf([&] { isRight = lookUp(); }), 0);
  EXPECT_TRUE(isRight);
}

TEST(TextAllocations, ReadingAPersonCostsNone) {
  const auto person = OVPersonGeneral::initWithID("p");
  const auto phones = OVMutableMultipleValue::init();
  phones->addValue(
      ov::labelled(OVObjectPhone::initWithPhoneNumber("555"), "work", OVValueTypePhone));
  person->setValueByPropertyName(phones, "Phone");
  person->setValueByPropertyName(ov::labelled("x", nullptr, OVValueTypeString), "the host's own");
  const std::string name = "Phone";
  bool isRight = false;
  EXPECT_EQ(allocationsOf([&] {
              isRight = person->valueByPropertyName(name) == phones &&
                        person->valueByPropertyName("the host's own") != nullptr &&
                        person->valueByPropertyName("a long name of no property") == nullptr &&
                        person->valueOfMainValueForProPertyName("Phone") == person->mainPhone() &&
                        person->addressBookID() == "" && person->displayName() == "";
            }),
            0);
  EXPECT_TRUE(isRight);
}

TEST(TextAllocations, ReadingAnAddressCostsNone) {
  const auto address = OVObjectAddress::init();
  address->setStringValueForFieldName("Brest", "OVAddressFieldCity");
  address->setCountryCode("de");  // builds the list of countries
  OVString city;
  EXPECT_EQ(allocationsOf([&] {
              address->setCountryCode("fr");
              city = address->stringValueByFieldName("OVAddressFieldAdjacentarea");
            }),
            0);
  EXPECT_EQ(city, "Brest");
}

TEST(TextAllocations, NullCostsNone) {
  EXPECT_EQ(allocationsOf([] {
              const OVString null;
              const OVString fromPointer(static_cast<const char*>(nullptr));
              const OVRef<OVObject> object = null;
            }),
            0);
}

}  // namespace
