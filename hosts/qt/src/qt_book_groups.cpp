#include <algorithm>
#include <iterator>
#include <memory>

#include "qt_book_inner.h"

/// Changes of groups.

using ov::qt::BookSteps;
using ov::qt::idsOf;

OVRef<IOVGroup> OVQtBook::addGroup(const OVString& name, const OVRef<IOVGroup>& parent) {
  if (!canChange() || name.isNull()) return nullptr;
  BookSteps& steps = inner_->steps;
  const auto made = std::make_shared<ov::qt::RemovedGroup>();
  OVRef<IOVGroup> group = book()->addGroupByName(name);
  if (group == nullptr) return nullptr;
  if (parent != nullptr && !parent->addSubGroup(group)) {
    book()->removeGroup(group);
    return nullptr;
  }
  inner_->push(
      tr("New Group"),
      [this, made, &steps] { made->id.isNull() ? emit groupsChanged() : steps.bringBack(*made); },
      [=, &steps, id = group->ID()] { *made = steps.removeGroup(id); });
  return group;
}

bool OVQtBook::renameGroup(const OVRef<IOVGroup>& group, const OVString& name) {
  if (group == nullptr || !canChange() || name == group->displayName()) return false;
  BookSteps& steps = inner_->steps;
  inner_->push(
      tr("Rename Group"), [=, &steps, id = group->ID()] { steps.rename(id, name); },
      [&steps, id = group->ID(), before = group->displayName()] { steps.rename(id, before); });
  return group->displayName() == name;
}

bool OVQtBook::removeGroup(const OVRef<IOVGroup>& group) {
  if (group == nullptr || !canChange()) return false;
  const auto removed = std::make_shared<ov::qt::RemovedGroup>();
  BookSteps& steps = inner_->steps;
  inner_->push(
      tr("Remove Group"), [=, &steps, id = group->ID()] { *removed = steps.removeGroup(id); },
      [=, &steps] { steps.bringBack(*removed); });
  return !removed->id.isNull();
}

bool OVQtBook::addToGroup(const OVRef<IOVGroup>& group, const Persons& persons) {
  if (group == nullptr || !canChange()) return false;
  const auto members = group->persons();
  Persons joining;
  std::copy_if(persons.begin(), persons.end(), std::back_inserter(joining),
               [&](const auto& person) { return person != nullptr && !members.contains(person); });
  if (joining.empty()) return false;
  BookSteps& steps = inner_->steps;
  inner_->push(
      tr("Add to Group"), [&steps, id = group->ID(), ids = idsOf(joining)] { steps.join(id, ids); },
      [&steps, id = group->ID(), ids = idsOf(joining)] { steps.leave(id, ids); });
  return true;
}

bool OVQtBook::removeFromGroup(const OVRef<IOVGroup>& group, const Persons& persons) {
  if (group == nullptr || !canChange() || persons.empty()) return false;
  BookSteps& steps = inner_->steps;
  inner_->push(
      tr("Remove from Group"),
      [&steps, id = group->ID(), ids = idsOf(persons)] { steps.leave(id, ids); },
      [&steps, id = group->ID(), ids = idsOf(persons)] { steps.join(id, ids); });
  return true;
}
