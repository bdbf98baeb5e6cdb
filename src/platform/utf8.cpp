// Finds and replaces ill-formed UTF-8: each maximal ill-formed part becomes one U+FFFD.

#include "platform/utf8.h"

#include <cstdint>
#include <cstring>

namespace ov::detail {

namespace {

struct Sequence {
  std::size_t length;  // bytes that belong together
  bool wellFormed;
};

/// The sequence at the start of `text`: either one character or a maximal ill-formed part.
Sequence sequenceAt(std::string_view text) {
  const auto byte = [&](std::size_t i) {
    return i < text.size() ? static_cast<unsigned char>(text[i]) : static_cast<unsigned char>(0);
  };
  const unsigned lead = byte(0);
  if (lead < 0x80) return {1, true};
  if (lead < 0xC2 || lead > 0xF4) return {1, false};
  const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  const unsigned lowest = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  const unsigned highest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  if (byte(1) < lowest || byte(1) > highest) return {1, false};
  for (std::size_t i = 2; i < length; ++i) {
    if ((byte(i) & 0xC0U) != 0x80) return {i, false};
  }
  return {length, true};
}

std::size_t asciiPrefix(std::string_view text) {
  std::size_t i = 0;
  for (std::uint64_t word = 0; i + sizeof word <= text.size(); i += sizeof word) {
    std::memcpy(&word, text.data() + i, sizeof word);
    if ((word & 0x8080808080808080U) != 0) break;
  }
  while (i < text.size() && static_cast<unsigned char>(text[i]) < 0x80) ++i;
  return i;
}

}  // namespace

bool isAscii(std::string_view text) { return asciiPrefix(text) == text.size(); }

std::size_t wellFormedPrefix(std::string_view text) {
  std::size_t i = asciiPrefix(text);
  while (i < text.size()) {
    const Sequence sequence = sequenceAt(text.substr(i));
    if (!sequence.wellFormed) break;
    i += sequence.length;
  }
  return i;
}

std::string repaired(std::string_view text) {
  std::string result;
  result.reserve(text.size() + 2);
  while (!text.empty()) {
    const std::size_t good = wellFormedPrefix(text);
    result.append(text.substr(0, good));
    text.remove_prefix(good);
    if (text.empty()) break;
    result.append("\xEF\xBF\xBD");
    text.remove_prefix(sequenceAt(text).length);
  }
  return result;
}

void appendUtf8(std::string& text, char32_t codePoint) {
  const auto append = [&](char32_t byte) { text.push_back(static_cast<char>(byte)); };
  if (codePoint > 0x10FFFF || (codePoint >= 0xD800 && codePoint <= 0xDFFF)) codePoint = 0xFFFD;
  if (codePoint < 0x80) {
    append(codePoint);
  } else if (codePoint < 0x800) {
    append(0xC0 | codePoint >> 6);
    append(0x80 | (codePoint & 0x3F));
  } else if (codePoint < 0x10000) {
    append(0xE0 | codePoint >> 12);
    append(0x80 | (codePoint >> 6 & 0x3F));
    append(0x80 | (codePoint & 0x3F));
  } else {
    append(0xF0 | codePoint >> 18);
    append(0x80 | (codePoint >> 12 & 0x3F));
    append(0x80 | (codePoint >> 6 & 0x3F));
    append(0x80 | (codePoint & 0x3F));
  }
}

CodePoint firstCodePoint(std::string_view text) {
  const auto byte = [&](std::size_t i) {
    return static_cast<char32_t>(static_cast<unsigned char>(text[i]));
  };
  const char32_t lead = byte(0);
  if (lead < 0x80) return {lead, 1};
  if (lead < 0xE0) return {(lead & 0x1F) << 6 | (byte(1) & 0x3F), 2};
  if (lead < 0xF0) return {(lead & 0x0F) << 12 | (byte(1) & 0x3F) << 6 | (byte(2) & 0x3F), 3};
  return {(lead & 0x07) << 18 | (byte(1) & 0x3F) << 12 | (byte(2) & 0x3F) << 6 | (byte(3) & 0x3F),
          4};
}

}  // namespace ov::detail
