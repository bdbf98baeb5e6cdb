// Writes lines in a card's version: newer names get their older spelling, labels that TYPE cannot
// say become a group with X-ABLABEL.

#include "line_sink.h"

#include <algorithm>
#include <array>
#include <vector>

#include "codec/ascii.h"
#include "codec/escapes.h"
#include "codec/parameters.h"
#include "others.h"

namespace ov::card {

namespace {

/// Names that vCards have had since 4.0, and what was written before.
struct OlderName {
  std::string_view name;
  std::string_view older;
};
constexpr std::array kOlderNames{
    OlderName{"RELATED", "X-ABRELATEDNAMES"},
    OlderName{"ANNIVERSARY", "X-ANNIVERSARY"},
    OlderName{"KIND", "X-ABSHOWAS"},
};

std::string_view olderName(std::string_view name) {
  const auto* const at = std::find_if(kOlderNames.begin(), kOlderNames.end(),
                                      [&](const OlderName& each) { return each.name == name; });
  return at == kOlderNames.end() ? name : at->older;
}

}  // namespace

std::string parametersOf(const Line& line, Preference preference) {
  if (preference == Preference::Verbatim) return canonicalParameters(line);
  std::string parameters;
  bool isRanked = preference == Preference::None;
  const auto appendRank = [&] {
    if (!isRanked) appendParameter(parameters, "PREF", {"1"});
    isRanked = true;
  };
  for (const Parameter& parameter : line.parameters()) {
    if (parameter.name == "PREF") {
      appendRank();
    } else if (parameter.name == "TYPE") {
      appendTypes(parameters, parameter, false);
    } else {
      appendParameter(parameters, parameter);
    }
  }
  appendRank();
  return parameters;
}

void LineSink::reserveGroup(std::string_view group) {
  if (!group.empty()) groups_.insert(lowerASCII(group));
}

std::string LineSink::newGroup() {
  std::string group;
  do {
    group = "item" + std::to_string(++items_);
  } while (groups_.contains(group));
  return group;
}

/// Lines with the same long label share it.
std::string LineSink::groupOfLabel(const LabelSpelling& label, bool& isNew) {
  constexpr std::size_t kLong = 256;
  isNew = true;
  if (label.lineText.size() + label.lineParameters.size() < kLong) return newGroup();
  std::string& group = groupsOfLongLabels_[label.lineParameters + ":" + label.lineText.str()];
  isNew = group.empty();
  if (isNew) group = newGroup();
  return group;
}

void LineSink::write(const Spelling& spelling, Preference preference, std::string_view group) {
  bool isNew = group.empty() && spelling.label.hasLine;
  std::string ownGroup(group);
  if (isNew) ownGroup = groupOfLabel(spelling.label, isNew);
  const bool isOld = version_ != Version::V4_0;
  std::string parameters = isOld && spelling.name == "RELATED" ? "" : spelling.parameters;
  if (preference == Preference::First) parameters += ";PREF=1";
  if (!spelling.label.types.empty()) parameters.append(";TYPE=").append(spelling.label.types);
  const LineHeader header{ownGroup, isOld ? olderName(spelling.name) : spelling.name, parameters};
  if (spelling.bytes != nullptr) {
    writer_.binary(header, spelling.bytes->text(), spelling.mediaType);
  } else {
    writer_.line(header, isOld && spelling.name == "KIND" ? "COMPANY" : spelling.value);
  }
  if (isNew) {
    writer_.line({ownGroup, "X-ABLABEL", spelling.label.lineParameters},
                 escapeText(spelling.label.lineText));
  }
}

void LineSink::writeLike(const Line& line, const LineGroup* group, Preference preference) {
  const bool isFirst = group != nullptr && written_.insert(group).second;
  // The first label of a group is the one that counts.
  if (isFirst && isCompanion(line)) writeCompanions(*group);
  writeAlone(line, preference);
  if (isFirst && !isCompanion(line)) writeCompanions(*group);
}

void LineSink::writeCompanions(const LineGroup& group) {
  if (group.takesLabel && group.label != nullptr) writeAlone(*group.label, Preference::Verbatim);
  if (group.takesCountry && group.country != nullptr) {
    writeAlone(*group.country, Preference::Verbatim);
  }
}

void LineSink::writeAlone(const Line& line, Preference preference) {
  std::string parameters = parametersOf(line, preference);
  if (line.isBase64() && line.name() == "PHOTO" && version_ == Version::V4_0) {
    writer_.line({line.group(), line.name(), parameters}, keptValueOf(line));
    return;
  }
  if (line.isBase64()) parameters += ";ENCODING=b";
  writer_.line({line.group(), line.name(), parameters}, line.value());
}

void LineSink::writeLike(const Line& line, std::string_view bytes, std::string_view mediaType) {
  writer_.binary({line.group(), line.name(), parametersOf(line, Preference::Verbatim)}, bytes,
                 mediaType);
}

}  // namespace ov::card
