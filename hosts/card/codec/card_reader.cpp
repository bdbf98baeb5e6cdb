// Splits a text into cards, one at a time. Lines stay views of the text; only a card with lines in
// other character sets is written again, in UTF-8, into memory of its own.

#include "card_reader.h"

#include "ascii.h"
#include "line_writer.h"

namespace ov::card {

namespace {

constexpr std::string_view kGuessed = "bytes that are not valid UTF-8 were read as Windows-1252";

Version versionOf(const Line& line) {
  const std::string_view text = trim(line.text());
  if (text.starts_with('2') || text.starts_with('1')) return Version::V2_1;
  return text.starts_with('4') ? Version::V4_0 : Version::V3_0;
}

bool isUTF8Name(std::string_view charset) {
  return sameWord(charset, "UTF-8") || sameWord(charset, "UTF8");
}

std::string_view between(const char* begin, const char* end) {
  return {begin, static_cast<std::size_t>(end - begin)};
}

const char* endOf(std::string_view text) { return text.data() + text.size(); }

}  // namespace

CardReader::CardReader(std::string_view text, Problems& problems)
    : text_(text),
      hasNUL_(text.find('\0') != std::string_view::npos),
      problems_(problems),
      cursor_(text),
      lineReader_(cursor_, context_, problems) {}

const Card* CardReader::next() {
  card_.reset();
  charsetNames_.clear();
  context_.arena.release();
  if (!findBegin()) return nullptr;
  readCard();
  return &*card_;
}

bool CardReader::findBegin() {
  bool isReported = false;
  for (; !cursor_.atEnd(); cursor_.advance()) {
    if (cursor_.marker() == Marker::Begin) return true;
    if (isReported || cursor_.isEmpty()) continue;
    problems_.error(cursor_.line().number, "this text is outside any card");
    isReported = true;
  }
  return false;
}

void CardReader::readCard() {
  Card& card = card_.emplace(&context_.arena);
  const TextLine& begin = cursor_.line();
  card.number = begin.number;
  card.lineEnd = begin.end.empty() ? "\r\n" : begin.end;
  const char* const start = begin.text.data() + (begin.text.starts_with('\xEF') ? 3 : 0);
  cursor_.advance();

  open_ = 1;
  hasEncoded_ = false;
  isRespelled_ = false;
  readLines();
  endCard();
  card.source = between(start, text_.data() + cursor_.offset());
  if (hasEncoded_) {
    for (Line& line : card.lines) {
      if (line.isEncoded_) decode(line);
    }
  }
  if (isRespelled_) respell();

  rest_.clear();
  if (!card.source.ends_with('\n') && !card.source.ends_with('\r')) rest_ += card.lineEnd;
  for (; open_ > 0; --open_) rest_.append("END:VCARD").append(card.lineEnd);
  card.rest = rest_;
}

void CardReader::readLines() {
  Card& card = *card_;
  context_.version = card.version;
  bool isVersionKnown = false;
  LineReader::Notes notes;
  while (!cursor_.atEnd() && cursor_.marker() == Marker::None) {
    if (cursor_.isEmpty()) {
      cursor_.advance();
      continue;
    }
    Line& line = card.lines.emplace_back();
    const bool isProperty = lineReader_.read(line, notes);
    const bool isPlain = isUTF8(line.source());
    open_ += line.openCards_;
    if (isProperty && line.name() != "VERSION") {
      markEncoded(line, notes, isPlain);
      continue;
    }
    if (isProperty && !isVersionKnown) {
      context_.version = card.version = versionOf(line);
      isVersionKnown = true;
    }
    if (!isPlain) isRespelled_ = true;
    card.lines.pop_back();
  }
}

void CardReader::endCard() {
  if (cursor_.marker() == Marker::End) {
    cursor_.advance();
    --open_;
  } else {
    problems_.error(card_->number, "this card has no END:VCARD; its content was imported anyway");
  }
}

void CardReader::markEncoded(Line& line, const LineReader::Notes& notes, bool isUTF8) {
  const bool hasNUL = hasNUL_ && line.source().find('\0') != std::string_view::npos;
  const bool hasCharset = !notes.charset.empty() && !isUTF8Name(notes.charset);
  if (line.encoding_ != Encoding::QuotedPrintable && !hasCharset && isUTF8 && !hasNUL) return;
  line.isEncoded_ = hasEncoded_ = true;
  line.hasPlainHeader_ = notes.hasPlainHeader;
  if (notes.charset.empty()) return;
  charsetNames_.push_back(notes.charset);
  line.charset_ = static_cast<std::uint32_t>(charsetNames_.size());
}

void CardReader::decode(Line& line) {
  if (!line.isBase64()) {
    const std::string_view charset = line.charset_ == 0 ? "" : charsetNames_[line.charset_ - 1];
    std::string bytes = line.holdsCard_ ? line.nestedCard() : line.bytes();
    if (bytes.find('\0') != std::string::npos) {
      problems_.warning(line.number_, "NUL characters were replaced");
    }
    const std::string text = inUTF8(std::move(bytes), charset, line.number_);
    line.decoded().plain = context_.arena.copy(text);
  }
  if (isUTF8(line.source_)) return;
  const bool hasPlainValue = holdsUTF8(line);
  // Else a fold cuts a character in two.
  line.isRespelled_ = !line.hasPlainHeader_ || !hasPlainValue;
  isRespelled_ = isRespelled_ || line.isRespelled_;
  if (!hasPlainValue) open_ -= line.openCards_;  // its new spelling ends them
  if (line.isRespelled_ && hasPlainValue && context_.version != Version::V2_1) {
    problems_.warning(line.number_, kGuessed);
  }
}

/// Whether the value is in UTF-8, folded or not.
bool CardReader::holdsUTF8(const Line& line) const {
  const std::size_t blanks = context_.version == Version::V2_1 ? 0 : 1;
  return isUTF8(line.raw_) || isUTF8(unfolded(line.raw_, blanks));
}

std::string CardReader::inUTF8(std::string bytes, std::string_view charset, std::size_t line) {
  if (!charset.empty() && !isUTF8Name(charset)) {
    if (auto converted = charsets_.toUTF8(bytes, charset)) {
      if (!converted->exact) {
        problems_.warning(line,
                          "bytes that are not valid " + std::string(charset) + " were replaced");
      }
      return std::move(converted->text);
    }
    problems_.error(line,
                    "the character set " + std::string(charset) + " is unknown and was ignored");
  }
  if (isUTF8(bytes)) return bytes;
  if (context_.version != Version::V2_1 || isUTF8Name(charset)) {
    problems_.warning(line, kGuessed);
  }
  return guessedUTF8(bytes);
}

/// Makes a source in UTF-8 of what is in the text, in exactly as much memory as it takes.
void CardReader::respell() {
  Card& card = *card_;
  const auto eachPiece = [&](const auto& use) {
    const char* at = card.source.data();
    for (Line& line : card.lines) {
      const std::string_view source = line.source_;
      use(guessedUTF8(between(at, source.data())), nullptr);
      use(line.isRespelled_ ? respelled(line) : std::string(source), &line);
      at = endOf(source);
    }
    use(guessedUTF8(between(at, endOf(card.source))), nullptr);
  };
  std::size_t size = 0;
  eachPiece([&](const std::string& piece, const Line* /*line*/) { size += piece.size(); });
  source_.clear();
  source_.reserve(size);
  eachPiece([&](const std::string& piece, Line* line) {
    const std::size_t place = source_.size();
    source_ += piece;
    if (line != nullptr) line->source_ = std::string_view(source_).substr(place);
  });
  card.source = source_;
  card.isRespelled = true;
}

std::string CardReader::respelled(const Line& line) const {
  std::string source;
  if (!holdsUTF8(line)) {
    LineWriter(source, context_.version, card_->lineEnd).lineLike(line, line.value());
    return source;
  }
  if (!line.group_.empty()) source.append(line.group_).append(".");
  source.append(line.name_).append(line.rawParameters_).append(":");
  source += between(line.raw_.data(), endOf(line.source_));
  return source;
}

}  // namespace ov::card
