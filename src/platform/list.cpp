#include <OVAddressBookSDK/list.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "platform/dispose.h"

namespace ov::detail {

void raiseOutOfRange(std::size_t index, std::size_t size) {
  throw std::out_of_range("OVList: position " + std::to_string(index) + " in a list of " +
                          std::to_string(size));
}

void raisePastTheEnd(const char* what) {
  throw std::out_of_range(std::string(what) + ": there is no element past the end");
}

void raiseChangedInWalk(const char* what) {
  throw std::logic_error(std::string(what) +
                         ": changed while a program walked through it; walk through a copy");
}

void raiseNullChanged(const char* what) {
  throw std::logic_error(std::string(what) + ": null cannot be changed; make an empty one first");
}

ListObject::~ListObject() {
  for (OVRef<OVObject>& item : items) dispose(std::move(item));
}

void ListObject::insert(std::size_t index, OVRef<OVObject> item) {
  if (item == nullptr) throw std::invalid_argument("OVList: a list takes no null element");
  if (index > items.size()) raiseOutOfRange(index, items.size());
  items.insert(items.begin() + static_cast<std::ptrdiff_t>(index), std::move(item));
  ++changes;
}

void ListObject::set(std::size_t index, OVRef<OVObject> item) {
  if (item == nullptr) throw std::invalid_argument("OVList: a list takes no null element");
  if (index >= items.size()) raiseOutOfRange(index, items.size());
  items[index].swap(item);
  if (replacements < std::numeric_limits<std::uint16_t>::max()) ++replacements;
}

void ListObject::erase(std::size_t index) {
  if (index >= items.size()) raiseOutOfRange(index, items.size());
  const OVRef<OVObject> removed = items[index];
  items.erase(items.begin() + static_cast<std::ptrdiff_t>(index));
  ++changes;
}

void ListObject::clear() {
  const std::vector<OVRef<OVObject>> removed = std::exchange(items, {});
  ++changes;
}

std::size_t ListObject::positionOf(const OVStringView& text) const {
  if (text.isNull()) return items.size();
  const std::string_view wanted = text.view();
  const auto isEqual = [wanted](const OVRef<OVObject>& item) {
    const TextObject* found = TextObject::of(item.get());
    if (found == nullptr || found->size() != wanted.size()) return false;
    if (wanted.empty()) return true;
    // Identifiers in particular have much in common in front.
    return found->data()[wanted.size() - 1] == wanted.back() &&
           std::memcmp(found->data(), wanted.data(), wanted.size()) == 0;
  };
  return static_cast<std::size_t>(std::ranges::find_if(items, isEqual) - items.begin());
}

}  // namespace ov::detail
