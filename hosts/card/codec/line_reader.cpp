#include "line_reader.h"

#include <algorithm>

#include "ascii.h"
#include "base64.h"
#include "charset.h"

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
  const std::size_t size = readHeader();
  Header header;
  if (size == std::string_view::npos || !parseHeader({begin, size}, line.number_, header, notes)) {
    takeContinuations();
    line.source_ = textFrom(begin);
    problems_.error(line.number_, "this line is no property of a vCard");
    return false;
  }
  line.group_ = header.group;
  line.name_ = header.name;
  line.parametersAsTheyStand_ = header.parametersAsTheyStand;
  line.parameters_ = header.parameters;
  line.encoding_ = header.encoding;
  notes.charset = header.charset;

  const char* const value = begin + size + 1;
  if (header.encoding == Encoding::QuotedPrintable) {
    takeQuotedPrintable();
  } else {
    takeContinuations();
  }
  // Some cards say so of an address, too.
  if (line.isBase64() && !takeBase64(value)) line.encoding_ = Encoding::None;
  line.isFolded_ = value < last_.text.data();
  if (line.name_ == "AGENT" && line.encoding_ == Encoding::None && !line.isFolded_) {
    takeCard(line, trim(textFrom(value)));
  }
  line.raw_ = textFrom(value);
  line.source_ = {begin, textFrom(begin).size() + last_.end.size()};
  return true;
}

/// Takes the lines of the header. Its size, up to the colon; `npos` when there is no colon.
std::size_t LineReader::readHeader() {
  const char* const begin = cursor_.line().text.data();
  bool inQuotes = false;
  do {
    take();
    const std::size_t colon = findColon(last_.text, inQuotes);
    if (colon != std::string_view::npos) return textFrom(begin).size() - last_.text.size() + colon;
  } while (cursor_.isContinuation());
  return textFrom(begin).find(':');  // the quotes do not pair
}

bool LineReader::parseHeader(std::string_view text, std::size_t line, Header& header,
                             Notes& notes) {
  if (last_.number != line) text = context_.arena.copy(unfolded(text, 1));
  const bool isCommon = isASCII(text) && text.find('\0') == std::string_view::npos;
  const auto quotes = std::count(text.begin(), text.end(), '"');
  if (isCommon && quotes % 2 == 0) return parser_.parse(text, header);

  notes.hasPlainHeader = isUTF8(text);
  std::string mended = notes.hasPlainHeader ? std::string(text) : guessedUTF8(text);
  const std::size_t erased =
      std::erase(mended, '\0') + (quotes % 2 == 0 ? 0 : std::erase(mended, '"'));
  if (!parser_.parse(context_.arena.copy(mended), header)) return false;
  if (erased > 0) problems_.warning(line, "quotes without a partner, or NUL, were left out");
  return true;
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

/// False when the value is no base64. In old cards its lines are not folded.
bool LineReader::takeBase64(const char* value) {
  const std::string_view text = textFrom(value);
  const bool is = std::all_of(text.begin(), text.end(), [](char c) {
    return isBase64Digit(c) || isBlank(c) || c == '\r' || c == '\n';
  });
  while (is && !cursor_.atEnd() && isBase64(trim(cursor_.line().text))) take();
  return is;
}

/// Takes the card behind AGENT, with those inside it, if there is one.
void LineReader::takeCard(Line& line, std::string_view value) {
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
