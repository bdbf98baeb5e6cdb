#include <OVAddressBookSDK/address.h>

#include "support/printers.h"
#include "support/processes/together.h"

namespace {

TEST(AddressCountryCode, IsReadWholeWhileOthersSetIt) {
  const auto address = OVObjectAddress::init();
  address->setCountryCode("de");
  const auto codes = fromEightThreads([&] {
    OVString last;
    for (int i = 0; i < 2000; ++i) {
      address->setCountryCode(i % 2 == 0 ? "fr" : "de");
      last = address->countryCode();
      if (last != "fr" && last != "de") break;
    }
    return last;
  });
  EXPECT_THAT(codes, testing::Each(testing::AnyOf(testing::Eq("fr"), testing::Eq("de"))));
}

}  // namespace
