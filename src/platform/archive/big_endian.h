#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace ov::detail {

template <class Unsigned>
[[nodiscard]] inline Unsigned bigEndianOrder(Unsigned number) {
  if constexpr (std::endian::native == std::endian::big || sizeof(Unsigned) == 1) return number;
  if constexpr (sizeof(Unsigned) == 2) return __builtin_bswap16(number);
  if constexpr (sizeof(Unsigned) == 4) return __builtin_bswap32(number);
  if constexpr (sizeof(Unsigned) == 8) return __builtin_bswap64(number);
}

template <class Unsigned>
inline void storeAs(std::byte* place, std::uint64_t number) {
  const Unsigned ordered = bigEndianOrder(static_cast<Unsigned>(number));
  std::memcpy(place, &ordered, sizeof ordered);
}

template <class Unsigned>
[[nodiscard]] inline std::uint64_t loadAs(const std::byte* place) {
  Unsigned ordered;
  std::memcpy(&ordered, place, sizeof ordered);
  return bigEndianOrder(ordered);
}

/// The low `width` bytes of `number`, most significant first.
inline void storeBigEndian(std::byte* place, std::uint64_t number, unsigned width) {
  if (width == 4) return storeAs<std::uint32_t>(place, number);
  for (unsigned i = width; i-- > 0; number >>= 8) place[i] = static_cast<std::byte>(number);
}

/// A number of at most 8 bytes; of a wider one, the last 8.
[[nodiscard]] inline std::uint64_t loadBigEndian(const std::byte* place, unsigned width) {
  if (width == 4) return loadAs<std::uint32_t>(place);
  if (width == 2) return loadAs<std::uint16_t>(place);
  if (width == 1) return static_cast<std::uint64_t>(*place);
  std::uint64_t number = 0;
  for (unsigned i = 0; i < width; ++i) {
    number = number << 8 | static_cast<std::uint64_t>(place[i]);
  }
  return number;
}

}  // namespace ov::detail
