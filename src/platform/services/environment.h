#pragma once

#include <stdlib.h>  // NOLINT(modernize-deprecated-headers): secure_getenv is not in <cstdlib>

#include <functional>

namespace ov {

/// Reads one environment variable; null when it is not set.
using Environment = std::function<const char*(const char* name)>;

/// This process's own. A program that runs with more rights than its user has none.
[[nodiscard]] inline const char* processEnvironment(const char* name) {
  return secure_getenv(name);
}

}  // namespace ov
