#include "person_draft.h"

#include <algorithm>

#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_general.h>
#include <OVAddressBookSDK/property.h>

namespace ov::vcard {

bool PersonDraft::set(const OVString& property, const OVRef<OVObject>& datum) {
  if (has(property)) return false;
  const OVRef<OVProperty> descriptor = OVProperty::propertyWithName(property);
  values_.set(property, OVPersonGeneral::singleValueByMacValueProperty(datum, descriptor));
  return true;
}

void PersonDraft::add(const OVString& property, const OVRef<OVObject>& datum,
                      const OVRef<OVLabel>& label, int preference) {
  const OVRef<OVProperty> descriptor = OVProperty::propertyWithName(property);
  const OVRef<OVSingleValue> entry =
      OVPersonGeneral::singleValueByMacValueLabelType(datum, label, descriptor->subValueType());

  OVRef<OVMutableMultipleValue> entries =
      std::dynamic_pointer_cast<OVMutableMultipleValue>(values_[property]);
  if (entries == nullptr) {
    entries = OVMutableMultipleValue::init();
    values_.set(property, entries);
    bestPreferences_.emplace_back(property, preference);
  }
  entries->addValue(entry);
  const auto best = std::find_if(bestPreferences_.begin(), bestPreferences_.end(),
                                 [&](const auto& pair) { return pair.first == property; });
  if (preference < best->second) {
    best->second = preference;
    entries->setMainValue(entry);
  }
}

void PersonDraft::addOther(const OVString& text, OVRef<OVLabel> label, int preference) {
  others_.push_back({text, std::move(label), preference});
}

void PersonDraft::setFormattedName(const Field& field) {
  formattedName_ = &field;
  formattedNamePlace_ = others_.size();
}

void PersonDraft::addOtherForFormattedName(const OVString& text, OVRef<OVLabel> label,
                                           int preference) {
  others_.insert(others_.begin() + static_cast<std::ptrdiff_t>(formattedNamePlace_),
                 {text, std::move(label), preference});
}

void PersonDraft::addTag(const OVString& tag) {
  if (!tag.empty() && !tags_.contains(tag)) tags_.push_back(tag);
}

bool PersonDraft::has(const OVString& property) const { return values_.contains(property); }

OVRef<OVObject> PersonDraft::datum(const OVString& property) const {
  const auto value = std::dynamic_pointer_cast<OVSingleValue>(values_[property]);
  return value == nullptr ? nullptr : value->value();
}

Values PersonDraft::takeValues() {
  for (const Other& other : others_) {
    add(OVProPertyOther, other.text, other.label, other.preference);
  }
  return std::move(values_);
}

}  // namespace ov::vcard
