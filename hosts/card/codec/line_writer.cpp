#include "line_writer.h"

#include <algorithm>
#include <vector>

#include "ascii.h"
#include "base64.h"
#include "charset.h"
#include "escapes.h"

namespace ov::card {

namespace {

constexpr std::size_t kLongestLine = 75;
constexpr std::size_t kBytesPerStep = 3072;  // whole groups of three
constexpr std::string_view kHexDigits = "0123456789ABCDEF";

/// How many bytes of the text fit into a line without cutting a character in two.
std::size_t fitting(std::string_view text, std::size_t room) {
  if (text.size() <= room) return text.size();
  std::size_t end = room;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) --end;
  return end;
}

/// A canonical value as vCard 2.1 spells it, with line breaks. The backslash quotes no more than it
/// has to.
std::string oldValue(std::string_view value, bool listCommas) {
  constexpr std::string_view kQuotable = "\\;,:";
  std::string old;
  bool isBackslashOpen = false;  // a literal one, so far on its own
  const auto put = [&](char c) {
    if (isBackslashOpen && kQuotable.find(c) != std::string_view::npos) old += '\\';
    isBackslashOpen = false;
    old += c;
  };
  for (std::size_t i = 0; i < value.size(); ++i) {
    const bool isEscaped = value[i] == '\\' && i + 1 < value.size();
    const char c = isEscaped ? value[++i] : value[i];
    if (isEscaped && c == 'n') {
      put('\r');
      put('\n');
    } else if (c == '\\') {
      put(c);
      isBackslashOpen = true;
    } else {
      if (isEscaped && (c == ';' || listCommas)) put('\\');
      put(c);
    }
  }
  return old;
}

/// Whether vCard 2.1 can hold the text only encoded.
bool needsEncoding(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) {
    return static_cast<unsigned char>(c) >= 0x7F ||
           (static_cast<unsigned char>(c) < 0x20 && c != '\t');
  });
}

bool standsAsItIs(char c) { return c >= ' ' && c <= '~' && c != '='; }

/// Behind a soft line break nothing may look like a blank that folds or like END:VCARD.
bool mayBeginLine(char c) { return c != ' ' && upperASCII(c) != 'B' && upperASCII(c) != 'E'; }

/// "PNG" for "image/png"; nothing for types that say nothing.
std::string typeOf(std::string_view mediaType) {
  const std::size_t slash = mediaType.find('/');
  if (slash == std::string_view::npos || mediaType.starts_with("application/octet")) return {};
  return upperASCII(mediaType.substr(slash + 1));
}

/// vCard 2.1 names no types, but for those that would mean something else alone.
void appendOldType(std::string& parameters, std::string_view type) {
  if (isToken(type) && !isEncodingWord(type)) {
    parameters.append(";").append(upperASCII(type));
  } else {
    appendParameter(parameters, "TYPE", {type});
  }
}

void appendWithoutPreference(std::string& parameters, const Parameter& types) {
  std::vector<std::string> kept;
  for (const std::string_view value : types.values) {
    std::string words;
    for (const std::string_view word : splitValue(value, ',')) {
      if (!sameWord(trim(word), "PREF")) words.append(words.empty() ? "" : ",").append(word);
    }
    if (!words.empty()) kept.push_back(std::move(words));
  }
  if (kept.empty()) return;
  const std::vector<std::string_view> values(kept.begin(), kept.end());
  appendParameter(parameters, {types.name, values});
}

}  // namespace

std::string canonicalParameters(const Line& line) {
  const bool isPreferred = line.parameter("PREF") == nullptr && line.preference() == 1;
  std::string parameters;
  for (const Parameter& parameter : line.parameters()) {
    if (isPreferred && parameter.name == "TYPE") {
      appendWithoutPreference(parameters, parameter);
    } else {
      appendParameter(parameters, parameter);
    }
  }
  if (isPreferred) appendParameter(parameters, "PREF", {"1"});
  return parameters;
}

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
  put(withoutEncoding(line.parametersAsTheyStand()));
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
  column_ = 0;
  if (!header.group.empty()) {
    put(header.group);
    put(".");
  }
  put(header.name);
  put(version_ == Version::V4_0 ? header.parameters : spelled(header.parameters));
}

void LineWriter::finish(std::string_view name, std::string_view value) {
  if (version_ != Version::V2_1) {
    put(":");
    put(value);
    endLine();
    return;
  }
  const std::string old = oldValue(value, sameWord(name, "CATEGORIES"));
  if (needsEncoding(old)) {
    quotedPrintable(old);
  } else {
    put(":");
    put(old);
    endLine();
  }
}

void LineWriter::quotedPrintable(std::string_view text) {
  if (!isASCII(text)) put(";CHARSET=UTF-8");
  put(";ENCODING=QUOTED-PRINTABLE:");
  bool isLineStart = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    const bool isLast = i + 1 == text.size();
    if (column_ + 3 > kLongestLine) {
      out_.append("=").append(lineEnd_);
      column_ = 0;
      isLineStart = true;
    }
    const bool isPlain =
        standsAsItIs(c) && !(isLineStart && !mayBeginLine(c)) && !(isLast && c == ' ');
    if (isPlain) {
      out_ += c;
      ++column_;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      out_ += '=';
      out_ += kHexDigits[byte / 16];
      out_ += kHexDigits[byte % 16];
      column_ += 3;
    }
    isLineStart = false;
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
  while (column_ + text.size() > kLongestLine) {
    const std::size_t room = column_ < kLongestLine ? kLongestLine - column_ : 0;
    std::size_t size = fitting(text, room);
    if (size == 0 && column_ == 1) size = room;  // no character at all
    out_.append(text.substr(0, size)).append(lineEnd_).append(" ");
    text.remove_prefix(size);
    column_ = 1;
  }
  out_ += text;
  column_ += text.size();
}

void LineWriter::endLine() {
  out_ += lineEnd_;
  column_ = 0;
}

/// Canonical parameters as this version, which is an older one, spells them.
std::string LineWriter::spelled(std::string_view parameters) const {
  if (parameters.empty()) return {};
  Arena arena;
  Header header;
  const std::string text = "X" + std::string(parameters);
  HeaderParser(arena).parse(text, header);
  const bool isOld = version_ == Version::V2_1;
  std::string spelled;
  bool isPreferred = false;
  for (const Parameter& parameter : header.parameters) {
    if (parameter.name == "PREF" && parameter.values.front() == "1") {
      isPreferred = true;
    } else if (parameter.name == "TYPE" && isOld) {
      for (const std::string_view type : parameter.values) appendOldType(spelled, type);
    } else {
      appendParameter(spelled, parameter);
    }
  }
  if (isPreferred) spelled += isOld ? ";PREF" : ";TYPE=pref";
  if (header.encoding == Encoding::Base64) spelled += isOld ? ";ENCODING=BASE64" : ";ENCODING=b";
  return spelled;
}

}  // namespace ov::card
