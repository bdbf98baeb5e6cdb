#pragma once

#include <string>
#include <string_view>

#include <OVAddressBookSDK/data.h>
#include <OVAddressBookSDK/number.h>

/// Values on one line of a listing.
std::string listedText(std::string_view text);
std::string listedReal(double number);
std::string listedNumber(const OVNumber& number);
std::string listedData(const OVData& data);
