// The values of a person of a book over cards.

#include "person.h"

#include <OVAddressBookSDK/email.h>
#include <OVAddressBookSDK/image.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_general.h>
#include <OVAddressBookSDK/person_heading.h>
#include <OVAddressBookSDK/person_name.h>
#include <OVAddressBookSDK/phone.h>

#include "mapping/properties.h"
#include "store.h"

namespace ov::card {

Person::Person(OVString id, ValueTable values, OVList<OVString> tags, std::weak_ptr<Store> book)
    : id_(std::move(id)),
      values_(std::move(values)),
      tags_(std::move(tags)),
      book_(std::move(book)) {
  values_.shrink();
}

Person::Person(OVString id, CardSource source, OVString sourceID, std::weak_ptr<Store> book)
    : id_(std::move(id)),
      book_(std::move(book)),
      source_(std::move(source)),
      sourceID_(std::move(sourceID)),
      isUnread_(true) {}

OVString Person::addressBookID() const {
  const auto book = book_.lock();
  return book == nullptr ? OVString("") : book->id;
}

OVString Person::displayName() const {
  const auto name = datumIn<OVObjectPersonName>(find(OVProPertyName));
  return name == nullptr ? OVString("") : name->displayString();
}

OVRef<OVValue> Person::valueByProperty(const OVRef<OVProperty>& property) const {
  return property == nullptr ? nullptr : valueByPropertyName(property->name());
}

OVRef<OVValue> Person::find(const OVStringView& name) const {
  readCard();
  if (name != OVProPertyTags) return values_.find(name);
  const OVList<OVString> tags = tagArray();
  if (tags.empty()) return nullptr;
  return OVPersonGeneral::singleValueByMacValueProperty(tags, OVProperty::propertyWithName(name));
}

OVRef<OVValue> Person::valueByPropertyName(const OVStringView& name) const {
  isHandedOut_ = true;
  return find(name);
}

void Person::setValueByProperty(const OVRef<OVValue>& value, const OVRef<OVProperty>& property) {
  if (property != nullptr) setValueByPropertyName(value, property->name());
}

void Person::setValueByPropertyName(const OVRef<OVValue>& value, const OVString& name) {
  if (name.isNull()) return;
  readCard();
  isHandedOut_ = true;
  if (name == OVProPertyTags) {
    const auto single = ov::cast<OVSingleValue>(value);
    setTags(single == nullptr ? nullptr : ov::cast<OVList<OVString>>(single->value()));
    return;
  }
  if (name == OVProPertyName) forgetFormattedName();
  values_.set(name, value);
}

/// The formatted name of a card is another spelling of its name: a new name makes it wrong.
void Person::forgetFormattedName() {
  const auto others = ov::cast<OVMutableMultipleValue>(values_.find(OVProPertyOther));
  if (others == nullptr) return;
  for (std::uint64_t i = others->count(); i-- > 0;) {
    const OVRef<OVSingleValue> entry = others->valueAtIndex(i);
    const OVRef<OVLabel> label = entry == nullptr ? nullptr : entry->label();
    if (label == nullptr) continue;
    const OVString name = label->name();
    if (name.view().substr(0, name.view().find(';')) == "FN") others->removeValueAtIndex(i);
  }
  if (others->count() == 0) values_.set(OVProPertyOther, nullptr);
}

OVRef<OVImage> Person::thumbnail() const { return datumIn<OVImage>(find(OVProPertyThumbnail)); }

void Person::setThumbnail(const OVRef<OVImage>& image) {
  const OVRef<OVProperty> property = OVProperty::propertyWithName(OVProPertyThumbnail);
  setValueByProperty(OVPersonGeneral::singleValueByMacValueProperty(image, property), property);
}

OVRef<OVObject> Person::mainDatum(const OVString& property) const {
  const auto several = ov::cast<OVMultipleValue>(find(property));
  const OVRef<OVSingleValue> entry = several == nullptr ? nullptr : several->mainValue();
  return entry == nullptr ? nullptr : entry->value();
}

OVRef<OVObjectPhone> Person::mainPhone() const {
  return ov::cast<OVObjectPhone>(mainDatum(OVProPertyPhone));
}

OVRef<OVObjectEmail> Person::mainEmail() const {
  return ov::cast<OVObjectEmail>(mainDatum(OVProPertyEmail));
}

OVList<IOVGroup> Person::groups() const {
  const auto book = book_.lock();
  return book == nullptr ? OVList<IOVGroup>::list() : book->groupsOf(*this);
}

OVList<OVProperty> Person::notNullValueProperty() const {
  auto properties = OVList<OVProperty>::list();
  for (const OVRef<OVProperty>& property : OVProperty::StandardPropertyArray()) {
    if (find(property->name()) != nullptr) properties.push_back(property);
  }
  return properties;
}

OVString Person::text(const OVString& property) const { return datumIn<OVString>(find(property)); }

void Person::setIsOrganization(bool isOrganization) {
  const OVRef<OVProperty> property = OVProperty::propertyWithName(OVProPertyIsOrganization);
  const OVString yes = isOrganization ? "true" : OVString();
  setValueByProperty(OVPersonGeneral::singleValueByMacValueProperty(yes, property), property);
}

bool Person::isOrganization() const { return ov::isOrganization(*this); }

OVString Person::showName() const {
  const bool wasHandedOut = isHandedOut_;
  const OVString heading = headingOf(*this).main;
  isHandedOut_ = wasHandedOut;
  return heading.isNull() ? OVString("") : heading;
}

OVString Person::companyName() const { return text(OVProPertyCompany); }

OVString Person::jobTitle() const { return text(OVProPertyJobTitle); }

}  // namespace ov::card
