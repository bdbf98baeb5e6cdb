#include "book/tag_index.h"

#include <limits>
#include <new>

namespace ov::detail {

namespace {

/// Shorter lists are walked as fast.
constexpr std::size_t kLong = 64;

const ListObject& arrayOf(const OVList<OVString>& list) {
  return static_cast<const ListObject&>(*list.object());
}

}  // namespace

TagIndex::Place TagIndex::find(const Texts& list) {
  const auto at = list == nullptr ? known_.end() : known_.find(list.object().get());
  if (at == known_.end()) return at;
  const ListObject& array = arrayOf(list);
  const bool isAsKnown = array.changes == at->second.changes &&
                         array.replacements == at->second.replacements &&
                         array.replacements != std::numeric_limits<std::uint16_t>::max();
  return isAsKnown ? at : known_.end();
}

TagIndex::Place TagIndex::learn(const Texts& list) {
  const ListObject& array = arrayOf(list);
  Known known{list.object(), array.changes, array.replacements,
              std::make_unique<DictionaryObject>()};
  for (const OVString& text : list) {
    if (!text.isNull()) known.texts->add(text, nullptr);
  }
  return known_.insert_or_assign(&array, std::move(known)).first;
}

bool TagIndex::contains(const Texts& list, const OVString& text) {
  if (text.isNull()) return false;
  if (list.size() < kLong) return list.contains(text);
  auto at = find(list);
  if (at == known_.end()) at = learn(list);
  return at->second.texts->find(text.view()) != nullptr;
}

void TagIndex::push_back(const Texts& list, const OVString& text) {
  const auto at = find(list);
  list.push_back(text);
  if (at == known_.end()) return;
  try {
    at->second.texts->add(text, nullptr);
    at->second.changes = arrayOf(list).changes;
  } catch (const std::bad_alloc&) {
    known_.erase(at);
  }
}

void TagIndex::remove(const Texts& list, const OVString& text) noexcept {
  if (list == nullptr) return;
  const auto at = find(list);
  if (at != known_.end() && at->second.texts->find(text.view()) == nullptr) return;
  list.remove(text);
  if (at == known_.end()) return;
  at->second.texts->erase(text.view());
  at->second.changes = arrayOf(list).changes;
}

}  // namespace ov::detail
