#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace bench {

/// A library that reads cards. Each program that measures one has one of these.
[[nodiscard]] const char* peerName();
/// The sample persons as vCards, made through the objects of another library.
[[nodiscard]] std::string writeCards(std::uint32_t persons);
/// Reads the cards into the library's objects, which it holds, if it has any; returns how many.
[[nodiscard]] std::size_t readCards(const std::string& cards);
void forgetCards();

}  // namespace bench
