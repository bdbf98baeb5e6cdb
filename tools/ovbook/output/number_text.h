#pragma once

#include <string>

#include <OVAddressBookSDK/number.h>

namespace ovbook {

/// The shortest text that reads back as the same number: "0.1", "1e+22", "nan", "-inf".
[[nodiscard]] std::string numberText(double number);

/// The same for any number; "true" and "false" for truth values.
[[nodiscard]] std::string numberText(const OVNumber& number);

}  // namespace ovbook
