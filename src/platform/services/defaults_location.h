#pragma once

#include <string>
#include <string_view>

#include "platform/services/environment.h"

namespace ov {

/// True for a name that is safe as that of a folder.
[[nodiscard]] bool isApplicationIdentifier(std::string_view name);

/// The program's name, or that of the library where the program's cannot name a folder.
[[nodiscard]] std::string defaultApplicationIdentifier();

/// The folder of an application's preferences: under `$XDG_CONFIG_HOME` when that is an absolute
/// path, else under `.config` in the home that `$HOME` or the password database names. "" when
/// there is no home.
[[nodiscard]] std::string defaultsDirectory(const std::string& applicationIdentifier,
                                            const Environment& environment = &processEnvironment);

}  // namespace ov
