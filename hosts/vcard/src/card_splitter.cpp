#include "card_splitter.h"

#include "ascii.h"

namespace ov::vcard {

namespace {

/// True for "BEGIN:VCARD" and "END:VCARD", in any case of letters.
bool isMarker(std::string_view line, std::string_view keyword) {
  if (line.starts_with("\xEF\xBB\xBF")) line.remove_prefix(3);  // files that were joined
  if (!startsWithWord(line, keyword)) return false;
  line = trim(line.substr(keyword.size()));
  return line.starts_with(':') && sameWord(trim(line.substr(1)), "VCARD");
}

/// The value of an AGENT line without folded lines; no value at all for other lines.
struct Agent {
  explicit Agent(std::string_view line) {
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos) return;
    std::string_view name = line.substr(0, line.find(';'));
    name = name.substr(0, colon);
    if (const std::size_t dot = name.find('.'); dot != std::string_view::npos) {
      name.remove_prefix(dot + 1);
    }
    if (!sameWord(trim(name), "AGENT")) return;
    const std::string_view value = trim(line.substr(colon + 1));
    cardFollows = value.empty();
    cardBegins = isMarker(value, "BEGIN");
  }

  bool cardFollows = false;  // on the next line
  bool cardBegins = false;   // on this line, unless the next one is folded
};

}  // namespace

bool CardSplitter::next(CardText& card) {
  card.lines.clear();
  if (!findBegin(card)) return false;
  readCard(card);
  return true;
}

bool CardSplitter::findBegin(CardText& card) {
  if (begin_.number != 0) {
    card.number = std::exchange(begin_, {}).number;
    return true;
  }
  bool reported = false;
  SourceLine line;
  while (reader_.next(line)) {
    if (isMarker(line.text, "BEGIN")) {
      card.number = line.number;
      return true;
    }
    if (!reported && !trim(line.text).empty()) {
      problems_.error(line.number, "this text stands outside of any card");
      reported = true;
    }
  }
  return false;
}

void CardSplitter::readCard(CardText& card) {
  std::size_t depth = 0;
  Agent agent("");
  SourceLine line;
  while (reader_.next(line)) {
    if (agent.cardBegins && !(line.text.starts_with(' ') || line.text.starts_with('\t'))) ++depth;
    if (isMarker(line.text, "END")) {
      if (depth == 0) return;
      card.lines.push_back({line.text, line.number, true});
      --depth;
      agent = Agent("");
      continue;
    }
    if (isMarker(line.text, "BEGIN")) {
      if (!agent.cardFollows) {
        begin_ = line;
        break;
      }
      ++depth;
    }
    card.lines.push_back({line.text, line.number, depth > 0});
    agent = Agent(line.text);
  }
  problems_.error(card.number, "this card has no END:VCARD; what it holds was taken over");
}

}  // namespace ov::vcard
