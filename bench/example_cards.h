#pragma once

#include <cstddef>
#include <string>

namespace bench {

/// The cards of the file again and again, each with a UID of its own, until there are `count`.
/// Exits with a message when the file cannot be read.
[[nodiscard]] std::string exampleCards(const char* path, std::size_t count);

}  // namespace bench
