// Takes the header of a line apart: group, name, parameters. Older versions write types and
// encodings as bare words; afterwards all versions look alike.

#include "header.h"

#include <algorithm>
#include <map>
#include <optional>

#include "ascii.h"
#include "quoted_printable.h"
#include "utf8.h"

namespace ov::card {

namespace {

/// Up to this number it is faster to look at each.
constexpr std::size_t kFew = 16;

Encoding encodingOf(std::string_view word) {
  if (sameWord(word, "QUOTED-PRINTABLE")) return Encoding::QuotedPrintable;
  if (sameWord(word, "BASE64")) return Encoding::Base64;
  return Encoding::None;
}

void takeEncoding(std::string_view word, Header& header) {
  if (encodingOf(word) != Encoding::None) header.encoding = encodingOf(word);
}

std::string withoutQuotes(std::string_view text) {
  std::string plain(text);
  std::erase(plain, '"');
  return plain;
}

/// The encoding that a value of ENCODING means.
std::string wordOf(std::string_view value) {
  std::string word = withoutQuotes(trim(value));
  return sameWord(word, "B") ? "BASE64" : word;
}

std::string circumflexDecoded(std::string_view value) {
  std::string decoded;
  for (std::size_t i = 0; i < value.size(); ++i) {
    const char next = value[i] == '^' && i + 1 < value.size() ? value[i + 1] : '\0';
    const bool known = next == 'n' || next == '\'' || next == '^';
    decoded += !known ? value[i] : next == 'n' ? '\n' : next == '\'' ? '"' : '^';
    if (known) ++i;
  }
  return decoded;
}

/// The label in "X-CUSTOM(label)", which may be encoded:
/// "X-CUSTOM(CHARSET=UTF-8,ENCODING=QUOTED-PRINTABLE,=4C=61)". Phones write it for a type.
std::optional<std::string> customLabel(std::string_view parameter) {
  constexpr std::string_view kStart = "X-CUSTOM(";
  constexpr std::string_view kEncoded = "CHARSET=UTF-8,ENCODING=QUOTED-PRINTABLE,";
  if (!startsWithWord(parameter, kStart) || !parameter.ends_with(')')) return std::nullopt;
  const std::string_view label =
      parameter.substr(kStart.size(), parameter.size() - kStart.size() - 1);
  if (!startsWithWord(label, kEncoded)) return std::string(label);
  return guessedUTF8(decodeQuotedPrintable(label.substr(kEncoded.size())));
}

}  // namespace

bool HeaderParser::parse(std::string_view text, Header& header) {
  header = {};
  const std::size_t end = std::min(text.find(';'), text.size());
  header.name = trim(text.substr(0, end));
  header.rawParameters = text.substr(end);
  if (const std::size_t dot = header.name.rfind('.'); dot != std::string_view::npos) {
    header.group = header.name.substr(0, dot);
    header.name.remove_prefix(dot + 1);
  }
  if (!isPropertyName(header.name) || header.group.find('"') != std::string_view::npos)
    return false;
  header.name = arena_.upper(header.name);
  if (header.name == "BEGIN" || header.name == "END") return false;
  if (end == text.size()) return true;

  values_.clear();
  runs_.clear();
  forEachPart(text.substr(end + 1), ';', [&](std::string_view part) {
    if (!trim(part).empty()) takeParameter(trim(part), header);
  });
  joinParameters(header);
  return true;
}

void HeaderParser::takeParameter(std::string_view parameter, Header& header) {
  if (const auto label = customLabel(parameter)) {
    takeValue("X-CUSTOM", arena_.copy(*label));
    return;
  }
  const std::size_t equals = parameter.find('=');
  if (equals == std::string_view::npos) {
    if (isEncodingWord(parameter)) {
      takeEncoding(parameter, header);
    } else {
      takeValues("TYPE", parameter);
    }
    return;
  }
  const std::string_view name = trim(parameter.substr(0, equals));
  const std::string_view value = parameter.substr(equals + 1);
  if (sameWord(name, "CHARSET")) {
    header.charset = arena_.copy(withoutQuotes(trim(value)));
  } else if (sameWord(name, "ENCODING")) {
    if (isEncodingValue(value)) {
      takeEncoding(wordOf(value), header);
    } else {
      takeValues("X-ENCODING", value);
    }
  } else if (isToken(name)) {
    takeValues(arena_.upper(name), value);
  } else {
    takeValues("X-INVALID", parameter);
  }
}

void HeaderParser::takeValue(std::string_view name, std::string_view value) {
  if (runs_.empty() || runs_.back().name != name) runs_.push_back({name, values_.size()});
  values_.push_back(value);
  runs_.back().end = values_.size();
}

void HeaderParser::takeValues(std::string_view name, std::string_view values) {
  forEachPart(values, ',', [&](std::string_view value) { takeValue(name, decoded(value)); });
}

std::string_view HeaderParser::decoded(std::string_view value) {
  value = trim(value);
  if (value.size() > 1 && value.starts_with('"') && value.ends_with('"')) {
    value = value.substr(1, value.size() - 2);
  }
  if (value.find_first_of("\"^") == std::string_view::npos) return value;
  return arena_.copy(circumflexDecoded(withoutQuotes(value)));
}

/// Values of one name come together, where the first of them is.
void HeaderParser::joinParameters(Header& header) {
  if (runs_.empty()) return;
  bool isJoined = true;
  std::map<std::string_view, std::size_t> places;
  for (std::size_t i = 0; i < runs_.size(); ++i) {
    Run& run = runs_[i];
    if (runs_.size() > kFew) {
      run.place = places.try_emplace(run.name, i).first->second;
    } else {
      const auto first = std::find_if(runs_.begin(), runs_.end(),
                                      [&](const Run& other) { return other.name == run.name; });
      run.place = static_cast<std::size_t>(first - runs_.begin());
    }
    isJoined = isJoined && run.place == i;
  }
  if (!isJoined) joinRuns();

  const auto values = arena_.copy(std::span<const std::string_view>(values_));
  parameters_.clear();
  for (const Run& run : runs_) {
    parameters_.push_back({run.name, values.subspan(run.begin, run.end - run.begin)});
  }
  header.parameters = arena_.copy(std::span<const Parameter>(parameters_));
}

void HeaderParser::joinRuns() {
  std::stable_sort(runs_.begin(), runs_.end(),
                   [](const Run& a, const Run& b) { return a.place < b.place; });
  std::vector<std::string_view> values;
  std::vector<Run> joined;
  for (const Run& run : runs_) {
    if (joined.empty() || joined.back().place != run.place) {
      joined.push_back({run.name, values.size(), 0, run.place});
    }
    for (std::size_t i = run.begin; i < run.end; ++i) values.push_back(values_[i]);
    joined.back().end = values.size();
  }
  values_ = std::move(values);
  runs_ = std::move(joined);
}

std::size_t ColonFinder::find(std::string_view line) {
  for (std::size_t i = 0; i < line.size(); ++i) {
    const auto c = static_cast<unsigned char>(line[i]);
    if (c == ':' && !inQuotes_) return i;
    if (c == '"') inQuotes_ = !inQuotes_;
    if (c == 0 || c >= 0x80) sawPlainText_ = false;
  }
  return std::string_view::npos;
}

bool isEncodingValue(std::string_view value) { return isEncodingWord(wordOf(value)); }

bool isEncodingWord(std::string_view word) {
  return encodingOf(word) != Encoding::None || sameWord(word, "7BIT") || sameWord(word, "8BIT");
}

}  // namespace ov::card
