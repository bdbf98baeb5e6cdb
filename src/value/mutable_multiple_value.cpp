// The main value is a reference, not a position: it may be outside the list. Archives store its
// position, so it is looked up when saving.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>
#include <OVAddressBookSDK/multiple_value.h>

#include "platform/dispose.h"
#include "platform/maker.h"

namespace {

constexpr std::string_view kElementsKey = "valueArray";
constexpr std::string_view kMainIndexKey = "mainValueIndex";

bool hasDatum(const OVRef<OVSingleValue>& value) {
  return value != nullptr && value->value() != nullptr;
}

}  // namespace

OVRef<OVMutableMultipleValue> OVMutableMultipleValue::init() {
  return ov::detail::Maker::make<OVMutableMultipleValue>();
}

OVRef<OVMutableMultipleValue> OVMutableMultipleValue::mutableMultipleValueWithOther(
    const OVRef<OVMultipleValue>& other) {
  return other == nullptr ? nullptr : other->mutableCopy();
}

OVMutableMultipleValue::~OVMutableMultipleValue() {
  for (OVRef<OVObject>& element : elements_) ov::detail::dispose(std::move(element));
  ov::detail::dispose(mainValue_.take());
}

OVValueType OVMutableMultipleValue::subType() const {
  const auto main = mainValue();
  return main == nullptr ? OVValueTypeString : main->type();
}

std::uint64_t OVMutableMultipleValue::count() const { return hasList_ ? elements_.size() : 0; }

OVRef<OVSingleValue> OVMutableMultipleValue::mainValue() const {
  return ov::cast<OVSingleValue>(mainValue_.load());
}

OVRef<OVSingleValue> OVMutableMultipleValue::valueAtIndex(std::uint64_t index) const {
  if (index >= count()) return nullptr;
  return ov::cast<OVSingleValue>(elements_[static_cast<std::size_t>(index)]);
}

std::uint64_t OVMutableMultipleValue::indexOfValue(const OVRef<OVSingleValue>& value) const {
  if (value == nullptr) return OVNotFound;
  if (!hasList_) return 0;
  const auto at = std::ranges::find(elements_, OVRef<OVObject>(value));
  return at == elements_.end() ? OVNotFound
                               : static_cast<std::uint64_t>(std::distance(elements_.begin(), at));
}

OVList<OVString> OVMutableMultipleValue::allLabelName() const {
  auto names = OVList<OVString>::list();
  for (std::uint64_t i = 0; i < count(); ++i) {
    const auto element = valueAtIndex(i);
    const auto label = element == nullptr ? nullptr : element->label();
    const auto name = label == nullptr ? OVString() : label->displayName();
    if (name.isNull()) {
      throw std::invalid_argument("OVMutableMultipleValue: element " + std::to_string(i) +
                                  " has no label with a display name");
    }
    names.push_back(name);
  }
  return names;
}

void OVMutableMultipleValue::addValue(const OVRef<OVSingleValue>& value) {
  if (!hasDatum(value)) return;
  const auto main = mainValue();
  if (main != nullptr && main->type() != value->type()) return;
  if (hasList_) elements_.push_back(value);
  if (main == nullptr) setMainValue(value);
}

void OVMutableMultipleValue::setMainValue(const OVRef<OVSingleValue>& value) {
  mainValue_.store(value);
}

void OVMutableMultipleValue::replaceValueForIndex(const OVRef<OVSingleValue>& value,
                                                  std::uint64_t index) {
  if (!hasDatum(value) || index >= count()) return;
  OVRef<OVObject>& element = elements_[static_cast<std::size_t>(index)];
  if (isMain(element)) setMainValue(value);
  element = value;
}

void OVMutableMultipleValue::replaceValueForOriginal(const OVRef<OVSingleValue>& value,
                                                     const OVRef<OVSingleValue>& original) {
  replaceValueForIndex(value, indexOfValue(original));
}

void OVMutableMultipleValue::removeValue(const OVRef<OVSingleValue>& value) {
  if (value == nullptr || !hasList_) return;
  const OVRef<OVObject> removed = value;
  if (std::erase(elements_, removed) == 0) return;
  if (isMain(removed)) mainValue_.store(elements_.empty() ? nullptr : elements_.front());
}

bool OVMutableMultipleValue::isMain(const OVRef<OVObject>& element) const {
  return element != nullptr && element == mainValue_.load();
}

void OVMutableMultipleValue::removeValueAtIndex(std::uint64_t index) {
  removeValue(valueAtIndex(index));
}

const OVClass& OVMutableMultipleValue::archivedClass() {
  static const OVClass record{"OVMutableMultipleValue", &OVMultipleValue::archivedClass(),
                              &ov::detail::Maker::empty<OVMutableMultipleValue>};
  return record;
}

const OVClass* OVMutableMultipleValue::classForCoder() const { return &archivedClass(); }

void OVMutableMultipleValue::encodeWithCoder(OVKeyedArchiver& coder) const {
  if (elements_.empty()) return;
  if (!hasList_) return coder.encodeObjectForKey(elements_.front(), kElementsKey);
  coder.encodeListForKey(elements_, kElementsKey);
  const auto main = std::ranges::find(elements_, mainValue_.load());
  if (main == elements_.end() || *main == nullptr) return;
  coder.encodeIntegerForKey(main - elements_.begin(), kMainIndexKey);
}

void OVMutableMultipleValue::initWithCoder(OVKeyedUnarchiver& coder) {
  OVMultipleValue::initWithCoder(coder);
  elements_.clear();
  mainValue_.place(nullptr);
  hasList_ = coder.decodeListForKey(elements_, kElementsKey);
  if (!hasList_) {
    if (auto other = coder.decodeObjectForKey(kElementsKey)) elements_.push_back(std::move(other));
  }
  if (count() == 0) return;
  const std::int64_t index = coder.decodeIntegerForKey(kMainIndexKey);
  const bool fits = index > 0 && index < std::ssize(elements_);
  mainValue_.place(elements_[fits ? static_cast<std::size_t>(index) : 0]);
}
