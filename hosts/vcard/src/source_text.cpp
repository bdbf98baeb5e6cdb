#include "source_text.h"

#include <algorithm>

#include "charset.h"

namespace ov::vcard {

std::string withoutByteOrderMark(std::string bytes) {
  const std::string_view view = bytes;
  if (view.starts_with("\xEF\xBB\xBF")) {
    bytes.erase(0, 3);
  } else if (view.starts_with("\xFF\xFE") || view.starts_with("\xFE\xFF")) {
    if (auto converted = toUTF8(view, "UTF-16")) return std::move(converted->text);
  }
  return bytes;
}

bool LineReader::next(SourceLine& line) {
  if (offset_ >= text_.size()) return false;
  const std::size_t end = std::min(text_.find_first_of("\r\n", offset_), text_.size());
  line.text = text_.substr(offset_, end - offset_);
  line.number = ++number_;
  offset_ = std::min(end + (text_.substr(end).starts_with("\r\n") ? 2 : 1), text_.size());
  return true;
}

}  // namespace ov::vcard
