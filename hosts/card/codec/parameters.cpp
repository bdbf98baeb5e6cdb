// Canonical parameters: one spelling for what the versions write differently, so that equal
// parameters are equal texts.

#include "parameters.h"

#include <algorithm>
#include <vector>

#include "ascii.h"
#include "escapes.h"

namespace ov::card {

namespace {

/// Values cannot hold quotes and line breaks themselves.
void appendEncoded(std::string& text, std::string_view value) {
  for (std::size_t i = 0; i < value.size(); ++i) {
    const char c = value[i];
    if (c == '^') {
      text += "^^";
    } else if (c == '"') {
      text += "^'";
    } else if (c == '\n' || c == '\r') {
      text += "^n";
      if (value.substr(i).starts_with("\r\n")) ++i;
    } else if (c != '\0') {
      text += c;
    }
  }
}

bool isSimple(std::string_view value) {
  return !value.empty() && std::all_of(value.begin(), value.end(), [](char c) {
    return isAlphanumeric(c) || std::string_view("-_./+").find(c) != std::string_view::npos;
  });
}

void appendValue(std::string& parameters, std::string_view value) {
  const std::string_view quote = isSimple(value) ? "" : "\"";
  parameters += quote;
  appendEncoded(parameters, value);
  parameters += quote;
}

/// vCard 2.1 writes types without their name, except for those that would then mean something else.
void appendOldType(std::string& parameters, std::string_view type) {
  if (isToken(type) && !isEncodingWord(type)) {
    parameters.append(";").append(upperASCII(type));
  } else {
    appendParameter(parameters, "TYPE", {type});
  }
}

bool isMostPreferred(const Parameter& parameter) {
  return parameter.name == "PREF" && parameter.values.size() == 1 && parameter.values[0] == "1";
}

}  // namespace

void appendParameter(std::string& parameters, std::string_view name,
                     std::initializer_list<std::string_view> values) {
  appendParameter(parameters, {name, {values.begin(), values.size()}});
}

void appendParameter(std::string& parameters, const Parameter& parameter) {
  parameters.append(";").append(parameter.name).append("=");
  bool isFirst = true;
  for (const std::string_view value : parameter.values) {
    if (!isFirst) parameters += ',';
    appendValue(parameters, value);
    isFirst = false;
  }
}

void appendTypes(std::string& parameters, const Parameter& types, bool withPreference) {
  std::vector<std::string_view> words;
  for (const std::string_view value : types.values) {
    for (const std::string_view part : splitValue(value, ',')) {
      const std::string_view word = trim(part);
      if (!word.empty() && (withPreference || !sameWord(word, "PREF"))) words.push_back(word);
    }
  }
  if (!words.empty()) appendParameter(parameters, {types.name, words});
}

std::string canonicalParameters(const Line& line) {
  const Parameter* const preference = line.parameter("PREF");
  const bool isPreferred =
      preference == nullptr ? line.preference() == 1 : isMostPreferred(*preference);
  std::string parameters;
  for (const Parameter& parameter : line.parameters()) {
    if (parameter.name == "TYPE") {
      appendTypes(parameters, parameter, !isPreferred);
    } else {
      appendParameter(parameters, parameter);
    }
  }
  if (isPreferred && preference == nullptr) appendParameter(parameters, "PREF", {"1"});
  return parameters;
}

std::string spelledParameters(std::string_view parameters, Version version) {
  if (parameters.empty() || version == Version::V4_0) return std::string(parameters);
  Arena arena;
  Header header;
  const std::string text = "X" + std::string(parameters);
  HeaderParser(arena).parse(text, header);
  const bool isOld = version == Version::V2_1;
  std::string spelled;
  bool isPreferred = false;
  for (const Parameter& parameter : header.parameters) {
    if (isMostPreferred(parameter)) {
      isPreferred = true;
    } else if (parameter.name == "TYPE" && isOld) {
      for (const std::string_view type : parameter.values) appendOldType(spelled, type);
    } else {
      appendParameter(spelled, parameter);
    }
  }
  if (isPreferred) spelled += isOld ? ";PREF" : ";TYPE=pref";
  if (header.encoding == Encoding::Base64) spelled += isOld ? ";ENCODING=BASE64" : ";ENCODING=b";
  return spelled;
}

std::string withoutEncoding(std::string_view rawParameters) {
  std::string parameters;
  forEachPart(rawParameters, ';', [&](std::string_view part) {
    const std::size_t equals = part.find('=');
    const std::string_view name = trim(part.substr(0, equals));
    if (name.empty() && equals == std::string_view::npos) return;
    const bool tellsEncoding =
        equals == std::string_view::npos
            ? isEncodingWord(name)
            : sameWord(name, "CHARSET") ||
                  (sameWord(name, "ENCODING") && isEncodingValue(part.substr(equals + 1)));
    if (!tellsEncoding) parameters.append(";").append(part);
  });
  return parameters;
}

}  // namespace ov::card
