// The values of a line, decoded when they are first needed. Until then a line is a view of its
// source.

#include "line.h"

#include <algorithm>
#include <charconv>
#include <new>

#include "ascii.h"
#include "base64.h"
#include "escapes.h"
#include "percent.h"
#include "quoted_printable.h"
#include "text_lines.h"

namespace ov::card {

namespace {

/// Calls `use` with each word of TYPE until it returns true; whether it did.
template <class Use>
bool anyType(const Line& line, Use use) {
  const Parameter* const types = line.parameter("TYPE");
  if (types == nullptr) return false;
  for (const std::string_view value : types->values) {
    for (const std::string_view word : splitValue(value, ',')) {
      if (!trim(word).empty() && use(trim(word))) return true;
    }
  }
  return false;
}

std::string withoutBlanks(std::string_view text) {
  std::string digits;
  digits.reserve(text.size());
  std::copy_if(text.begin(), text.end(), std::back_inserter(digits), isBase64Digit);
  return digits;
}

/// What precedes the data of a data URI, the comma included.
struct DataURI {
  explicit DataURI(std::string_view header) {
    if (!startsWithWord(header, "data:")) return;
    const std::string_view media = header.substr(5);
    const std::size_t last = media.rfind(';');
    isBase64 = last != std::string_view::npos && sameWord(trim(media.substr(last + 1)), "base64,");
    mediaType = lowerASCII(trim(media.substr(0, media.find(';'))));
  }

  bool isBase64 = false;
  std::string mediaType;
};

}  // namespace

bool Line::isNamed(std::string_view base) const {
  if (name_ == base) return true;
  return name_.size() > base.size() + 1 && name_.starts_with("X-") && name_.ends_with(base) &&
         name_[name_.size() - base.size() - 1] == '-';
}

const Parameter* Line::parameter(std::string_view name) const {
  const auto at = std::find_if(parameters_.begin(), parameters_.end(),
                               [&](const Parameter& p) { return p.name == name; });
  return at == parameters_.end() ? nullptr : &*at;
}

std::string_view Line::parameterValue(std::string_view name) const {
  const Parameter* const found = parameter(name);
  return found == nullptr ? std::string_view() : found->values.front();
}

std::vector<std::string> Line::types() const {
  std::vector<std::string> types;
  anyType(*this, [&](std::string_view word) {
    if (!sameWord(word, "PREF")) types.push_back(upperASCII(word));
    return false;
  });
  return types;
}

int Line::preference() const {
  const std::string_view digits = trim(parameterValue("PREF"));
  int rank = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), rank);
  if (error == std::errc() && end == digits.data() + digits.size() && rank >= 1) {
    return std::min(rank, kNotPreferred - 1);
  }
  const bool isPreferred =
      anyType(*this, [](std::string_view word) { return sameWord(word, "PREF"); });
  return isPreferred ? 1 : kNotPreferred;
}

std::string_view Line::value() const {
  if (hasPlainValue_) return plain();
  if (decoded_ != nullptr && decoded_->value.data() != nullptr) return decoded_->value;
  if (isBase64()) {
    hasPlainValue_ = std::all_of(raw_.begin(), raw_.end(), isBase64Digit);
    if (hasPlainValue_) return raw_;
    return decoded().value = context_->arena.copy(withoutBlanks(raw_));
  }
  const std::string_view text = plain();
  if (holdsCard_) return decoded().value = context_->arena.copy(escapeText(text));
  const bool isOld = context_->version == Version::V2_1;
  hasPlainValue_ = std::none_of(text.begin(), text.end(), [&](char c) {
    return c == '\\' || c == '\r' || c == '\n' || c == '\0' || (isOld && c == ',');
  });
  if (hasPlainValue_) return text;
  return decoded().value = context_->arena.copy(
             canonicalValue(text, isOld ? Escaping::Old : Escaping::New, name_ == "CATEGORIES"));
}

std::string_view Line::text() const {
  if (hasPlainText_) return value();
  if (decoded_ != nullptr && decoded_->text.data() != nullptr) return decoded_->text;
  const std::string_view escaped = value();
  hasPlainText_ = escaped.find('\\') == std::string_view::npos;
  if (hasPlainText_) return escaped;
  return decoded().text = context_->arena.copy(unescape(escaped));
}

std::optional<Binary> Line::binary() const {
  if (isBase64()) return Binary{decodeBase64(raw_), {}};
  // Photos are large: nothing of the digits is copied before it is decoded.
  const bool isDecoded = decoded_ != nullptr && decoded_->plain.data() != nullptr;
  const std::string_view whole = isDecoded ? decoded_->plain : raw_;
  const std::size_t comma = whole.find(',');
  if (comma == std::string_view::npos) return std::nullopt;
  DataURI uri(unescape(unfolded(whole.substr(0, comma + 1), 1)));
  if (!uri.isBase64) return std::nullopt;
  const std::string_view digits = whole.substr(comma + 1);
  const bool isPercentEncoded = digits.find('%') != std::string_view::npos;
  return Binary{isPercentEncoded ? decodeBase64(percentDecoded(digits)) : decodeBase64(digits),
                std::move(uri.mediaType)};
}

Line::Decoded& Line::decoded() const {
  if (decoded_ == nullptr) {
    decoded_ = new (context_->arena.allocate(sizeof(Decoded), alignof(Decoded))) Decoded;
  }
  return *decoded_;
}

std::string_view Line::plain() const {
  if (decoded_ != nullptr && decoded_->plain.data() != nullptr) return decoded_->plain;
  if (holdsCard_) return decoded().plain = context_->arena.copy(nestedCard());
  if (!isFolded_) return raw_;
  return decoded().plain = context_->arena.copy(bytes());
}

std::string Line::bytes() const {
  const std::size_t blanks = context_->version == Version::V2_1 ? 0 : 1;
  if (encoding_ != Encoding::QuotedPrintable) return unfolded(raw_, blanks);
  std::string joined;
  joined.reserve(raw_.size());
  TextLines lines(raw_);
  TextLine line;
  for (bool isSoft = true; lines.next(line);) {
    if (!isSoft) line.text.remove_prefix(blanks);
    const std::string_view trimmed = trimEnd(line.text);
    isSoft = trimmed.ends_with('=') && !line.end.empty();
    joined += isSoft ? trimmed.substr(0, trimmed.size() - 1) : line.text;
  }
  return decodeQuotedPrintable(trimEnd(joined));
}

std::string Line::nestedCard() const {
  std::string card;
  card.reserve(raw_.size() + 16);
  TextLines lines(raw_);
  TextLine line;
  // After the colon comes the first line of the card, or nothing.
  if (lines.next(line) && !trim(line.text).empty()) card += "BEGIN:VCARD\n";
  while (lines.next(line)) card.append(line.text).append("\n");
  if (raw_.ends_with('\n') || raw_.ends_with('\r')) card += '\n';  // an empty line comes last
  for (std::uint32_t open = openCards_; open > 0; --open) card += "END:VCARD\n";
  return card;
}

}  // namespace ov::card
