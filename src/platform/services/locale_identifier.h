#pragma once

#include <string>
#include <string_view>

#include "platform/services/environment.h"

namespace ov {

/// The locale that the user asks for: the first of LC_ALL, LC_MESSAGES and LANG that is not empty.
[[nodiscard]] std::string localeIdentifier(const Environment& environment);

/// What a locale of the C library ("de_DE.UTF-8@euro") is called here ("de_DE"): nothing but the
/// region follows the first underscore, so that its country can be found.
///
/// The encoding and variants are dropped. A modifier that names a script becomes the script
/// ("sr_RS@latin": "sr-Latn_RS"), any other is dropped ("ca_ES@valencia": "ca_ES"). "C", "POSIX"
/// and what names no locale give "en_US_POSIX".
[[nodiscard]] std::string localeIdentifierOf(std::string_view posixName);

}  // namespace ov
