#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace bench {

/// Another contacts library. One of these stands in each program that measures one.
[[nodiscard]] const char* peerName();
/// The sample persons as vCards, made through the library's own objects.
[[nodiscard]] std::string writeCards(std::uint32_t persons);
/// Reads the cards into the library's objects, which it holds; returns how many.
[[nodiscard]] std::size_t readCards(const std::string& cards);
void forgetCards();

}  // namespace bench
