#pragma once

#include <string_view>
#include <utility>

#include <OVAddressBookSDK/export.h>
#include <OVAddressBookSDK/text.h>

class OVKeyedArchiver;
class OVKeyedUnarchiver;

namespace ov::detail {

/// A text that an object holds, or whatever an archive has instead: that reads as null, is kept and
/// written back. As large as a text.
class OV_EXPORT TextField {
 public:
  TextField() = default;
  explicit TextField(OVString text) : held_(std::move(text)) {}

  /// Null when the field is empty, and for what is not text.
  [[nodiscard]] const OVString& text() const OV_LIFETIMEBOUND { return isText() ? held_ : kNull; }
  /// Whether the field holds neither a text nor anything else.
  [[nodiscard]] bool isEmpty() const { return held_.isNull(); }

  /// Writes what the field holds; no key when it is empty.
  void encode(OVKeyedArchiver& coder, std::string_view key) const;
  [[nodiscard]] static TextField decoded(OVKeyedUnarchiver& coder, std::string_view key);
  /// The same for a text that its owner searches as soon as it is read.
  [[nodiscard]] static TextField decodedToBeSearched(OVKeyedUnarchiver& coder,
                                                     std::string_view key);

 private:
  class Kept;
  static constexpr OVString kNull{};

  [[nodiscard]] bool isText() const { return isEmpty() || held_.text_->isText(); }

  OVString held_;
};

}  // namespace ov::detail
