#include "person.h"

#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_general.h>
#include <OVAddressBookSDK/person_name.h>
#include <OVAddressBookSDK/tag_manager.h>

#include "book_content.h"
#include "others.h"
#include "texts.h"

namespace ov::vcard {

Person::Person(OVString id, Values values, OVList<OVString> tags, std::weak_ptr<BookContent> book)
    : id_(std::move(id)),
      values_(std::move(values)),
      tags_(std::move(tags)),
      book_(std::move(book)) {}

OVString Person::addressBookID() const {
  const auto book = book_.lock();
  return book == nullptr ? OVString("") : book->id;
}

OVString Person::displayName() const {
  const auto name = PersonValues(*this).datum<OVObjectPersonName>(OVProPertyName);
  return name == nullptr ? OVString("") : name->displayString();
}

OVRef<OVValue> Person::valueByProperty(const OVRef<OVProperty>& property) const {
  return property == nullptr ? nullptr : valueByPropertyName(property->name());
}

OVRef<OVValue> Person::valueByPropertyName(const OVStringView& name) const {
  if (name != OVProPertyTags) return values_[name];
  const OVList<OVString> tags = tagArray();
  if (tags.empty()) return nullptr;
  return OVPersonGeneral::singleValueByMacValueProperty(tags, OVProperty::propertyWithName(name));
}

void Person::setValueByProperty(const OVRef<OVValue>& value, const OVRef<OVProperty>& property) {
  if (property != nullptr) setValueByPropertyName(value, property->name());
}

void Person::setValueByPropertyName(const OVRef<OVValue>& value, const OVString& name) {
  if (name.isNull()) return;
  if (name == OVProPertyTags) {
    const auto single = std::dynamic_pointer_cast<OVSingleValue>(value);
    setTags(single == nullptr ? nullptr : ov::cast<OVList<OVString>>(single->value()));
    return;
  }
  if (name == OVProPertyName) forgetFormattedName();
  if (value == nullptr) {
    values_.erase(name);
  } else {
    values_.set(name, value);
  }
}

/// The formatted name of a card is another spelling of its name: a new name makes it wrong.
void Person::forgetFormattedName() {
  const auto others = std::dynamic_pointer_cast<OVMutableMultipleValue>(values_[OVProPertyOther]);
  if (others == nullptr) return;
  for (std::uint64_t i = others->count(); i-- > 0;) {
    const OVRef<OVSingleValue> entry = others->valueAtIndex(i);
    if (entry == nullptr) continue;
    if (const auto line = lineOf(*entry); line && line->name == "FN") {
      others->removeValueAtIndex(i);
    }
  }
  if (others->count() == 0) values_.erase(OVProPertyOther);
}

OVRef<OVImage> Person::thumbnail() const {
  return PersonValues(*this).datum<OVImage>(OVProPertyThumbnail);
}

void Person::setThumbnail(const OVRef<OVImage>& image) {
  const OVRef<OVProperty> property = OVProperty::propertyWithName(OVProPertyThumbnail);
  setValueByProperty(OVPersonGeneral::singleValueByMacValueProperty(image, property), property);
}

OVRef<OVObject> Person::mainDatum(const OVString& property) const {
  const OVRef<OVSingleValue> entry = PersonValues(*this).mainEntry(property);
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
  for (const OVRef<OVProperty> property : OVProperty::StandardPropertyArray()) {
    if (valueByProperty(property) != nullptr) properties.push_back(property);
  }
  return properties;
}

OVString Person::text(const OVString& property) const { return PersonValues(*this).text(property); }

void Person::setIsOrganization(bool isOrganization) {
  const OVRef<OVProperty> property = OVProperty::propertyWithName(OVProPertyIsOrganization);
  const OVString yes = isOrganization ? "true" : OVString();
  setValueByProperty(OVPersonGeneral::singleValueByMacValueProperty(yes, property), property);
}

bool Person::isOrganization() const { return meansOrganization(text(OVProPertyIsOrganization)); }

OVString Person::showName() const {
  OVString name = displayName();
  if (!name.empty()) return name;
  for (const OVString* const property : {&OVProPertyCompany, &OVProPertyNickname}) {
    if (OVString found = text(*property); !found.empty()) return found;
  }
  if (const auto email = mainEmail()) return email->email();
  if (const auto phone = mainPhone()) return phone->displayString();
  return "";
}

OVString Person::companyName() const { return text(OVProPertyCompany); }

OVString Person::jobTitle() const { return text(OVProPertyJobTitle); }

}  // namespace ov::vcard
