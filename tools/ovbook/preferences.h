#pragma once

#include <string>

namespace ovbook {

/// Throws `Failure` when what was set in the user defaults is not safely stored. `what` names it.
void requireStoredPreferences(const std::string& what);

}  // namespace ovbook
