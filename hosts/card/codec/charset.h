#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "utf8.h"

namespace ov::card {

/// Converts from character sets by name. Opening a converter is slow, so all are kept.
class Charsets {
 public:
  /// Nothing when there is no such character set. ISO-8859-1 is treated as Windows-1252, which
  /// contains it except for control characters.
  [[nodiscard]] std::optional<Converted> toUTF8(std::string_view bytes, std::string_view charset);

 private:
  struct Close {
    void operator()(void* converter) const;
  };
  using Converter = std::unique_ptr<void, Close>;

  [[nodiscard]] void* converterFor(std::string_view charset);

  std::map<std::string, Converter> converters_;  // by names in upper case
};

}  // namespace ov::card
