#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include <OVAddressBookSDK/text.h>
#include <OVAddressBookSDK/value_type.h>

namespace ov::detail {

inline constexpr std::size_t kStandardPropertyCount = 23;

/// A row of the catalogue.
struct StandardProperty {
  const OVString& name;
  /// Null: shown under its name.
  const char* displayName;
  OVValueType valueType;
  OVValueType subValueType = OVValueTypeString;
};

/// All rows in the catalogue's order.
[[nodiscard]] std::span<const StandardProperty, kStandardPropertyCount> standardProperties();

/// The position of the row with this name; `kStandardPropertyCount` when there is none.
[[nodiscard]] std::size_t standardPropertyNamed(std::string_view name);

}  // namespace ov::detail
