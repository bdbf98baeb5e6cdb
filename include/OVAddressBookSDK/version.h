#pragma once

#include <OVAddressBookSDK/export.h>

extern "C" {

/// The version of the library that is linked: 1.0. Changes with the interface.
OV_EXPORT extern const double OVAddressBookSDKVersionNumber;

/// The library and its build, for people and for `what`: begins with "@(#)PROGRAM:", ends with a
/// NUL.
OV_EXPORT extern const char OVAddressBookSDKVersionString[];
}
