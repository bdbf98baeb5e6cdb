#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "address/field_table.h"

namespace ov::detail {

/// The fields on one line of an address.
class LayoutLine {
 public:
  constexpr void add(FieldNumber field) { fields_.at(size_++) = field; }
  [[nodiscard]] constexpr std::span<const FieldNumber> fields() const {
    return std::span(fields_).first(size_);
  }

 private:
  std::array<FieldNumber, 3> fields_{};
  std::size_t size_ = 0;
};

/// The lines of an address.
class Layout {
 public:
  constexpr LayoutLine& add() { return lines_.at(size_++); }
  [[nodiscard]] constexpr std::span<const LayoutLine> lines() const {
    return std::span(lines_).first(size_);
  }

 private:
  std::array<LayoutLine, 5> lines_{};
  std::size_t size_ = 0;
};

/// The layout for exactly this country code; the first of the table for every other text.
[[nodiscard]] const Layout& layoutOf(std::string_view countryCode);

}  // namespace ov::detail
