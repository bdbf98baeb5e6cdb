#pragma once

#include <string>
#include <string_view>

namespace ov {

/// The full path of the first executable file of that name in the folders of `PATH`; "" when there
/// is none. Folders that are not named from the root are passed over: what runs must not depend on
/// the current folder.
[[nodiscard]] std::string findProgram(std::string_view name);

}  // namespace ov
