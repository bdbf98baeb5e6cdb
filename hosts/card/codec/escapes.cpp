// Escapes of values. Inside the library every value has the canonical form, in which 2.1 and the
// newer versions look alike.

#include "escapes.h"

namespace ov::card {

namespace {

std::string escape(std::string_view text, std::string_view separators) {
  std::string value;
  value.reserve(text.size() + 8);
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '\r' || c == '\n') {
      value += "\\n";
      if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
    } else if (c == '\0') {
      value += "\uFFFD";
    } else {
      if (c == '\\' || separators.find(c) != std::string_view::npos) value += '\\';
      value += c;
    }
  }
  return value;
}

/// What `\c` means, as a canonical value; empty when the backslash is a literal one.
std::string_view quoted(char c, Escaping escaping) {
  switch (c) {
    case '\\':
      return "\\\\";
    case ';':
      return "\\;";
    case ',':
      return "\\,";
    case ':':
      return ":";
    case 'n':
    case 'N':
      return escaping == Escaping::New ? "\\n" : "";
    default:
      return "";
  }
}

}  // namespace

std::string canonicalValue(std::string_view value, Escaping escaping, bool listCommas) {
  std::string canonical;
  canonical.reserve(value.size() + 8);
  const bool quoteCommas = escaping == Escaping::Old && !listCommas;
  for (std::size_t i = 0; i < value.size(); ++i) {
    const char c = value[i];
    if (c == '\\') {
      const std::string_view meaning =
          i + 1 < value.size() ? quoted(value[i + 1], escaping) : std::string_view();
      canonical += meaning.empty() ? "\\\\" : meaning;
      if (!meaning.empty()) ++i;
    } else if (c == '\r' || c == '\n') {
      canonical += "\\n";
      if (c == '\r' && i + 1 < value.size() && value[i + 1] == '\n') ++i;
    } else if (c == '\0') {
      canonical += "\uFFFD";
    } else {
      if (c == ',' && quoteCommas) canonical += '\\';
      canonical += c;
    }
  }
  return canonical;
}

std::string valueOf21(std::string_view value, bool listCommas) {
  constexpr std::string_view kQuotable = "\\;,:";
  std::string old;
  bool isBackslashOpen = false;  // a literal one, so far on its own
  const auto put = [&](char c) {
    if (isBackslashOpen && kQuotable.find(c) != std::string_view::npos) old += '\\';
    isBackslashOpen = false;
    old += c;
  };
  for (std::size_t i = 0; i < value.size(); ++i) {
    const bool isEscaped = value[i] == '\\' && i + 1 < value.size();
    const char c = isEscaped ? value[++i] : value[i];
    if (isEscaped && c == 'n') {
      put('\r');
      put('\n');
    } else if (c == '\\') {
      put(c);
      isBackslashOpen = true;
    } else {
      if (isEscaped && (c == ';' || listCommas)) put('\\');
      put(c);
    }
  }
  return old;
}

std::string escapeText(std::string_view text) { return escape(text, ",;"); }

std::string escapeURI(std::string_view text) { return escape(text, ""); }

std::string unescape(std::string_view value) {
  std::string text;
  text.reserve(value.size());
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (value[i] == '\\' && i + 1 < value.size()) {
      ++i;
      text += value[i] == 'n' ? '\n' : value[i];
    } else {
      text += value[i];
    }
  }
  return text;
}

std::vector<std::string_view> splitValue(std::string_view value, char separator) {
  std::vector<std::string_view> parts;
  std::size_t start = 0;
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (value[i] == '\\') {
      ++i;
    } else if (value[i] == separator) {
      parts.push_back(value.substr(start, i - start));
      start = i + 1;
    }
  }
  parts.push_back(value.substr(start));
  return parts;
}

std::string quoteSeparators(std::string_view value, std::string_view separators) {
  std::string result;
  result.reserve(value.size() + 8);
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (separators.find(value[i]) != std::string_view::npos) result += '\\';
    result += value[i];
    if (value[i] == '\\' && i + 1 < value.size()) result += value[++i];
  }
  return result;
}

}  // namespace ov::card
