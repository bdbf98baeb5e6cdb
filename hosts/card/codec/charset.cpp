#include "charset.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <cstdint>

#include "ascii.h"
#include "utf8.h"

namespace ov::card {

namespace {

/// iconv interprets slashes and commas in names.
bool isCharsetName(std::string_view name) {
  return !name.empty() && name.size() <= 40 && std::all_of(name.begin(), name.end(), [](char c) {
    return isAlphanumeric(c) || std::string_view("-_.:+").find(c) != std::string_view::npos;
  });
}

bool isNearlyWindows1252(std::string_view name) {
  constexpr std::array<std::string_view, 6> kNames{"ISO-8859-1",   "ISO8859-1", "ISO_8859-1",
                                                   "WINDOWS-1252", "CP1252",    "LATIN1"};
  return std::any_of(kNames.begin(), kNames.end(),
                     [&](std::string_view known) { return sameWord(known, name); });
}

/// Null when there is no such character set.
void* openConverter(std::string_view charset) {
  if (!isCharsetName(charset)) return nullptr;
  // What iconv_open returns when it fails: (iconv_t)-1.
  static auto* const kFailed = std::bit_cast<void*>(std::intptr_t{-1});
  void* const converter = iconv_open("UTF-8", std::string(charset).c_str());
  return converter == kFailed ? nullptr : converter;
}

Converted convert(iconv_t converter, std::string_view bytes) {
  Converted result;
  std::array<char, 4096> buffer;  // NOLINT(cppcoreguidelines-pro-type-member-init): written first
  char* in = const_cast<char*>(bytes.data());  // NOLINT: iconv only reads it
  std::size_t inLeft = bytes.size();
  iconv(converter, nullptr, nullptr, nullptr, nullptr);
  bool flushed = false;
  while (!flushed) {
    char* out = buffer.data();
    std::size_t outLeft = buffer.size();
    flushed = inLeft == 0;
    const std::size_t status = flushed ? iconv(converter, nullptr, nullptr, &out, &outLeft)
                                       : iconv(converter, &in, &inLeft, &out, &outLeft);
    const int error = status == static_cast<std::size_t>(-1) ? errno : 0;
    result.text.append(buffer.data(), buffer.size() - outLeft);
    if (error != 0 && error != E2BIG && inLeft > 0) {
      result.text += "\uFFFD";
      result.exact = false;
      ++in;
      --inLeft;
    }
  }
  return result;
}

}  // namespace

void* Charsets::converterFor(std::string_view charset) {
  std::string name = upperASCII(charset);
  auto at = converters_.find(name);
  if (at == converters_.end()) {
    Converter converter(openConverter(charset));
    if (converter == nullptr) return nullptr;
    at = converters_.emplace(std::move(name), std::move(converter)).first;
  }
  return at->second.get();
}

void Charsets::Close::operator()(void* converter) const { iconv_close(converter); }

std::optional<Converted> Charsets::toUTF8(std::string_view bytes, std::string_view charset) {
  if (sameWord(charset, "UTF-8") && isUTF8(bytes)) return Converted{std::string(bytes), true};
  if (isNearlyWindows1252(charset)) return Converted{windows1252ToUTF8(bytes), true};
  void* const converter = converterFor(charset);
  if (converter == nullptr) return std::nullopt;
  return convert(converter, bytes);
}

}  // namespace ov::card
