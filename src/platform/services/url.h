#pragma once

#include <string_view>

namespace ov {

/// True for an absolute URL by the grammar of RFC 3986: a scheme, then characters that are allowed
/// where they are. "tel:" alone is one; text with a blank or outside ASCII is none.
[[nodiscard]] bool isValidUrl(std::string_view text);

}  // namespace ov
