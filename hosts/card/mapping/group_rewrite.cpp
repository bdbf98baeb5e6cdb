#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "codec/ascii.h"
#include "codec/escapes.h"
#include "group_card.h"
#include "keyed_hash.h"
#include "line_sink.h"
#include "patch.h"

namespace ov::card {

namespace {

using IDs = std::unordered_multiset<std::string, KeyedHash, std::equal_to<>>;

/// Which of the lines name a member still; takes the members that have a line out of `members`.
std::vector<bool> membersThatStay(const GroupReading& reading, IDs& members) {
  std::vector<bool> stays(reading.members.size());
  const auto take = [&](auto spell) {
    for (std::size_t i = 0; i < stays.size(); ++i) {
      if (stays[i]) continue;
      const auto at = members.find(spell(reading.members[i].id));
      if (at == members.end()) continue;
      members.erase(at);
      stays[i] = true;
    }
  };
  take([](const OVString& id) { return id.str(); });
  take([](const OVString& id) { return std::string(withoutPrefix(id)); });
  std::unordered_multimap<std::string, std::string, KeyedHash, std::equal_to<>> loose;
  for (const std::string& id : members) loose.emplace(referenceKey(id), id);
  for (std::size_t i = 0; i < stays.size(); ++i) {
    if (stays[i]) continue;
    const auto at = loose.find(referenceKey(reading.members[i].id));
    if (at == loose.end()) continue;
    members.erase(members.find(at->second));
    loose.erase(at);
    stays[i] = true;
  }
  return stays;
}

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
  IDs missing;
  for (const OVString& member : group.members) missing.insert(member.str());
  const std::vector<bool> stays = membersThatStay(reading, missing);

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
