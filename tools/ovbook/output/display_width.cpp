#include "output/display_width.h"

#include <unicode/uchar.h>

#include "output/code_points.h"

namespace ovbook {

namespace {

constexpr char32_t kSoftHyphen = 0xAD;

bool isDrawnOverTheLast(UChar32 c) {
  const auto category = u_charType(c);
  if (category == U_NON_SPACING_MARK || category == U_ENCLOSING_MARK) return true;
  const int hangul = u_getIntPropertyValue(c, UCHAR_HANGUL_SYLLABLE_TYPE);
  return hangul == U_HST_VOWEL_JAMO || hangul == U_HST_TRAILING_JAMO ||
         u_hasBinaryProperty(c, UCHAR_DEFAULT_IGNORABLE_CODE_POINT) != 0;
}

std::size_t widthOf(char32_t codePoint) {
  if (codePoint < 0x7F || codePoint == kSoftHyphen) return 1;
  const auto c = static_cast<UChar32>(codePoint);
  if (isDrawnOverTheLast(c)) return 0;
  const int eastAsian = u_getIntPropertyValue(c, UCHAR_EAST_ASIAN_WIDTH);
  return eastAsian == U_EA_WIDE || eastAsian == U_EA_FULLWIDTH ? 2 : 1;
}

}  // namespace

std::size_t displayWidth(std::string_view text) {
  std::size_t width = 0;
  while (!text.empty()) width += widthOf(takeCodePoint(text));
  return width;
}

std::string padded(std::string_view text, std::size_t width) {
  const std::size_t own = displayWidth(text);
  return std::string(text) + std::string(own < width ? width - own : 0, ' ');
}

}  // namespace ovbook
