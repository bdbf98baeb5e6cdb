// The grammar of RFC 3986, rule by rule; nothing else is handed to the desktop.

#include "platform/services/url.h"

#include <arpa/inet.h>

#include <algorithm>
#include <string>

#include "platform/ascii.h"

namespace ov {

namespace {

constexpr std::string_view kSubDelimiters = "!$&'()*+,;=";

bool isHexDigit(char c) {
  return isASCIIDigit(c) || (asciiLower(c) >= 'a' && asciiLower(c) <= 'f');
}
bool isOneOf(std::string_view set, char c) { return set.find(c) != std::string_view::npos; }
bool isPlain(char c) {
  return isASCIILetter(c) || isASCIIDigit(c) || isOneOf("-._~", c) || isOneOf(kSubDelimiters, c);
}

template <class Test>
bool all(std::string_view text, Test test) {
  return std::all_of(text.begin(), text.end(), test);
}

/// Plain characters, those of `more`, and "%" followed by two hexadecimal digits.
bool isEscaped(std::string_view text, std::string_view more) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '%') {
      if (text.size() - i < 3 || !isHexDigit(text[i + 1]) || !isHexDigit(text[i + 2])) return false;
      i += 2;
    } else if (!isPlain(text[i]) && !isOneOf(more, text[i])) {
      return false;
    }
  }
  return true;
}

bool isScheme(std::string_view text) {
  return !text.empty() && isASCIILetter(text.front()) &&
         all(text, [](char c) { return isASCIILetter(c) || isASCIIDigit(c) || isOneOf("+-.", c); });
}

/// What is between the brackets of an address of IPv6 or later.
bool isAddress(std::string_view text) {
  if (text.empty()) return false;
  if (text.front() == 'v' || text.front() == 'V') {
    const auto dot = text.find('.');
    if (dot == std::string_view::npos || dot == 1 || dot + 1 == text.size()) return false;
    return all(text.substr(1, dot - 1), &isHexDigit) &&
           all(text.substr(dot + 1), [](char c) { return isPlain(c) || c == ':'; });
  }
  in6_addr address;
  return inet_pton(AF_INET6, std::string(text).c_str(), &address) == 1;
}

bool isAuthority(std::string_view text) {
  const auto at = text.find('@');
  if (at != std::string_view::npos) {
    if (!isEscaped(text.substr(0, at), ":")) return false;
    text.remove_prefix(at + 1);
  }
  if (text.starts_with('[')) {
    const auto end = text.find(']');
    if (end == std::string_view::npos || !isAddress(text.substr(1, end - 1))) return false;
    const auto port = text.substr(end + 1);
    return port.empty() || (port.front() == ':' && all(port.substr(1), &isASCIIDigit));
  }
  const auto colon = text.find(':');
  if (!isEscaped(text.substr(0, colon), "")) return false;
  return colon == std::string_view::npos || all(text.substr(colon + 1), &isASCIIDigit);
}

/// Cuts `text` before the first of `delimiters`, which begins what is returned.
std::string_view cutBefore(std::string_view& text, std::string_view delimiters) {
  const auto at = std::min(text.find_first_of(delimiters), text.size());
  const auto rest = text.substr(at);
  text = text.substr(0, at);
  return rest;
}

}  // namespace

bool isValidUrl(std::string_view text) {
  const auto colon = text.find(':');
  if (colon == std::string_view::npos || !isScheme(text.substr(0, colon))) return false;

  std::string_view path = text.substr(colon + 1);
  std::string_view query = cutBefore(path, "?#");
  std::string_view fragment = cutBefore(query, "#");
  if (!query.empty()) query.remove_prefix(1);
  if (!fragment.empty()) fragment.remove_prefix(1);

  if (path.starts_with("//")) {
    std::string_view authority = path.substr(2);
    path = cutBefore(authority, "/");
    if (!isAuthority(authority)) return false;
  }
  return isEscaped(path, ":@/") && isEscaped(query, ":@/?") && isEscaped(fragment, ":@/?");
}

}  // namespace ov
