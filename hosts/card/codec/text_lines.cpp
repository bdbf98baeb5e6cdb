#include "text_lines.h"

#include <algorithm>

#include "ascii.h"

namespace ov::card {

std::size_t TextLines::Next::find(std::string_view text, std::size_t from) {
  if (!place || *place < from) place = std::min(text.find(c, from), text.size());
  return *place;
}

bool TextLines::next(TextLine& line) {
  if (offset_ >= text_.size()) return false;
  const std::size_t end = std::min(lineFeed_.find(text_, offset_), return_.find(text_, offset_));
  const std::string_view rest = text_.substr(end);
  std::size_t size = rest.empty() ? 0 : 1;
  if (rest.starts_with("\r\n")) size = 2;
  if (rest.starts_with("\r\r\n")) size = 3;
  line = {text_.substr(offset_, end - offset_), rest.substr(0, size), ++number_};
  offset_ = end + size;
  return true;
}

std::string unfolded(std::string_view text, std::size_t blanks) {
  std::string joined;
  joined.reserve(text.size());
  TextLines lines(text);
  TextLine line;
  if (lines.next(line)) joined += line.text;
  while (lines.next(line)) joined += line.text.substr(std::min(blanks, line.text.size()));
  return joined;
}

Marker markerOf(std::string_view line) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";  // begins the second of two files joined
  if (line.starts_with(kMark)) line.remove_prefix(kMark.size());
  const bool begins = startsWithWord(line, "BEGIN");
  if (!begins && !startsWithWord(line, "END")) return Marker::None;
  line = trim(line.substr(begins ? 5 : 3));
  if (!line.starts_with(':') || !sameWord(trim(line.substr(1)), "VCARD")) return Marker::None;
  return begins ? Marker::Begin : Marker::End;
}

bool Cursor::isContinuation() const {
  return !atEnd_ && !line_.text.empty() && isBlank(line_.text.front());
}

bool Cursor::isEmpty() const { return trim(line_.text).empty(); }

void Cursor::advance() {
  offset_ = lines_.offset();
  atEnd_ = !lines_.next(line_);
  marker_ = atEnd_ ? Marker::None : markerOf(line_.text);
}

}  // namespace ov::card
