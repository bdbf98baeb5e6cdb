#pragma once

#include <array>
#include <streambuf>
#include <system_error>

namespace ovbook {

/// What standard output could not take.
class OutputError : public std::system_error {
 public:
  explicit OutputError(int error)
      : std::system_error(error, std::generic_category(), "standard output") {}
};

/// The buffer of a stream that writes to a file descriptor, which stays open. Throws `OutputError`
/// as soon as something cannot be written; a stream passes it on when `badbit` is among its
/// `exceptions`.
class DescriptorBuffer final : public std::streambuf {
 public:
  explicit DescriptorBuffer(int descriptor);

 protected:
  int_type overflow(int_type character) override;
  int sync() override;

 private:
  int descriptor_;
  std::array<char, 1 << 16> pending_{};
};

}  // namespace ovbook
