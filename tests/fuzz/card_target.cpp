// Any bytes are cards whose lines, written again verbatim or in any version, say the same.

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "codec/ascii.h"
#include "codec/card_reader.h"
#include "codec/escapes.h"
#include "codec/file_text.h"
#include "codec/line_writer.h"
#include "codec/parameters.h"
#include "codec/utf8.h"
#include "fuzz/finding.h"

namespace {

using ov::card::Card;
using ov::card::CardReader;
using ov::card::Line;
using ov::card::LineWriter;
using ov::card::Version;

class NoProblems final : public ov::card::Problems {
 public:
  void error(std::size_t /*line*/, std::string_view reason) override { check(reason); }
  void warning(std::size_t /*line*/, std::string_view reason) override { check(reason); }

 private:
  static void check(std::string_view reason) {
    expectThat(ov::card::isUTF8(reason), "a message is not text");
  }
};

template <class Use>
void forEachCard(std::string_view text, Use use) {
  NoProblems problems;
  CardReader reader(text, problems);
  while (const Card* const card = reader.next()) use(*card);
  expectThat(reader.offset() == text.size(), "some of the text was not read");
}

std::string described(const Line& line) {
  std::string text(line.group());
  text.append(".").append(line.name()).append(ov::card::canonicalParameters(line));
  return text.append(line.isBase64() ? "=" : ":").append(line.value()).append("\n");
}

std::string described(std::string_view text) {
  std::string all;
  forEachCard(text, [&](const Card& card) {
    for (const Line& line : card.lines) all += described(line);
    all += "--\n";
  });
  return all;
}

void expectParts(const Card& card) {
  const char* at = card.source.data();
  for (const Line& line : card.lines) {
    expectThat(at <= line.source().data(), "lines are in another order");
    at = line.source().data() + line.source().size();
    for (const std::string_view text : {line.group(), line.name(), line.value(), line.text()}) {
      expectThat(ov::card::isUTF8(text), "a part of a line is not text");
    }
  }
  expectThat(at <= card.source.data() + card.source.size(), "a line leaves its card");
}

std::string sourcesOf(std::string_view text) {
  std::string all;
  forEachCard(text, [&](const Card& card) {
    expectParts(card);
    all.append(card.source).append(card.rest);
  });
  return all;
}

/// What a version of vCard cannot tell apart is spelled in one way.
std::string comparable(const Line& line, Version version) {
  if (version == Version::V4_0) return described(line);
  std::vector<std::string> words{std::string(line.group()), std::string(line.name())};
  std::string parameters = ov::card::upperASCII(ov::card::canonicalParameters(line));
  std::ranges::sort(parameters);  // PREF may have moved to the end
  words.push_back(parameters);
  const bool listCommas = version != Version::V2_1 || line.name() == "CATEGORIES";
  words.push_back(listCommas ? std::string(line.value())
                             : ov::card::quoteSeparators(line.value(), ","));
  std::string all;
  for (const std::string& word : words) all += word + "|";
  return all + "\n";
}

std::string written(const Card& card, Version version) {
  std::string out;
  LineWriter writer(out, version, card.lineEnd);
  writer.begin();
  for (const Line& line : card.lines) {
    std::string parameters = ov::card::canonicalParameters(line);
    if (line.isBase64()) parameters += ";ENCODING=b";
    writer.line({line.group(), line.name(), parameters}, line.value());
  }
  writer.end();
  return out;
}

void expectSameInVersion(const Card& card, Version version) {
  const std::string out = written(card, version);
  int count = 0;
  forEachCard(out, [&](const Card& again) {
    ++count;
    expectThat(again.version == version && again.rest.empty(), "what we wrote is another card");
    expectThat(again.lines.size() == card.lines.size(), "another number of lines was written");
    for (std::size_t i = 0; i < card.lines.size(); ++i) {
      expectThat(comparable(again.lines[i], version) == comparable(card.lines[i], version),
                 "a line reads otherwise when it is written again");
    }
    expectThat(written(again, version) == out, "other bytes the second time");
  });
  expectThat(count == 1, "another number of cards was written");
}

void expectSameBytes(const Line& line, Version version) {
  const auto binary = line.binary();
  if (!binary) return;
  std::string out;
  LineWriter writer(out, version);
  writer.begin();
  writer.binary({{}, "PHOTO", {}}, binary->bytes, "image/png");
  writer.end();
  forEachCard(out, [&](const Card& card) {
    expectThat(card.lines.size() == 1, "another number of lines was written for bytes");
    const auto again = card.lines.front().binary();
    expectThat(again && again->bytes == binary->bytes, "other bytes were written");
  });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  NoProblems problems;
  const std::string text =
      ov::card::textOfFile({reinterpret_cast<const char*>(data), size}, problems);
  const std::string sources = sourcesOf(text);
  expectThat(described(sources) == described(text), "the source of a card says something else");
  expectThat(sourcesOf(sources) == sources, "another source the second time");
  forEachCard(text, [](const Card& card) {
    for (const Version version : {Version::V2_1, Version::V3_0, Version::V4_0}) {
      expectSameInVersion(card, version);
      for (const Line& line : card.lines) expectSameBytes(line, version);
    }
  });
  return 0;
}
