#pragma once

#include <cstddef>

namespace ov::detail {

/// Tells the system that a long stretch of memory is about to be filled, so that it may hand it out
/// in large pages. Never fails.
void adviseLarge(void* begin, std::size_t bytes) noexcept;

}  // namespace ov::detail
