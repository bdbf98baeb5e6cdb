#pragma once

#include <cstdint>

namespace ov::card {

enum class Version : std::uint8_t { V2_1, V3_0, V4_0 };

}  // namespace ov::card
