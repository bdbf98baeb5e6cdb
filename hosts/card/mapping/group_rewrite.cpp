#include <algorithm>

#include "codec/ascii.h"
#include "codec/escapes.h"
#include "group_card.h"
#include "line_sink.h"
#include "member_lines.h"
#include "patch.h"

namespace ov::card {

namespace {

/// "X-...-MEMBER" where the card says "X-...-KIND".
std::string memberName(const Lines& lines, const GroupReading& reading) {
  if (!reading.members.empty()) return std::string(reading.members.front().line->name());
  for (const Line& line : lines) {
    if (!saysGroup(line)) continue;
    const std::string_view name = line.name();
    return std::string(name.substr(0, name.size() - 4)) + "MEMBER";
  }
  return "MEMBER";
}

}  // namespace

void rewriteGroup(const Card& card, const GroupContent& group, std::string& out) {
  using Role = GroupReading::Role;
  const GroupReading reading(card.lines);
  MemberIDs missing;
  for (const OVString& member : group.members) missing.insert(member.str());
  std::vector<std::string_view> named;
  for (const GroupReading::Member& member : reading.members) named.push_back(member.id);
  const std::vector<bool> stays = linesThatStay(named, missing);

  std::string added;
  LineSink sink(added, card.version, card.lineEnd);
  const std::string name = memberName(card.lines, reading);
  for (const OVString& member : group.members) {
    const auto at = missing.find(member.str());
    if (at == missing.end()) continue;
    missing.erase(at);
    sink.line({{}, name, {}}, escapeURI(referenceTo(member)));
  }

  Patch patch(card);
  std::size_t behindMembers = patch.end();
  std::size_t nameAt = patch.end();
  std::size_t member = 0;
  for (std::size_t i = 0; i < card.lines.size(); ++i) {
    if (reading.roles[i] == Role::Member) {
      behindMembers = i + 1;
      const bool isEmpty = trim(card.lines[i].text()).empty();
      if (!isEmpty && !stays[member++]) patch.drop(i);
    } else if (reading.roles[i] == Role::Name && reading.name != group.name) {
      nameAt = std::min(nameAt, i);
      patch.drop(i);
    }
  }
  if (!added.empty()) patch.insert(behindMembers, added);
  if (reading.name != group.name) {
    added.clear();
    sink.line({{}, "FN", {}}, escapeText(group.name));
    patch.insert(nameAt, added);
  }
  patch.write(out);
}

}  // namespace ov::card
