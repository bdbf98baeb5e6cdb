#pragma once

#include <iosfwd>

#include <OVAddressBookSDK/text.h>

/// Shows null and "" apart in test failures.
void PrintTo(const OVString& text, std::ostream* stream);
