#include <OVAddressBookSDK/list.h>

#include <stdexcept>
#include <string>
#include <utility>

#include "platform/dispose.h"

namespace ov::detail {

namespace {

[[noreturn]] void raiseOutOfRange(std::size_t index, std::size_t size) {
  throw std::out_of_range("OVList: position " + std::to_string(index) + " in a list of " +
                          std::to_string(size));
}

}  // namespace

ListElements::~ListElements() {
  for (OVRef<OVObject>& item : items) dispose(std::move(item));
}

void AnyList::clear() {
  const std::vector<OVRef<OVObject>> removed = std::exchange(elements_->items, {});
}

void AnyList::erase(std::size_t index) {
  const OVRef<OVObject> removed = itemAt(index);
  elements_->items.erase(elements_->items.begin() + static_cast<std::ptrdiff_t>(index));
}

const OVRef<OVObject>& AnyList::itemAt(std::size_t index) const {
  if (index >= size()) raiseOutOfRange(index, size());
  return elements_->items[index];
}

OVRef<OVObject>& AnyList::itemAt(std::size_t index) {
  if (index >= size()) raiseOutOfRange(index, size());
  return elements_->items[index];
}

void AnyList::insertItem(std::size_t index, OVRef<OVObject> item) {
  if (item == nullptr) throw std::invalid_argument("OVList: a list takes no null element");
  if (index > size()) raiseOutOfRange(index, size());
  elements_->items.insert(elements_->items.begin() + static_cast<std::ptrdiff_t>(index),
                          std::move(item));
}

}  // namespace ov::detail
