#include "card_reader.h"

#include "ascii.h"
#include "line_writer.h"

namespace ov::card {

namespace {

constexpr std::string_view kGuessed = "bytes that are no UTF-8 text were read as Windows-1252";

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
  encoded_.clear();
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
    problems_.error(cursor_.line().number, "this text stands outside of any card");
    isReported = true;
  }
  return false;
}

void CardReader::readCard() {
  Card& card = card_.emplace(context_.arena.resource());
  const TextLine& begin = cursor_.line();
  card.number = begin.number;
  card.lineEnd = begin.end.empty() ? "\r\n" : begin.end;
  const char* const start = begin.text.data() + (begin.text.starts_with('\xEF') ? 3 : 0);
  cursor_.advance();

  open_ = 1;
  isSpelledAnew_ = false;
  readLines();
  endCard();
  card.source = between(start, text_.data() + cursor_.offset());
  for (Encoded& encoded : encoded_) decode(encoded);
  if (isSpelledAnew_) spellAnew();

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
      const bool hasNUL = hasNUL_ && line.source().find('\0') != std::string_view::npos;
      const bool isEncoded = line.encoding_ == Encoding::QuotedPrintable ||
                             !(notes.charset.empty() || isUTF8Name(notes.charset));
      if (isEncoded || !isPlain || hasNUL)
        encoded_.push_back({&line, notes.charset, notes.hasPlainHeader});
      continue;
    }
    if (isProperty && !isVersionKnown) {
      context_.version = card.version = versionOf(line);
      isVersionKnown = true;
    }
    if (!isPlain) isSpelledAnew_ = true;
    card.lines.pop_back();
  }
}

void CardReader::endCard() {
  if (cursor_.marker() == Marker::End) {
    cursor_.advance();
    --open_;
  } else {
    problems_.error(card_->number, "this card has no END:VCARD; what it holds was taken over");
  }
}

void CardReader::decode(Encoded& encoded) {
  Line& line = *encoded.line;
  if (!line.isBase64()) {
    std::string bytes = line.holdsCard_ ? line.nestedCard() : line.bytes();
    if (bytes.find('\0') != std::string::npos) {
      problems_.warning(line.number_, "NUL characters were replaced");
    }
    const std::string text = inUTF8(std::move(bytes), encoded.charset, line.number_);
    line.decoded().plain = context_.arena.copy(text);
  }
  if (isUTF8(line.source_)) return;
  const std::size_t blanks = context_.version == Version::V2_1 ? 0 : 1;
  encoded.hasPlainValue = isUTF8(line.raw_) || isUTF8(unfolded(line.raw_, blanks));
  // Otherwise a fold cuts a character in two.
  encoded.isSpelledAnew = !encoded.hasPlainHeader || !encoded.hasPlainValue;
  isSpelledAnew_ = isSpelledAnew_ || encoded.isSpelledAnew;
  if (encoded.isSpelledAnew && encoded.hasPlainValue && context_.version != Version::V2_1) {
    problems_.warning(line.number_, kGuessed);
  }
}

std::string CardReader::inUTF8(std::string bytes, std::string_view charset, std::size_t line) {
  if (!charset.empty() && !isUTF8Name(charset)) {
    if (auto converted = charsets_.toUTF8(bytes, charset)) {
      if (!converted->exact) {
        problems_.warning(line,
                          "bytes that are no " + std::string(charset) + " text were replaced");
      }
      return std::move(converted->text);
    }
    problems_.error(line, "the character set " + std::string(charset) +
                              " is not known; the text was read without it");
  }
  if (isUTF8(bytes)) return bytes;
  if (context_.version != Version::V2_1 || isUTF8Name(charset)) {
    problems_.warning(line, kGuessed);
  }
  return guessedUTF8(bytes);
}

/// Makes a source in UTF-8 of what stands in the text.
void CardReader::spellAnew() {
  Card& card = *card_;
  source_.clear();
  std::vector<std::size_t> places;  // where each line begins and ends
  auto encoded = encoded_.begin();
  const char* at = card.source.data();
  for (Line& line : card.lines) {
    source_ += guessedUTF8(between(at, line.source_.data()));
    at = endOf(line.source_);
    places.push_back(source_.size());
    const bool isEncoded = encoded != encoded_.end() && encoded->line == &line;
    if (isEncoded && encoded->isSpelledAnew) {
      spellAnew(*encoded);
    } else {
      source_ += line.source_;
    }
    if (isEncoded) ++encoded;
    places.push_back(source_.size());
  }
  source_ += guessedUTF8(between(at, endOf(card.source)));

  card.source = source_;
  card.isSpelledAnew = true;
  auto place = places.begin();
  for (Line& line : card.lines) {
    line.source_ = between(source_.data() + place[0], source_.data() + place[1]);
    place += 2;
  }
}

void CardReader::spellAnew(const Encoded& encoded) {
  const Line& line = *encoded.line;
  if (!encoded.hasPlainValue) {
    LineWriter(source_, context_.version, card_->lineEnd).lineLike(line, line.value());
    open_ -= line.openCards_;  // the value ends them
    return;
  }
  if (!line.group_.empty()) source_.append(line.group_).append(".");
  source_.append(line.name_).append(line.parametersAsTheyStand_).append(":");
  source_ += between(line.raw_.data(), endOf(line.source_));
}

}  // namespace ov::card
