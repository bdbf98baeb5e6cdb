#pragma once

#include <functional>
#include <memory>
#include <string>

namespace bench {

/// One way to write the book and to read it again. Books and blocks are held without their type.
struct Codec {
  std::string name;
  std::function<std::shared_ptr<void>(unsigned count)> build;
  /// Returns the block; its size goes to `bytes`.
  std::function<std::shared_ptr<void>(const std::shared_ptr<void>& book, std::size_t& bytes)> save;
  std::function<std::shared_ptr<void>(const std::shared_ptr<void>& block)> restore;
};

[[nodiscard]] Codec libraryCodec();
[[nodiscard]] Codec cerealCodec();
[[nodiscard]] Codec boostCodec();

}  // namespace bench
