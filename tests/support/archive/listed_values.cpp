#include "support/archive/listed_values.h"

#include <array>
#include <cstdint>
#include <cstdio>

namespace {

template <class Value>
std::string formatted(const char* format, Value value) {
  std::array<char, 64> buffer{};
  std::snprintf(buffer.data(), buffer.size(), format, value);
  return buffer.data();
}

}  // namespace

std::string listedText(std::string_view text) {
  std::string result = "\"";
  for (const char each : text) {
    const auto byte = static_cast<unsigned char>(each);
    if (each == '"' || each == '\\') {
      result += '\\';
      result += each;
    } else if (byte < 0x20) {
      result += formatted("\\u%04x", static_cast<unsigned>(byte));
    } else {
      result += each;
    }
  }
  return result + '"';
}

std::string listedReal(double number) { return "real " + formatted("%.17g", number); }

std::string listedNumber(const OVNumber& number) {
  const OVNumber::Value value = number.value();
  if (const auto* truth = std::get_if<bool>(&value)) return *truth ? "true" : "false";
  if (const auto* integer = std::get_if<std::int64_t>(&value)) {
    return std::to_string(*integer);
  }
  if (const auto* natural = std::get_if<std::uint64_t>(&value)) {
    return std::to_string(*natural);
  }
  return listedReal(number.doubleValue());
}

std::string listedData(const OVData& data) {
  std::string result = "<";
  for (const std::byte byte : data.bytes()) {
    result += formatted("%02x", static_cast<unsigned>(byte));
  }
  return result + '>';
}
