#include <OVAddressBookSDK/list.h>

#include <stdexcept>
#include <string>
#include <utility>

#include "platform/dispose.h"

namespace ov::detail {

void raiseOutOfRange(std::size_t index, std::size_t size) {
  throw std::out_of_range("OVList: position " + std::to_string(index) + " in a list of " +
                          std::to_string(size));
}

void raisePastTheEnd(const char* what) {
  throw std::out_of_range(std::string(what) + ": nothing is past the end");
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

}  // namespace ov::detail
