#pragma once

#include <string_view>

#include <OVAddressBookSDK/text.h>

namespace ov::detail {

/// A row of the country vocabulary: both texts cost nothing to copy.
struct CountryName {
  OVString code;
  OVString name;
};

/// The first row of the vocabulary with this code, which is compared in lower case only; both texts
/// are null when there is none.
[[nodiscard]] CountryName countryNameOf(std::string_view lowerCaseCode);

}  // namespace ov::detail
