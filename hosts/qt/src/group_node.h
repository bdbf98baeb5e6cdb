#pragma once

#include <memory>
#include <vector>

#include <OVAddressBookQt/groups_model.h>

namespace ov::qt {

/// A row of the tree of groups and tags.
struct GroupNode {
  using Nodes = std::vector<std::unique_ptr<GroupNode>>;

  OVGroupsModel::Kind kind = OVGroupsModel::Everybody;
  OVRef<IOVGroup> group;
  OVString name;  // of the group, or the tag
  GroupNode* parent = nullptr;
  Nodes children;

  [[nodiscard]] bool isSame(const GroupNode& other) const {
    if (kind != other.kind) return false;
    return kind == OVGroupsModel::Tag ? name == other.name : group == other.group;
  }
  [[nodiscard]] int row() const {
    int row = 0;
    while (parent->children[static_cast<std::size_t>(row)].get() != this) ++row;
    return row;
  }
  /// Puts a node below this one; `at` is -1 for the end.
  GroupNode& add(std::unique_ptr<GroupNode> node, int at = -1) {
    node->parent = this;
    const auto place = at < 0 ? children.end() : children.begin() + at;
    return **children.insert(place, std::move(node));
  }
};

/// The whole tree of a book, below a node that is not a row.
[[nodiscard]] std::unique_ptr<GroupNode> groupTreeOf(const OVQtBook& book);

}  // namespace ov::qt
