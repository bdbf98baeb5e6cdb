// Says of most cards, in a glance, what reading all their lines would say. In doubt a card is not
// plain: it is then read as any other text.

#include "plain_card.h"

#include <algorithm>
#include <array>

#include "codec/ascii.h"
#include "codec/utf8.h"

namespace ov::eds {

namespace {

constexpr std::string_view kBegin = "BEGIN:VCARD\r\n";
constexpr std::string_view kEnd = "END:VCARD\r\n";

/// Lines that say how the card is to be read, and a photo, which may be the name of a file.
constexpr std::array<std::string_view, 6> kSpecial{"BEGIN", "END",   "VERSION",
                                                   "AGENT", "PHOTO", "X-EVOLUTION-LIST"};

bool isSpecial(std::string_view name) {
  return name.ends_with("KIND") ||
         std::find(kSpecial.begin(), kSpecial.end(), name) != kSpecial.end();
}

bool isNameCharacter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-';
}

/// Such as TYPE=HOME, or X-EVOLUTION-E164=2079460018,"+44", which the service adds.
bool isPlainParameter(std::string_view parameter) {
  const std::size_t equals = parameter.find('=');
  if (equals == std::string_view::npos) return false;
  const std::string_view name = parameter.substr(0, equals);
  if (name == "ENCODING" || name == "CHARSET") return false;
  const std::string_view value = parameter.substr(equals + 1);
  const auto isPlain = [](char c) {
    return ov::card::isAlphanumeric(c) || c == '-' || c == '+' || c == ',' || c == '"';
  };
  return std::all_of(name.begin(), name.end(), isNameCharacter) &&
         std::all_of(value.begin(), value.end(), isPlain) &&
         std::count(value.begin(), value.end(), '"') % 2 == 0;
}

/// The name of the property, without its group; "" when the line is not plain.
std::string_view plainNameOf(std::string_view line) {
  std::string_view header = line.substr(0, line.find(':'));
  if (header.size() == line.size()) return {};
  std::size_t end = header.find(';');
  std::string_view name = header.substr(0, end);
  while (end != std::string_view::npos) {
    header.remove_prefix(end + 1);
    end = header.find(';');
    if (!isPlainParameter(header.substr(0, end))) return {};
  }
  if (const std::size_t dot = name.find('.'); dot != std::string_view::npos) {
    const std::string_view group = name.substr(0, dot);
    if (!std::all_of(group.begin(), group.end(), ov::card::isAlphanumeric)) return {};
    name.remove_prefix(dot + 1);
  }
  return std::all_of(name.begin(), name.end(), isNameCharacter) ? name : std::string_view();
}

/// Takes the line from the text, with its end; "" for one that ends in another way than CR LF.
std::string_view takeLine(std::string_view& text) {
  const std::size_t end = text.find('\n');
  if (end == std::string_view::npos || end == 0 || text.find('\r') != end - 1) return {};
  const std::string_view line = text.substr(0, end - 1);
  text.remove_prefix(end + 1);
  return line;
}

}  // namespace

std::string_view uidOfPlainCard(std::string_view card) {
  if (!card.starts_with(kBegin) || !card.ends_with(kEnd) ||
      card.size() < kBegin.size() + kEnd.size() || !ov::card::isUTF8(card)) {
    return {};
  }
  std::string_view rest = card.substr(kBegin.size(), card.size() - kBegin.size() - kEnd.size());
  if (!rest.starts_with("VERSION:3.0\r\n")) return {};
  takeLine(rest);
  std::string_view uid;
  while (!rest.empty()) {
    const std::string_view line = takeLine(rest);
    if (line.empty()) return {};
    if (line.starts_with(' ')) continue;
    const std::string_view name = plainNameOf(line);
    if (name.empty() || isSpecial(name)) return {};
    if (name != "UID") continue;
    if (!uid.empty() || rest.starts_with(' ')) return {};
    uid = line.substr(line.find(':') + 1);
    if (uid.empty() || uid.find('\\') != std::string_view::npos || ov::card::trim(uid) != uid) {
      return {};
    }
  }
  return uid;
}

}  // namespace ov::eds
