#include <OVAddressBookSDK/version.h>
#include <gtest/gtest.h>

#include <type_traits>

namespace {

constexpr const char* kIdentification =
    "@(#)PROGRAM:OVAddressBookSDK  PROJECT:OVAddressBookSDK-" OV_EXPECTED_VERSION;

TEST(Version, NumberIsTheDoubleOne) {
  static_assert(std::is_same_v<decltype(OVAddressBookSDKVersionNumber), const double>);
  EXPECT_EQ(OVAddressBookSDKVersionNumber, 1.0);
}

TEST(Version, StringNamesTheLibraryAndItsBuild) {
  static_assert(std::is_array_v<decltype(OVAddressBookSDKVersionString)>);
  EXPECT_STREQ(OVAddressBookSDKVersionString, kIdentification);
}

}  // namespace
