// Makes a locale identifier of what the environment says: "de_DE.UTF-8@euro" is "de_DE".

#include "platform/services/locale_identifier.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "platform/ascii.h"

namespace ov {

namespace {

constexpr std::string_view kPosix = "en_US_POSIX";

constexpr std::pair<std::string_view, std::string_view> kScripts[] = {
    {"arabic", "Arab"}, {"cyrillic", "Cyrl"}, {"devanagari", "Deva"},
    {"hans", "Hans"},   {"hant", "Hant"},     {"latin", "Latn"},
};

bool isLetters(std::string_view text, std::size_t shortest, std::size_t longest) {
  return text.size() >= shortest && text.size() <= longest &&
         std::all_of(text.begin(), text.end(), &isASCIILetter);
}

bool isRegion(std::string_view text) {
  return isLetters(text, 2, 2) ||
         (text.size() == 3 && std::all_of(text.begin(), text.end(), &isASCIIDigit));
}

bool isVariant(std::string_view text) {
  const std::size_t shortest = !text.empty() && isASCIIDigit(text.front()) ? 4 : 5;
  return text.size() >= shortest && text.size() <= 8 &&
         std::all_of(text.begin(), text.end(),
                     [](char c) { return isASCIILetter(c) || isASCIIDigit(c); });
}

struct Parts {
  std::string language;
  std::string script;
  std::string region;
};

std::string_view takePiece(std::string_view& text) {
  const auto end = std::min(text.find_first_of("_-"), text.size());
  const auto piece = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return piece;
}

/// Reads language, script and region, of which the last two may be missing, and skips variants that
/// follow. Empty when there is anything else.
std::optional<Parts> partsOf(std::string_view name) {
  Parts parts;
  const auto language = takePiece(name);
  if (!isLetters(language, 2, 8)) return std::nullopt;
  parts.language = asciiLower(language);
  bool hasVariants = false;
  while (!name.empty()) {
    const auto piece = takePiece(name);
    const bool inFront = parts.region.empty() && !hasVariants;
    if (inFront && parts.script.empty() && isLetters(piece, 4, 4)) {
      parts.script = asciiUpper(piece.substr(0, 1)) + asciiLower(piece.substr(1));
    } else if (inFront && isRegion(piece)) {
      parts.region = asciiUpper(piece);
    } else if (isVariant(piece)) {
      hasVariants = true;
    } else {
      return std::nullopt;
    }
  }
  return parts;
}

void apply(std::string_view modifier, Parts& parts) {
  const std::string wanted = asciiLower(modifier);
  for (const auto& [name, script] : kScripts) {
    if (name == wanted && parts.script.empty()) parts.script = script;
  }
}

std::string joined(const Parts& parts) {
  std::string identifier = parts.language;
  if (!parts.script.empty()) identifier += "-" + parts.script;
  if (!parts.region.empty()) identifier += "_" + parts.region;
  return identifier;
}

}  // namespace

std::string localeIdentifierOf(std::string_view posixName) {
  std::string_view modifier;
  if (const auto at = posixName.find('@'); at != std::string_view::npos) {
    modifier = posixName.substr(at + 1);
    posixName = posixName.substr(0, at);
  }
  posixName = posixName.substr(0, posixName.find('.'));
  if (posixName == "C" || posixName == "POSIX" || posixName == kPosix) return std::string(kPosix);
  std::optional<Parts> parts = partsOf(posixName);
  if (!parts) return std::string(kPosix);
  apply(modifier, *parts);
  return joined(*parts);
}

std::string localeIdentifier(const Environment& environment) {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = environment(name);
    if (value != nullptr && *value != '\0') return localeIdentifierOf(value);
  }
  return std::string(kPosix);
}

}  // namespace ov
