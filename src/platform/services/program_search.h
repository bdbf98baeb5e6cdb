#pragma once

#include <string>
#include <string_view>

namespace ov {

/// The full path of the first executable file of that name in the folders of `PATH`; "" when there
/// is none. Relative folders are skipped: what runs must not depend on the current folder.
[[nodiscard]] std::string findProgram(std::string_view name);

}  // namespace ov
