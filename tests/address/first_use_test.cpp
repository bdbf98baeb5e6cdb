#include <OVAddressBookSDK/address.h>
#include <OVAddressBookSDK/address_field.h>
#include <OVAddressBookSDK/country.h>

#include "support/printers.h"
#include "support/processes/own_process.h"
#include "support/processes/together.h"

namespace {

TEST(CountryList, MayBeFirstReachedFromManyThreads) {
  expectInOwnProcess([] {
    const auto lists = fromEightThreads([] { return OVCountry::allCountry(); });
    EXPECT_THAT(lists, testing::Each(lists.front()));
    EXPECT_EQ(OVCountry::countryWithCode("de")->name(), "Germany");
  });
}

TEST(CountryList, MayBeFirstReachedThroughCodesFromManyThreads) {
  expectInOwnProcess([] {
    const auto found = fromEightThreads([] { return OVCountry::countryWithCode("DE"); });
    EXPECT_THAT(found, testing::Each(OVCountry::countryWithCode("us")));
  });
}

TEST(AddressField, MayBeFirstReachedFromManyThreads) {
  expectInOwnProcess([] {
    const auto fields =
        fromEightThreads([] { return OVAdressField::fieldWithName(OVAddressFieldCity); });
    EXPECT_THAT(fields, testing::Each(testing::AllOf(testing::NotNull(), fields.front())));
  });
}

}  // namespace
