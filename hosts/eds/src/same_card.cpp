#include "same_card.h"

#include <algorithm>
#include <array>
#include <vector>

#include "codec/ascii.h"
#include "mapping/others.h"

namespace ov::eds {

namespace {

using ov::card::CardText;
using ov::card::Line;
using ov::card::Parameter;

constexpr std::array<std::string_view, 6> kOwnLines{"REV",
                                                    "PRODID",
                                                    "X-EVOLUTION-FILE-AS",
                                                    "X-EVOLUTION-WEBDAV-ETAG",
                                                    "X-EVOLUTION-WEBDAV-HREF",
                                                    "X-EVOLUTION-BOOK-UID"};
constexpr std::string_view kOwnParameter = "X-EVOLUTION-E164";

std::string keyOf(const Parameter& parameter) {
  std::string key(parameter.name);
  std::vector<std::string> values;
  for (const std::string_view value : parameter.values) {
    // The words of TYPE mean the same in any case and order.
    values.push_back(parameter.name == "TYPE" ? ov::card::lowerASCII(value) : std::string(value));
  }
  std::sort(values.begin(), values.end());
  for (const std::string& value : values) key.append(1, '\1').append(value);
  return key;
}

std::string keyOf(const Line& line) {
  std::vector<std::string> parameters;
  for (const Parameter& parameter : line.parameters()) {
    if (parameter.name != kOwnParameter) parameters.push_back(keyOf(parameter));
  }
  std::sort(parameters.begin(), parameters.end());
  std::string key(line.group());
  key.append(1, '.').append(line.name());
  for (const std::string& parameter : parameters) key.append(1, '\2').append(parameter);
  return key.append(1, '\3').append(line.value());
}

std::vector<std::string> keysOf(std::string_view card, Photos photos) {
  const CardText text{std::string(card)};
  std::vector<std::string> keys;
  for (const Line& line : text.lines()) {
    const bool isLeftOut =
        isOwnLine(line.name()) || (photos == Photos::Ignored && line.name() == "PHOTO");
    if (!isLeftOut) keys.push_back(keyOf(line));
  }
  std::sort(keys.begin(), keys.end());
  return keys;
}

}  // namespace

bool isOwnLine(std::string_view name) {
  return std::find(kOwnLines.begin(), kOwnLines.end(), name) != kOwnLines.end();
}

bool sayTheSame(std::string_view a, std::string_view b, Photos photos) {
  return a == b || keysOf(a, photos) == keysOf(b, photos);
}

std::string uidOf(std::string_view card) {
  const CardText text{std::string(card)};
  return ov::card::uidOf(text.lines()).str();
}

}  // namespace ov::eds
