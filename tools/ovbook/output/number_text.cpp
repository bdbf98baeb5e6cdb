#include "output/number_text.h"

#include <array>
#include <charconv>
#include <cstdint>

namespace ovbook {

std::string numberText(double number) {
  std::array<char, 32> text;
  return {text.data(), std::to_chars(text.data(), text.data() + text.size(), number).ptr};
}

std::string numberText(const OVNumber& number) {
  struct Text {
    std::string operator()(bool truth) const { return truth ? "true" : "false"; }
    std::string operator()(double real) const { return numberText(real); }
    std::string operator()(std::int64_t integer) const { return std::to_string(integer); }
    std::string operator()(std::uint64_t integer) const { return std::to_string(integer); }
  };
  return std::visit(Text(), number.value());
}

}  // namespace ovbook
