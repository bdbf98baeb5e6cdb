#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "arena.h"
#include "header.h"
#include "version.h"

namespace ov::card {

/// The preference of a line that does not state one.
inline constexpr int kNotPreferred = 101;

/// Bytes that a line holds as base64.
struct Binary {
  std::string bytes;
  /// The media type that a data URI names, in lower case; else empty.
  std::string mediaType;
};

/// What the lines of a card share.
struct CardContext {
  Arena arena;
  Version version = Version::V3_0;
};

/// One property of a card, its continuation lines joined, in UTF-8.
///
/// Views live as long as the card. Values are decoded when they are first asked for, once.
class Line {
 public:
  /// Where the line begins, counted from 1.
  [[nodiscard]] std::size_t number() const { return number_; }
  /// The line as written, its folds and the end of its last line included (see Card::source).
  [[nodiscard]] std::string_view source() const { return source_; }

  /// As written, without the dot; empty when there is none.
  [[nodiscard]] std::string_view group() const { return group_; }
  /// In upper case.
  [[nodiscard]] std::string_view name() const { return name_; }
  /// True for `base`, and for "X-...-" followed by `base`. `base` is in upper case.
  [[nodiscard]] bool isNamed(std::string_view base) const;

  /// The parameters as written, unfolded, encoding and character set included, each after a
  /// semicolon.
  [[nodiscard]] std::string_view rawParameters() const { return rawParameters_; }
  /// In the order of the card, no name twice, without those for encoding and character set. Words
  /// without a name are values of TYPE.
  [[nodiscard]] std::span<const Parameter> parameters() const { return parameters_; }
  /// Null when there is none. `name` is in upper case.
  [[nodiscard]] const Parameter* parameter(std::string_view name) const;
  /// The first value of the parameter; "" when there is none.
  [[nodiscard]] std::string_view parameterValue(std::string_view name) const;
  /// The words of TYPE in upper case, without PREF.
  [[nodiscard]] std::vector<std::string> types() const;
  /// 1 for the most preferred to 100, from PREF or TYPE, or `kNotPreferred`.
  [[nodiscard]] int preference() const;

  /// Whether the card says that the value is base64, and it is.
  [[nodiscard]] bool isBase64() const { return encoding_ == Encoding::Base64; }
  /// The value, canonical (see escapes.h); of base64 the digits, without blanks.
  [[nodiscard]] std::string_view value() const;
  /// The value as one text, escapes decoded; the same as `value` for base64.
  [[nodiscard]] std::string_view text() const;
  /// The bytes of base64 or a base64 data URI, decoded on each call straight from the source;
  /// nothing for other values.
  [[nodiscard]] std::optional<Binary> binary() const;

 private:
  friend class CardReader;
  friend class LineReader;

  /// Null views have not been decoded.
  struct Decoded {
    std::string_view plain;  // in UTF-8, unfolded, its escapes as written
    std::string_view value;
    std::string_view text;
  };

  [[nodiscard]] Decoded& decoded() const;
  [[nodiscard]] std::string_view plain() const;
  /// The bytes of the value, unfolded, without quoted-printable, in the character set of the line.
  [[nodiscard]] std::string bytes() const;
  /// The text of the card inside this line.
  [[nodiscard]] std::string nestedCard() const;

  CardContext* context_ = nullptr;
  std::size_t number_ = 0;
  std::string_view source_;
  std::string_view group_;
  std::string_view name_;
  std::string_view rawParameters_;
  std::span<const Parameter> parameters_;
  std::string_view raw_;                // what follows the colon, folded
  mutable Decoded* decoded_ = nullptr;  // null while nothing has been decoded
  mutable bool hasPlainValue_ = false;  // known to need no decoding, once it has been looked at
  mutable bool hasPlainText_ = false;
  Encoding encoding_ = Encoding::None;
  bool isFolded_ = false;
  bool holdsCard_ = false;
  bool isEncoded_ = false;  // more than plain ASCII or UTF-8
  bool hasPlainHeader_ = true;
  bool isRespelled_ = false;
  std::uint32_t openCards_ = 0;  // inside this line
  std::uint32_t charset_ = 0;  // its place among the character sets of the card, from 1; 0 for none
};

}  // namespace ov::card
