#pragma once

#include <string>
#include <string_view>

#include "labels.h"

namespace ov::vcard {

/// Writes vCards 4.0, one line after the other, folded.
class CardWriter {
 public:
  explicit CardWriter(std::string& out) : out_(out) {}

  void begin();
  void end();

  /// `parameters` begin with a semicolon, or are empty; `value` is canonical.
  void line(std::string_view name, std::string_view parameters, std::string_view value);

  /// A line with a label, which may take a second line.
  void labelledLine(std::string_view name, std::string parameters, const LabelSpelling& label,
                    std::string_view value);

 private:
  void fold(std::string_view text);

  std::string& out_;
  unsigned items_ = 0;
};

}  // namespace ov::vcard
