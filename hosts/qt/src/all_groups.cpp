#include "all_groups.h"

#include <unordered_set>
#include <utility>

namespace ov::qt {

std::vector<OVRef<IOVGroup>> withAllBelow(const OVList<IOVGroup>& groups) {
  std::vector<OVRef<IOVGroup>> all;
  std::unordered_set<const IOVGroup*> met;
  std::vector<OVRef<IOVGroup>> open;
  const auto addInOrder = [&open](const OVList<IOVGroup>& list) {
    for (std::size_t i = list.size(); i-- > 0;) open.push_back(list[i]);
  };
  addInOrder(groups);
  while (!open.empty()) {
    const OVRef<IOVGroup> group = std::move(open.back());
    open.pop_back();
    if (group == nullptr || !met.insert(group.get()).second) continue;
    all.push_back(group);
    addInOrder(group->subGroups());
  }
  return all;
}

}  // namespace ov::qt
