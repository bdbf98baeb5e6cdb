#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/keyed_hash.h"

namespace ov::detail {

/// Numbers given to key texts.
///
/// The same few keys come from the same few places again and again: the address of a key's text is
/// a good guess, and the text itself decides.
class KeyNumbers {
 public:
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;

  /// The key's number; kNone when it has none.
  [[nodiscard]] std::uint32_t find(std::string_view key) {
    const Recent& recent = recent_[slotOf(key)];
    const bool isRecent = recent.address == key.data() && recent.text != nullptr;
    return isRecent && *recent.text == key ? recent.number : lookUp(key);
  }
  void add(std::string_view key, std::uint32_t number) { numbers_.emplace(key, number); }
  /// Gives the key the next free number.
  std::uint32_t add(std::string_view key) {
    const auto number = static_cast<std::uint32_t>(numbers_.size());
    add(key, number);
    return number;
  }

 private:
  using Numbers = std::unordered_map<std::string, std::uint32_t, KeyedHash, std::equal_to<>>;
  struct Recent {
    const char* address = nullptr;
    const std::string* text = nullptr;
    std::uint32_t number = 0;
  };
  static constexpr std::size_t kRecent = 256;

  static std::size_t slotOf(std::string_view key) {
    const auto address = reinterpret_cast<std::uintptr_t>(key.data());
    return (address ^ address >> 8) % kRecent;
  }

  [[gnu::noinline, gnu::cold]] std::uint32_t lookUp(std::string_view key) {
    const auto at = numbers_.find(key);
    if (at == numbers_.end()) return kNone;
    recent_[slotOf(key)] = {key.data(), &at->first, at->second};
    return at->second;
  }

  Numbers numbers_;
  std::array<Recent, kRecent> recent_{};
};

}  // namespace ov::detail
