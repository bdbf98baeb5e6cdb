#include <OVAddressBookSDK/version.h>

const double OVAddressBookSDKVersionNumber = 1.0;

const char OVAddressBookSDKVersionString[] =
    "@(#)PROGRAM:OVAddressBookSDK  PROJECT:OVAddressBookSDK-" OV_VERSION;
