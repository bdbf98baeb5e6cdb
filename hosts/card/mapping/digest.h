#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace ov::card {

/// The SHA-256 of some bytes in hexadecimal digits.
class Digest {
 public:
  Digest();
  ~Digest();
  Digest(const Digest&) = delete;
  Digest& operator=(const Digest&) = delete;

  void add(std::string_view bytes);
  /// Nothing can be added afterwards.
  [[nodiscard]] std::string digits();

 private:
  void* checksum_;
};

}  // namespace ov::card
