#include <algorithm>
#include <functional>
#include <utility>

#include <OVAddressBookSDK/tag_manager.h>

#include "qt_book_inner.h"

/// Changes of tags.

using ov::qt::BookSteps;
using ov::qt::IDs;
using ov::qt::idsOf;

namespace {

IDs with(IDs tags, const OVString& tag) {
  if (std::find(tags.begin(), tags.end(), tag) == tags.end()) tags.push_back(tag);
  return tags;
}

IDs without(IDs tags, const OVString& tag) {
  tags.erase(std::remove(tags.begin(), tags.end(), tag), tags.end());
  return tags;
}

}  // namespace

/// Gives everybody whose tags `changed` changes the others, as one step.
bool OVQtBook::changeTags(const QString& text, const std::vector<OVString>& personIDs,
                          const std::function<IDs(const IDs&)>& changed) {
  if (!canChange() || !hasTags()) return false;
  BookSteps& steps = inner_->steps;
  BookSteps::TagsOf before;
  BookSteps::TagsOf after;
  for (const OVString& id : personIDs) {
    const IDs tags = steps.tagsOf(id);
    IDs others = changed(tags);
    if (others == tags) continue;
    before.emplace_back(id, tags);
    after.emplace_back(id, std::move(others));
  }
  if (after.empty()) return false;
  inner_->push(
      text, [&steps, after] { steps.setTags(after); }, [&steps, before] { steps.setTags(before); });
  return true;
}

std::vector<OVString> OVQtBook::carriersOf(const OVString& tag) const {
  const auto manager = book()->tagManager();
  const auto carriers = manager == nullptr ? nullptr : manager->personIDsByTag(tag);
  return {carriers.begin(), carriers.end()};
}

bool OVQtBook::addTag(const OVString& tag, const Persons& persons) {
  if (tag.empty()) return false;
  return changeTags(tr("Add Tag"), idsOf(persons),
                    [&](const IDs& tags) { return with(tags, tag); });
}

bool OVQtBook::removeTag(const OVString& tag, const Persons& persons) {
  return changeTags(tr("Remove Tag"), idsOf(persons),
                    [&](const IDs& tags) { return without(tags, tag); });
}

bool OVQtBook::renameTag(const OVString& tag, const OVString& name) {
  if (name.empty()) return false;
  return changeTags(tr("Rename Tag"), carriersOf(tag), [&](IDs tags) {
    if (std::find(tags.begin(), tags.end(), name) != tags.end()) return without(tags, tag);
    std::replace(tags.begin(), tags.end(), tag, name);
    return tags;
  });
}

bool OVQtBook::dropTag(const OVString& tag) {
  return changeTags(tr("Remove Tag"), carriersOf(tag),
                    [&](const IDs& tags) { return without(tags, tag); });
}
