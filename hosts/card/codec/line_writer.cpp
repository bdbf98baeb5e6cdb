// Writes lines in each version of vCard: folding, types, encoding and escapes differ, the canonical
// value that callers give does not.

#include "line_writer.h"

#include <algorithm>

#include "ascii.h"
#include "base64.h"
#include "escapes.h"
#include "parameters.h"
#include "quoted_printable.h"
#include "text_lines.h"
#include "utf8.h"

namespace ov::card {

namespace {

constexpr std::size_t kLongestLine = 75;
constexpr std::size_t kBytesPerStep = 3072;  // whole groups of three

/// How many bytes of the text fit into a line without cutting a character in two.
std::size_t fitting(std::string_view text, std::size_t room) {
  if (text.size() <= room) return text.size();
  std::size_t end = room;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) --end;
  return end;
}

/// Whether vCard 2.1 can hold the text only encoded.
bool needsEncoding(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) {
    return static_cast<unsigned char>(c) >= 0x7F ||
           (static_cast<unsigned char>(c) < 0x20 && c != '\t');
  });
}

/// "PNG" for "image/png"; nothing for types that say nothing.
std::string typeOf(std::string_view mediaType) {
  const std::size_t slash = mediaType.find('/');
  if (slash == std::string_view::npos || mediaType.starts_with("application/octet")) return {};
  return upperASCII(mediaType.substr(slash + 1));
}

}  // namespace

void LineWriter::begin() {
  const std::string_view version = version_ == Version::V2_1   ? "2.1"
                                   : version_ == Version::V3_0 ? "3.0"
                                                               : "4.0";
  out_.append("BEGIN:VCARD").append(lineEnd_).append("VERSION:").append(version).append(lineEnd_);
}

void LineWriter::end() { out_.append("END:VCARD").append(lineEnd_); }

void LineWriter::line(const LineHeader& header, std::string_view value) {
  start(header);
  finish(header.name, value);
}

void LineWriter::lineLike(const Line& line, std::string_view value) {
  start({line.group(), line.name(), {}});
  put(withoutEncoding(line.rawParameters()));
  finish(line.name(), value);
}

void LineWriter::binary(const LineHeader& header, std::string_view bytes,
                        std::string_view mediaType) {
  if (mediaType.empty()) mediaType = "application/octet-stream";
  start(header);
  if (version_ == Version::V4_0) {
    put(":data:");
    put(mediaType);
    put(";base64,");
  } else {
    const bool isOld = version_ == Version::V2_1;
    const std::string type = typeOf(mediaType);
    const bool hasType = header.parameters.find(";TYPE=") != std::string_view::npos;
    put(isOld ? ";ENCODING=BASE64" : ";ENCODING=b");
    if (!type.empty() && !hasType) put(";TYPE=" + type);
    put(":");
  }
  for (std::size_t at = 0; at < bytes.size(); at += kBytesPerStep) {
    fold(encodeBase64(bytes.substr(at, kBytesPerStep)));
  }
  endLine();
  if (version_ == Version::V2_1) endLine();
}

void LineWriter::start(const LineHeader& header) {
  const std::size_t begin = out_.size();
  if (!header.group.empty()) out_.append(header.group).append(".");
  out_.append(header.name);
  column_ = out_.size() - begin;
  isNameAlone_ = true;
  put(version_ == Version::V4_0 ? header.parameters
                                : spelledParameters(header.parameters, version_));
}

void LineWriter::finish(std::string_view name, std::string_view value) {
  // Unless it is folded or encoded, it would be the beginning of a card.
  const bool isMarker = sameWord(name, "AGENT") && markerOf(trim(value)) == Marker::Begin;
  if (version_ != Version::V2_1) {
    put(":");
    if (isMarker) column_ = kLongestLine;
    put(value);
    endLine();
    return;
  }
  const std::string old = valueOf21(value, sameWord(name, "CATEGORIES"));
  if (isMarker || needsEncoding(old)) {
    if (!isASCII(old)) put(";CHARSET=UTF-8");
    put(";ENCODING=QUOTED-PRINTABLE:");
    appendQuotedPrintable(out_, old, column_, lineEnd_);
  } else {
    put(":");
    put(old);
  }
  endLine();
}

/// Text is folded, but not in vCard 2.1, where the blank would become part of it.
void LineWriter::put(std::string_view text) {
  if (version_ != Version::V2_1) return fold(text);
  out_ += text;
  column_ += text.size();
}

void LineWriter::fold(std::string_view text) {
  while (!text.empty() && column_ + text.size() > kLongestLine) {
    const std::size_t room = column_ < kLongestLine ? kLongestLine - column_ : 0;
    std::size_t size = fitting(text, room);
    // Alone on its line, a name may be taken for base64 that goes on; its separator is none.
    if (size == 0 && isNameAlone_) size = 1;
    isNameAlone_ = false;
    if (size == 0 && column_ == 1) size = room;  // no character at all
    out_.append(text.substr(0, size)).append(lineEnd_).append(" ");
    text.remove_prefix(size);
    column_ = 1;
  }
  out_ += text;
  column_ += text.size();
  if (!text.empty()) isNameAlone_ = false;
}

void LineWriter::endLine() {
  out_ += lineEnd_;
  column_ = 0;
}

}  // namespace ov::card
