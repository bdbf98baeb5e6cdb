#include "line_header.h"

#include <algorithm>
#include <vector>

#include "ascii.h"

namespace ov::vcard {

namespace {

/// More than any card needs. Beyond this the parser behind us becomes slow.
constexpr std::size_t kMostParameterValues = 500;

std::vector<std::string_view> splitOutsideQuotes(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  bool inQuotes = false;
  std::size_t start = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '"') inQuotes = !inQuotes;
    if (text[i] == separator && !inQuotes) {
      parts.push_back(text.substr(start, i - start));
      start = i + 1;
    }
  }
  parts.push_back(text.substr(start));
  return parts;
}

std::string withoutQuotes(std::string_view text) {
  std::string plain(trim(text));
  std::erase(plain, '"');
  return plain;
}

/// True when the word speaks of the encoding, which it then sets.
bool takeEncoding(std::string_view word, LineHeader& header) {
  if (sameWord(word, "QUOTED-PRINTABLE")) {
    header.encoding = Encoding::QuotedPrintable;
  } else if (sameWord(word, "BASE64")) {
    header.encoding = Encoding::Base64;
  } else {
    return sameWord(word, "7BIT") || sameWord(word, "8BIT");
  }
  return true;
}

/// Spells the parameter so that nobody can misread it.
void append(std::string_view name, std::string_view values, std::string& parameters) {
  parameters.append(";").append(name).append("=");
  bool first = true;
  for (const std::string_view part : splitOutsideQuotes(values, ',')) {
    const std::string value = withoutQuotes(part);
    parameters.append(first ? "" : ",");
    parameters.append(parameterSpelling(value));
    first = false;
  }
}

void takeParameter(std::string_view parameter, LineHeader& header) {
  const std::size_t equals = parameter.find('=');
  if (equals == std::string_view::npos) {
    if (!takeEncoding(parameter, header)) append("TYPE", parameter, header.parameters);
    return;
  }
  const std::string_view name = trim(parameter.substr(0, equals));
  const std::string_view value = parameter.substr(equals + 1);
  const std::string plain = withoutQuotes(value);
  if (sameWord(name, "CHARSET")) {
    header.charset = plain;
  } else if (!sameWord(name, "ENCODING")) {
    append(isToken(name) ? name : "X-INVALID", isToken(name) ? value : parameter,
           header.parameters);
  } else if (sameWord(plain, "B")) {
    header.encoding = Encoding::Base64;
  } else if (!takeEncoding(plain, header)) {
    append("X-ENCODING", value, header.parameters);
  }
}

bool parse(std::string_view text, LineHeader& header) {
  const std::vector<std::string_view> parts = splitOutsideQuotes(text, ';');
  if (parts.size() + splitOutsideQuotes(text, ',').size() > kMostParameterValues) return false;

  std::string_view name = trim(parts.front());
  if (const std::size_t dot = name.rfind('.'); dot != std::string_view::npos) {
    header.group = name.substr(0, dot);
    name.remove_prefix(dot + 1);
  }
  header.name = upperASCII(name);
  for (std::size_t i = 1; i < parts.size(); ++i) {
    if (const std::string_view part = trim(parts[i]); !part.empty()) takeParameter(part, header);
  }
  return isToken(name) && header.name != "BEGIN" && header.name != "END";
}

}  // namespace

std::string parameterSpelling(std::string_view value) {
  const bool simple = !value.empty() && std::ranges::all_of(value, [](char c) {
    return isAlphanumeric(c) || std::string_view("-_./+").find(c) != std::string_view::npos;
  });
  return simple ? std::string(value) : '"' + std::string(value) + '"';
}

std::size_t endOfHeader(std::string_view line) {
  bool inQuotes = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '"') inQuotes = !inQuotes;
    if (line[i] == ':' && !inQuotes) return i;
  }
  return line.find(':');
}

bool parseHeader(std::string_view text, LineHeader& header) {
  header = {};
  const bool quotesPair = std::count(text.begin(), text.end(), '"') % 2 == 0;
  if (quotesPair && text.find('\0') == std::string_view::npos) return parse(text, header);
  std::string mended(text);
  std::erase(mended, '\0');
  if (!quotesPair) std::erase(mended, '"');
  return parse(mended, header);
}

}  // namespace ov::vcard
