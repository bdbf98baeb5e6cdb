#pragma once

#include <string>
#include <system_error>

namespace ov::vcard {

/// Reads the whole file. On an error `bytes` has no meaning.
[[nodiscard]] std::error_code readFile(const std::string& path, std::string& bytes);

}  // namespace ov::vcard
