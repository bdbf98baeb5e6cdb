#pragma once

#include <string>
#include <string_view>

#include "platform/services/environment.h"

namespace ov {

/// The locale that the user asks for: the first of LC_ALL, LC_MESSAGES and LANG that is not empty.
[[nodiscard]] std::string localeIdentifier(const Environment& environment);

/// What a locale of the C library ("de_DE.UTF-8@euro") is called here ("de_DE").
///
/// The encoding is dropped. A modifier that names a script becomes the script ("sr_RS@latin":
/// "sr_Latn_RS"), one that names a variant becomes the variant ("ca_ES@valencia":
/// "ca_ES_VALENCIA"), any other is dropped. "C", "POSIX" and what names no locale give
/// "en_US_POSIX".
[[nodiscard]] std::string localeIdentifierOf(std::string_view posixName);

}  // namespace ov
