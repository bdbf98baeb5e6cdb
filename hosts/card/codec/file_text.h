#pragma once

#include <string>

#include "problems.h"

namespace ov::card {

/// The bytes of a file as the text that a `CardReader` takes: without byte-order mark, UTF-16 as
/// UTF-8. An invalid character becomes U+FFFD, and is reported.
[[nodiscard]] std::string textOfFile(std::string bytes, Problems& problems);

}  // namespace ov::card
