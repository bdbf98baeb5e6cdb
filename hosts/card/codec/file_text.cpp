#include "file_text.h"

#include <string_view>

#include "utf8.h"

namespace ov::card {

namespace {

using namespace std::string_view_literals;

std::string fromUTF16(std::string_view bytes, bool bigEndian, Problems& problems) {
  Converted converted = utf16ToUTF8(bytes, bigEndian);
  if (!converted.exact) {
    problems.warning(1, "invalid UTF-16 in this file was replaced");
  }
  return std::move(converted.text);
}

}  // namespace

std::string textOfFile(std::string bytes, Problems& problems) {
  const std::string_view view = bytes;
  if (view.starts_with("\xEF\xBB\xBF")) {
    bytes.erase(0, 3);
  } else if (view.starts_with("\xFF\xFE") || view.starts_with("\xFE\xFF")) {
    return fromUTF16(view.substr(2), view.front() == '\xFE', problems);
  } else if (view.starts_with("B\0E\0"sv) || view.starts_with("\0B\0E"sv)) {
    return fromUTF16(view, view.front() == '\0', problems);  // its mark has been lost
  }
  return bytes;
}

}  // namespace ov::card
