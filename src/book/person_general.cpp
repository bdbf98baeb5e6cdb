#include <OVAddressBookSDK/person_general.h>

#include <utility>

#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_name.h>

#include "platform/dispose.h"
#include "platform/maker.h"

namespace {

constexpr OVString kEmpty(ov::detail::kConstant<"">);

}  // namespace

OVRef<OVPersonGeneral> OVPersonGeneral::initWithID(const OVString& ID) {
  return ov::detail::Maker::make<OVPersonGeneral>(ID);
}

OVPersonGeneral::~OVPersonGeneral() {
  for (Entry& entry : entries_) ov::detail::dispose(std::move(entry.value));
  ov::detail::dispose(extend_.take());
}

OVString OVPersonGeneral::addressBookID() const { return kEmpty; }

OVString OVPersonGeneral::displayName() const {
  const auto value = ov::cast<OVSingleValue>(valueByPropertyName(OVProPertyName));
  const auto name = value == nullptr ? nullptr : ov::cast<OVObjectPersonName>(value->value());
  return name == nullptr ? kEmpty : name->displayString();
}

OVRef<OVImage> OVPersonGeneral::thumbnail() const {
  const auto value = ov::cast<OVSingleValue>(valueByPropertyName(OVProPertyThumbnail));
  return value == nullptr ? nullptr : ov::cast<OVImage>(value->value());
}

void OVPersonGeneral::setThumbnail(const OVRef<OVImage>& image) {
  const auto property = OVProperty::propertyWithName(OVProPertyThumbnail);
  setValueByProperty(singleValueByMacValueProperty(image, property), property);
}

OVRef<OVObjectPhone> OVPersonGeneral::mainPhone() const {
  return ov::cast<OVObjectPhone>(valueOfMainValueForProPertyName(OVProPertyPhone));
}

OVRef<OVObjectEmail> OVPersonGeneral::mainEmail() const {
  return ov::cast<OVObjectEmail>(valueOfMainValueForProPertyName(OVProPertyEmail));
}

OVRef<OVSingleValue> OVPersonGeneral::mainValueForProPertyName(const OVStringView& name) const {
  const auto value = ov::cast<OVMultipleValue>(valueByPropertyName(name));
  return value == nullptr ? nullptr : value->mainValue();
}

OVRef<OVObject> OVPersonGeneral::valueOfMainValueForProPertyName(const OVStringView& name) const {
  const auto main = mainValueForProPertyName(name);
  return main == nullptr || main->type() == OVValueTypeMultiple ? nullptr : main->value();
}

OVList<IOVGroup> OVPersonGeneral::groups() const { return OVList<IOVGroup>::list(); }

void OVPersonGeneral::setIsOrganization(bool /*isOrganization*/) {}

bool OVPersonGeneral::isOrganization() const { return false; }

OVString OVPersonGeneral::showName() const { return nullptr; }

OVString OVPersonGeneral::companyName() const { return nullptr; }

OVString OVPersonGeneral::jobTitle() const { return nullptr; }

OVRef<OVMutableSingleValue> OVPersonGeneral::singleValueByMacValueLabelType(
    const OVRef<OVObject>& rawValue, const OVRef<OVLabel>& label, OVValueType type) {
  if (rawValue == nullptr) return nullptr;
  auto made = OVMutableSingleValue::init();
  made->setLabel(label);
  made->setValue(rawValue);
  made->setType(type);
  return made;
}

OVRef<OVMutableSingleValue> OVPersonGeneral::singleValueByMacValueProperty(
    const OVRef<OVObject>& rawValue, const OVRef<OVProperty>& property) {
  const auto label = OVLabel::init();
  const auto displayName = property == nullptr ? OVString() : property->displayName();
  label->setName(displayName);
  label->setDisplayName(displayName);
  return singleValueByMacValueLabelType(
      rawValue, label, property == nullptr ? OVValueTypeString : property->valueType());
}
