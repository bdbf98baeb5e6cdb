#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace ov::detail {

/// A map from codes of two lower-case letters to small numbers, made at compile time.
class CodeMap {
 public:
  /// Enters a code; false when it is there already, and then the first number stays.
  constexpr bool add(std::string_view code, std::size_t number) {
    std::uint8_t& slot = slots_.at(slotOf(code).value());
    if (slot != 0) return false;
    if (number >= UINT8_MAX) throw "too many numbers for a slot";
    slot = static_cast<std::uint8_t>(number + 1);
    return true;
  }

  /// The number of exactly this code.
  [[nodiscard]] constexpr std::optional<std::size_t> find(std::string_view code) const {
    const auto slot = slotOf(code);
    if (!slot || slots_[*slot] == 0) return std::nullopt;
    return slots_[*slot] - 1U;
  }

 private:
  static constexpr std::size_t kLetters = 26;

  static constexpr std::optional<std::size_t> slotOf(std::string_view code) {
    if (code.size() != 2 || !isLetter(code[0]) || !isLetter(code[1])) return std::nullopt;
    return static_cast<std::size_t>(code[0] - 'a') * kLetters +
           static_cast<std::size_t>(code[1] - 'a');
  }
  static constexpr bool isLetter(char c) { return c >= 'a' && c <= 'z'; }

  std::array<std::uint8_t, kLetters * kLetters> slots_{};
};

}  // namespace ov::detail
