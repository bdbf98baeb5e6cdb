#pragma once

#include <cstddef>
#include <string_view>

namespace ov::detail {

/// Hashes text with a key that is drawn once per process: nobody can choose texts that collide.
struct KeyedHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const;
};

}  // namespace ov::detail
