#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

namespace ov::card {

/// A hash with a key that is drawn once per process: nobody can choose texts that collide.
struct KeyedHash {
  using is_transparent = void;
  [[nodiscard]] std::size_t operator()(std::string_view text) const;
};

}  // namespace ov::card
