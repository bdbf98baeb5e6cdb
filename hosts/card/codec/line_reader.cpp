// Reads one property: the header up to the first colon outside quotes, then the value with its
// continuations. Base64, quoted-printable and nested cards each continue in a way of their own.

#include "line_reader.h"

#include <algorithm>

#include "ascii.h"
#include "base64.h"
#include "utf8.h"

namespace ov::card {

namespace {

bool isBase64(std::string_view line) {
  return !line.empty() && std::all_of(line.begin(), line.end(), isBase64Digit);
}

/// Whether the value of an AGENT line says that a card follows, or begins.
struct Agent {
  explicit Agent(std::string_view line) {
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos) return;
    std::string_view name = line.substr(0, line.find(';'));
    name = name.substr(0, colon);
    if (const std::size_t dot = name.rfind('.'); dot != std::string_view::npos) {
      name.remove_prefix(dot + 1);
    }
    if (!sameWord(trim(name), "AGENT")) return;
    const std::string_view value = trim(line.substr(colon + 1));
    cardFollows = value.empty();
    cardBegins = markerOf(value) == Marker::Begin;
  }

  bool cardFollows = false;  // on the next line
  bool cardBegins = false;   // on this line, unless the next one is folded
};

}  // namespace

bool LineReader::read(Line& line, Notes& notes) {
  line = {};
  notes = {};
  line.context_ = &context_;
  line.number_ = cursor_.line().number;
  const char* const begin = cursor_.line().text.data();
  Header header;
  if (!readHeader(header, notes)) {
    takeContinuations();
    line.source_ = textFrom(begin);
    problems_.error(line.number_, "this line is not a valid vCard property");
    return false;
  }
  line.group_ = header.group;
  line.name_ = header.name;
  line.rawParameters_ = header.rawParameters;
  line.parameters_ = header.parameters;
  line.encoding_ = header.encoding;
  notes.charset = header.charset;
  takeValue(line);
  line.raw_ = textFrom(value_);
  line.source_ = {begin, textFrom(begin).size() + last_.end.size()};
  return true;
}

/// Takes the lines of the header.
bool LineReader::readHeader(Header& header, Notes& notes) {
  const TextLine first = cursor_.line();
  const char* const begin = first.text.data();
  ColonFinder finder;
  std::size_t colon = 0;
  do {
    take();
    colon = finder.find(last_.text);
  } while (colon == std::string_view::npos && cursor_.isContinuation());
  const bool quotesPair = colon != std::string_view::npos;
  if (quotesPair) {
    colon += textFrom(begin).size() - last_.text.size();
  } else {
    colon = textFrom(begin).find(':');
    if (colon == std::string_view::npos) return false;
  }

  value_ = begin + colon + 1;
  std::string_view text(begin, colon);
  if (colon > first.text.size()) text = context_.arena.copy(unfolded(text, 1));
  if (quotesPair && finder.sawPlainText()) return parser_.parse(text, header);
  return parseRepaired(first, text, quotesPair, header, notes);
}

/// Parses what is more than plain ASCII.
bool LineReader::parseRepaired(const TextLine& first, std::string_view text, bool quotesPair,
                               Header& header, Notes& notes) {
  notes.hasPlainHeader = isUTF8(text);
  std::string repaired = notes.hasPlainHeader ? std::string(text) : guessedUTF8(text);
  std::size_t erased = std::erase(repaired, '\0');
  if (!quotesPair) erased += std::erase(repaired, '"');
  if (!parser_.parse(context_.arena.copy(repaired), header)) return false;
  if (erased > 0)
    problems_.warning(first.number, "unbalanced quotes or NUL characters were left out");
  return true;
}

void LineReader::takeValue(Line& line) {
  if (line.encoding_ == Encoding::QuotedPrintable) {
    takeQuotedPrintable();
  } else {
    takeContinuations();
  }
  // Some cards say so of an address, too.
  if (line.isBase64() && !takeBase64()) {
    problems_.warning(line.number_, "this value is not valid base64 and was kept as it is");
    line.encoding_ = Encoding::None;
  }
  line.isFolded_ = value_ < last_.text.data();
  if (line.name_ == "AGENT" && line.encoding_ == Encoding::None && !line.isFolded_) {
    takeCard(line);
  }
}

void LineReader::takeContinuations() {
  while (cursor_.isContinuation()) take();
}

void LineReader::takeQuotedPrintable() {
  for (;;) {
    const bool goesOn =
        trimEnd(last_.text).ends_with('=') && !cursor_.atEnd() && cursor_.marker() == Marker::None;
    if (!goesOn && !cursor_.isContinuation()) return;
    take();
  }
}

/// False when the value is not base64. In old cards its lines are not folded.
bool LineReader::takeBase64() {
  const std::string_view text = textFrom(value_);
  const bool is = std::all_of(text.begin(), text.end(), [](char c) {
    return isBase64Digit(c) || isBlank(c) || c == '\r' || c == '\n';
  });
  while (is && !cursor_.atEnd() && isBase64(trim(cursor_.line().text))) take();
  return is;
}

/// Takes the card after AGENT, with those inside it, if there is one.
void LineReader::takeCard(Line& line) {
  const std::string_view value = trim(textFrom(value_));
  const bool follows = value.empty() && cursor_.marker() == Marker::Begin;
  if (!follows && markerOf(value) != Marker::Begin) return;
  if (follows) take();
  bool isExpected = false;
  std::uint32_t open = 1;
  while (open > 0 && !cursor_.atEnd()) {
    if (cursor_.marker() == Marker::Begin && !isExpected) break;
    const Marker marker = cursor_.marker();
    take();
    const Agent agent(marker == Marker::None ? last_.text : std::string_view());
    isExpected = agent.cardFollows;
    if (marker == Marker::End) --open;
    if (marker == Marker::Begin || (agent.cardBegins && !cursor_.isContinuation())) ++open;
  }
  // Folded after the card's end, they would continue the one line that it may be spelled in later.
  takeContinuations();
  line.holdsCard_ = true;
  line.openCards_ = open;
}

void LineReader::take() {
  last_ = cursor_.line();
  cursor_.advance();
}

std::string_view LineReader::textFrom(const char* begin) const {
  const char* const end = last_.text.data() + last_.text.size();
  return {begin, static_cast<std::size_t>(end - begin)};
}

}  // namespace ov::card
