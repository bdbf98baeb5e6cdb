#include "group_node.h"

#include <deque>

#include <OVAddressBookSDK/tag_manager.h>

namespace ov::qt {

namespace {

std::unique_ptr<GroupNode> node(OVGroupsModel::Kind kind, const OVString& name = nullptr,
                                const OVRef<IOVGroup>& group = nullptr) {
  auto made = std::make_unique<GroupNode>();
  made->kind = kind;
  made->name = name;
  made->group = group;
  return made;
}

bool isAbove(const GroupNode& node, const OVRef<IOVGroup>& group) {
  for (const GroupNode* at = &node; at != nullptr; at = at->parent) {
    if (at->group == group) return true;
  }
  return false;
}

/// Groups whose sub-groups are still to be added.
struct Level {
  GroupNode* parent;
  OVList<IOVGroup> groups;
  int depth;
};

/// Level by level, so that what is left out of a tree without end is at its bottom.
void addGroups(GroupNode& top, const OVList<IOVGroup>& roots) {
  constexpr int kMaxDepth = 100;
  constexpr std::size_t kMaxRows = 20000;
  std::size_t rows = 0;
  std::deque<Level> open{{&top, roots, 1}};
  for (; !open.empty(); open.pop_front()) {
    const Level level = open.front();
    for (const auto& group : level.groups) {
      if (group == nullptr || isAbove(*level.parent, group)) continue;
      if (++rows > kMaxRows) return;
      GroupNode& row = level.parent->add(node(OVGroupsModel::Group, group->displayName(), group));
      if (level.depth < kMaxDepth) open.push_back({&row, group->subGroups(), level.depth + 1});
    }
  }
}

}  // namespace

std::unique_ptr<GroupNode> groupTreeOf(const OVQtBook& book) {
  auto root = std::make_unique<GroupNode>();
  root->add(node(OVGroupsModel::Everybody));
  addGroups(root->add(node(OVGroupsModel::Groups)), book.book()->rootGroups());
  const auto tags = book.book()->tagManager();
  if (tags == nullptr) return root;
  GroupNode& below = root->add(node(OVGroupsModel::Tags));
  for (std::uint64_t i = 0; i < tags->count(); ++i) {
    below.add(node(OVGroupsModel::Tag, tags->tagAtIndex(i)));
  }
  return root;
}

}  // namespace ov::qt
