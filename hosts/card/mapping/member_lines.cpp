#include "member_lines.h"

#include <unordered_map>

#include "group_card.h"

namespace ov::card {

std::vector<bool> linesThatStay(const std::vector<std::string_view>& named, MemberIDs& members) {
  std::vector<bool> stays(named.size());
  std::unordered_set<std::string_view, KeyedHash, std::equal_to<>> staying;
  const auto keep = [&](std::size_t i) {
    stays[i] = true;
    staying.insert(named[i]);
  };
  for (const auto spell : {+[](std::string_view id) { return id; }, &withoutPrefix}) {
    for (std::size_t i = 0; i < named.size(); ++i) {
      if (stays[i]) continue;
      const auto at = members.find(spell(named[i]));
      if (at == members.end()) continue;
      members.erase(at);
      keep(i);
    }
  }
  std::unordered_multimap<std::string, std::string, KeyedHash, std::equal_to<>> loose;
  for (const std::string& id : members) loose.emplace(referenceKey(id), id);
  for (std::size_t i = 0; i < named.size(); ++i) {
    if (stays[i]) continue;
    const auto at = loose.find(referenceKey(named[i]));
    if (at == loose.end()) continue;
    members.erase(members.find(at->second));
    loose.erase(at);
    keep(i);
  }
  for (std::size_t i = 0; i < named.size(); ++i) stays[i] = staying.contains(named[i]);
  return stays;
}

}  // namespace ov::card
