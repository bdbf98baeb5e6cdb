// Groups as cards. Each line has a role: name, ID, member, or other; odd lines are kept by role, so
// that members that are missing now are written again.

#include "group_card.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "codec/ascii.h"
#include "codec/escapes.h"
#include "keyed_hash.h"
#include "line_sink.h"
#include "others.h"

namespace ov::card {

namespace {

constexpr std::string_view kPrefix = "urn:uuid:";

/// The group of the odd lines that name missing members.
constexpr std::string_view kMissing = "missing";

/// The name of a group from the parts of N, for cards without FN.
std::string joinedName(const Line& line) {
  std::string name;
  for (const std::string_view part : splitValue(line.value(), ';')) {
    for (const std::string_view member : splitValue(part, ',')) {
      if (!member.empty()) name.append(name.empty() ? "" : " ").append(unescape(member));
    }
  }
  return name;
}

bool isPlain(const Line& line) { return line.group().empty() && line.parameters().empty(); }

bool isUUID(std::string_view id) {
  constexpr std::string_view kForm = "xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx";
  return std::equal(id.begin(), id.end(), kForm.begin(), kForm.end(), [](char c, char form) {
    const char lower = lowerASCII(c);
    return form == '-' ? c == '-' : isDigit(c) || (lower >= 'a' && lower <= 'f');
  });
}

}  // namespace

std::string_view withoutPrefix(std::string_view id) {
  return startsWithWord(id, kPrefix) ? id.substr(kPrefix.size()) : id;
}

std::string referenceKey(std::string_view id) {
  const std::string_view bare = withoutPrefix(id);
  return bare.size() < id.size() || isUUID(id) ? lowerASCII(bare) : std::string(id);
}

std::string referenceTo(std::string_view id) {
  return (isUUID(id) ? std::string(kPrefix) : std::string()).append(id);
}

GroupReading::GroupReading(const Lines& lines) : name(""), roles(lines.size(), Role::Other) {
  const Line* parts = nullptr;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const Line& line = lines[i];
    const OVString text(trim(line.text()));
    if (line.name() == "UID" && id.isNull()) {
      roles[i] = Role::ID;
      if (!text.empty()) id = text;
    } else if (line.name() == "FN" && name.empty()) {
      roles[i] = Role::Name;
      name = OVString(line.text());
    } else if (line.isNamed("MEMBER")) {
      roles[i] = Role::Member;
      if (!text.empty()) members.push_back({text, &line});
    } else if (saysGroup(line)) {
      roles[i] = Role::Kind;
    } else if (line.name() == "N" && parts == nullptr) {
      parts = &line;
    }
  }
  if (parts == nullptr) return;
  const std::string joined = joinedName(*parts);
  if (name.empty()) name = OVString(joined);
  if (name != joined) return;
  const auto at =
      std::find_if(lines.begin(), lines.end(), [&](const Line& line) { return &line == parts; });
  roles[static_cast<std::size_t>(at - lines.begin())] = Role::Name;
}

OVString oddLinesOf(const Lines& lines, const GroupReading& reading) {
  using Role = GroupReading::Role;
  std::string text;
  LineSink sink(text, Version::V4_0, "\n");
  sink.begin();
  const std::size_t start = text.size();
  // A further name differs from the group's own only next to it.
  bool hasOtherName = false;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    hasOtherName |=
        reading.roles[i] == Role::Other && (lines[i].name() == "FN" || lines[i].name() == "N");
  }
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const Role role = reading.roles[i];
    const bool isOdd = role == Role::Other || (role == Role::Name && hasOtherName) ||
                       (role != Role::ID && !isPlain(lines[i]));
    if (isOdd) sink.writeAlone(lines[i], Preference::Verbatim);
  }
  if (text.size() == start) return nullptr;
  sink.end();
  return {text};
}

OVString oddLinesWithMissing(const OVString& oddLines, const std::vector<OVString>& missing) {
  if (missing.empty()) return oddLines;
  const CardText odd(oddLines.str());
  const GroupReading reading(odd.lines());
  std::unordered_map<std::string, const Line*, KeyedHash, std::equal_to<>> given;
  for (const GroupReading::Member& member : reading.members) {
    given.emplace(member.id.str(), member.line);
  }
  std::string text;
  LineSink sink(text, Version::V4_0, "\n");
  sink.begin();
  std::unordered_set<const Line*> moved;
  for (const OVString& member : missing) {
    const auto at = given.find(member.view());
    const bool isGiven = at != given.end() && moved.insert(at->second).second;
    const std::string parameters =
        isGiven ? parametersOf(*at->second, Preference::Verbatim) : std::string();
    sink.line({kMissing, "MEMBER", parameters}, escapeURI(member));
  }
  for (const Line& line : odd.lines()) {
    if (!moved.contains(&line)) sink.writeAlone(line, Preference::Verbatim);
  }
  sink.end();
  return {text};
}

void writeGroup(const GroupContent& group, std::string& out) {
  using Role = GroupReading::Role;
  const CardText odd(group.oddLines.str());
  const GroupReading reading(odd.lines());
  LineSink sink(out, Version::V4_0, "\r\n");
  const auto writeLike = [&](const Line& line) { sink.writeAlone(line, Preference::Verbatim); };
  /// Writes the odd lines of a role; true when there were any.
  const auto writeRole = [&](Role role) {
    bool isWritten = false;
    for (std::size_t i = 0; i < odd.lines().size(); ++i) {
      if (reading.roles[i] != role) continue;
      writeLike(odd.lines()[i]);
      isWritten = true;
    }
    return isWritten;
  };
  sink.begin();
  if (!group.id.empty()) sink.line({{}, "UID", {}}, escapeText(group.id));
  if (!writeRole(Role::Kind)) sink.line({{}, "KIND", {}}, "group");
  const bool nameHolds = !reading.name.empty() && reading.name == group.name;
  if (!nameHolds || !writeRole(Role::Name)) sink.line({{}, "FN", {}}, escapeText(group.name));
  std::unordered_map<std::string, const Line*, KeyedHash, std::equal_to<>> oddMembers;
  for (const GroupReading::Member& member : reading.members) {
    if (member.line->group() == kMissing) continue;
    oddMembers.emplace(referenceKey(member.id), member.line);
  }
  for (const OVString& member : group.members) {
    const auto at = oddMembers.find(referenceKey(member));
    if (at == oddMembers.end()) {
      sink.line({{}, "MEMBER", {}}, escapeURI(referenceTo(member)));
    } else {
      writeLike(*at->second);
    }
  }
  for (const GroupReading::Member& member : reading.members) {
    if (member.line->group() != kMissing) continue;
    sink.line({{}, "MEMBER", parametersOf(*member.line, Preference::Verbatim)},
              member.line->value());
  }
  writeRole(Role::ID);  // the first of several: the group's own is not an odd line
  writeRole(Role::Other);
  sink.end();
}

}  // namespace ov::card
