#pragma once

#include <cstddef>
#include <string_view>

namespace ov::card {

/// Receives what goes wrong while cards are read. Lines are counted from 1; a reason is one
/// sentence in English that lives until the call returns.
class Problems {
 public:
  virtual ~Problems() = default;
  /// Some of the text could not be read and was left out.
  virtual void error(std::size_t line, std::string_view reason) = 0;
  /// Imported, but not verbatim.
  virtual void warning(std::size_t line, std::string_view reason) = 0;

 protected:
  Problems() = default;
  Problems(const Problems&) = default;
  Problems& operator=(const Problems&) = default;
};

}  // namespace ov::card
