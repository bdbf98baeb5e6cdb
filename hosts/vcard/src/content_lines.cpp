#include "content_lines.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "ascii.h"
#include "base64.h"
#include "charset.h"
#include "escapes.h"
#include "line_header.h"
#include "quoted_printable.h"
#include "unfolder.h"

namespace ov::vcard {

namespace {

bool isVersion21(const CardText& card) {
  for (const CardLine& line : card.lines) {
    if (line.nested || !startsWithWord(line.text, "VERSION")) continue;
    const std::string_view value = trim(line.text.substr(7));
    return value.starts_with(':') && trim(value.substr(1)).starts_with('2');
  }
  return false;
}

/// Some cards say so of an address, too.
bool isBase64(std::string_view value) {
  return std::all_of(value.begin(), value.end(),
                     [](char c) { return isBase64Digit(c) || isBlank(c); });
}

class Decoder {
 public:
  Decoder(const CardText& card, ProblemList& problems)
      : old_(isVersion21(card)), unfolder_(card, old_), problems_(problems) {}

  std::vector<ContentLine> lines() {
    std::vector<ContentLine> lines;
    while (const auto unfolded = unfolder_.next()) {
      if (auto line = decode(*unfolded); line && line->name != "VERSION") {
        lines.push_back(std::move(*line));
      }
    }
    return lines;
  }

 private:
  std::optional<ContentLine> decode(const UnfoldedLine& unfolded) {
    const std::string_view text = unfolded.text;
    const std::size_t colon = endOfHeader(text);
    LineHeader header;
    if (colon == std::string_view::npos ||
        !parseHeader(repairedUTF8(text.substr(0, colon)), header)) {
      problems_.error(unfolded.number, "this line is no property of a vCard");
      return std::nullopt;
    }

    ContentLine line{unfolded.number,
                     std::move(header.group),
                     std::move(header.name),
                     std::move(header.parameters),
                     false,
                     {}};
    const std::string_view value = text.substr(colon + 1);
    if (!unfolded.nestedCard.empty()) {
      const bool begins = sameWord(trim(value), "BEGIN:VCARD");
      line.value = escapeText((begins ? "BEGIN:VCARD\n" : "") + plainText(unfolded.nestedCard));
    } else if (header.encoding == Encoding::Base64 && isBase64(value)) {
      line.base64 = true;
      line.value = value;
      unfolder_.appendBase64(line.value);
      std::erase_if(line.value, isBlank);
    } else {
      const bool quotedPrintable = header.encoding == Encoding::QuotedPrintable;
      const std::string decoded =
          inUTF8(quotedPrintable ? decodeQuotedPrintable(trimEnd(value)) : std::string(value),
                 header.charset, unfolded.number);
      line.value =
          canonicalValue(decoded, old_ ? Escaping::Old : Escaping::New, line.name == "CATEGORIES");
    }
    return line;
  }

  /// For text that names no character set.
  [[nodiscard]] std::string plainText(std::string_view bytes) const {
    return old_ && !isUTF8(bytes) ? latin1ToUTF8(bytes) : repairedUTF8(bytes);
  }

  std::string inUTF8(std::string bytes, const std::string& charset, std::size_t line) {
    if (!charset.empty() && !(sameWord(charset, "UTF-8") && isUTF8(bytes))) {
      if (auto converted = toUTF8(bytes, charset)) {
        if (!converted->exact) {
          problems_.warning(line, "bytes that are no " + charset + " text were replaced");
        }
        return std::move(converted->text);
      }
      problems_.error(line, "the character set " + repairedUTF8(charset) +
                                " is not known; the text was read without it");
    }
    if (isUTF8(bytes)) return bytes;
    if (!old_) problems_.warning(line, "bytes that are no UTF-8 text were replaced");
    return plainText(bytes);
  }

  bool old_;
  Unfolder unfolder_;
  ProblemList& problems_;
};

}  // namespace

std::vector<ContentLine> contentLines(const CardText& card, ProblemList& problems) {
  return Decoder(card, problems).lines();
}

}  // namespace ov::vcard
