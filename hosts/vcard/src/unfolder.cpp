#include "unfolder.h"

#include <algorithm>

#include "ascii.h"
#include "base64.h"

namespace ov::vcard {

namespace {

bool isBase64(std::string_view line) {
  return !line.empty() && std::all_of(line.begin(), line.end(), isBase64Digit);
}

/// True when an "=" at the end of the line says that the value goes on: a rough look at what stands
/// before the first colon will do.
bool isQuotedPrintable(std::string_view line) {
  const std::string header = upperASCII(line.substr(0, line.find(':')));
  return header.find("QUOTED-PRINTABLE") != std::string::npos;
}

}  // namespace

std::optional<UnfoldedLine> Unfolder::next() {
  while (at_ < lines_.size() && trim(lines_[at_].text).empty()) ++at_;
  if (at_ == lines_.size()) return std::nullopt;

  UnfoldedLine line{lines_[at_].number, std::string(lines_[at_].text), {}};
  ++at_;
  takeContinuations(line.text);
  takeNestedCard(line);
  return line;
}

bool Unfolder::atContinuation() const {
  return at_ < lines_.size() && !lines_[at_].nested && !lines_[at_].text.empty() &&
         isBlank(lines_[at_].text.front());
}

void Unfolder::takeContinuations(std::string& text) {
  const bool quotedPrintable = isQuotedPrintable(text);
  for (;;) {
    if (quotedPrintable && at_ < lines_.size() && trimEnd(text).ends_with('=')) {
      text.resize(trimEnd(text).size() - 1);
      text += lines_[at_++].text;
    } else if (atContinuation()) {
      text += lines_[at_++].text.substr(keepBlanks_ ? 0 : 1);
    } else {
      return;
    }
  }
}

void Unfolder::takeNestedCard(UnfoldedLine& line) {
  while (at_ < lines_.size() && lines_[at_].nested) {
    line.nestedCard.append(lines_[at_++].text).append("\n");
  }
}

void Unfolder::appendBase64(std::string& value) {
  for (; at_ < lines_.size() && isBase64(trim(lines_[at_].text)); ++at_) {
    value += lines_[at_].text;
  }
}

}  // namespace ov::vcard
