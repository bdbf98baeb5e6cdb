#include "group_node.h"

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

void addGroups(GroupNode& parent, const OVList<IOVGroup>& groups) {
  for (const auto& group : groups) {
    if (group == nullptr || isAbove(parent, group)) continue;
    addGroups(parent.add(node(OVGroupsModel::Group, group->displayName(), group)),
              group->subGroups());
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
