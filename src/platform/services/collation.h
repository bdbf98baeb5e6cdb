#pragma once

#include <memory>
#include <string>

#include <OVAddressBookSDK/text.h>

namespace ov {

/// The order of texts for the readers of one locale. Any thread may use it.
class Collation {
 public:
  /// Of a locale without rules of its own, and of one that ICU does not know, it is the root's.
  explicit Collation(const OVString& identifier);
  Collation(const Collation&) = delete;
  Collation& operator=(const Collation&) = delete;
  ~Collation();

  /// Bytes that order as the texts do.
  [[nodiscard]] std::string keyOf(const OVString& text) const;

 private:
  struct Rules;
  std::unique_ptr<const Rules> rules_;
};

}  // namespace ov
