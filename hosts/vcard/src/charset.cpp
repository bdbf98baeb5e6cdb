#include "charset.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <cstdint>
#include <memory>

#include <OVAddressBookSDK/text.h>

#include "ascii.h"

namespace ov::vcard {

namespace {

struct CloseConverter {
  void operator()(void* converter) const { iconv_close(converter); }
};
using Converter = std::unique_ptr<void, CloseConverter>;

/// iconv gives a meaning of its own to slashes and commas in names.
bool isCharsetName(std::string_view name) {
  return !name.empty() && name.size() <= 40 && std::all_of(name.begin(), name.end(), [](char c) {
    return isAlphanumeric(c) || c == '-' || c == '_' || c == '.' || c == ':' || c == '+';
  });
}

Converter open(std::string_view charset) {
  if (!isCharsetName(charset)) return nullptr;
  // What iconv_open returns when it fails: (iconv_t)-1.
  static auto* const kFailed = std::bit_cast<void*>(std::intptr_t{-1});
  void* const converter = iconv_open("UTF-8", std::string(charset).c_str());
  return Converter(converter == kFailed ? nullptr : converter);
}

}  // namespace

std::optional<Converted> toUTF8(std::string_view bytes, std::string_view charset) {
  const Converter converter = open(charset);
  if (converter == nullptr) return std::nullopt;

  Converted result;
  std::array<char, 4096> buffer{};
  char* in = const_cast<char*>(bytes.data());  // NOLINT: iconv only reads it
  std::size_t inLeft = bytes.size();
  bool flushed = false;
  while (!flushed) {
    char* out = buffer.data();
    std::size_t outLeft = buffer.size();
    flushed = inLeft == 0;
    const std::size_t status = flushed ? iconv(converter.get(), nullptr, nullptr, &out, &outLeft)
                                       : iconv(converter.get(), &in, &inLeft, &out, &outLeft);
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

bool isUTF8(std::string_view bytes) {
  const bool ascii =
      std::none_of(bytes.begin(), bytes.end(), [](char c) { return (c & '\x80') != 0; });
  return ascii || OVString(bytes).view() == bytes;
}

std::string latin1ToUTF8(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 8);
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80) {
      text += c;
    } else {
      text += static_cast<char>(0xC0 | (byte >> 6));
      text += static_cast<char>(0x80 | (byte & 0x3F));
    }
  }
  return text;
}

std::string repairedUTF8(std::string_view bytes) {
  return isUTF8(bytes) ? std::string(bytes) : OVString(bytes).str();
}

}  // namespace ov::vcard
