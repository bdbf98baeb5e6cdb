#include "support/archive/listed_fields.h"

#include <set>

#include <OVAddressBookSDK/address.h>
#include <OVAddressBookSDK/address_book_general.h>
#include <OVAddressBookSDK/email.h>
#include <OVAddressBookSDK/image.h>
#include <OVAddressBookSDK/instant_message.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_name.h>
#include <OVAddressBookSDK/phone.h>
#include <OVAddressBookSDK/tag_manager.h>

namespace {

using Objects = ListedFields::Objects;

std::string typeOf(const OVValue& value) {
  return std::to_string(static_cast<std::uint32_t>(value.type()));
}

/// A damaged archive may have no list there.
Objects objectsOf(const OVList<OVString>& texts) {
  const auto objects = ov::cast<OVList<OVObject>>(texts);
  return {objects.begin(), objects.end()};
}

ListedFields fieldsOf(const OVLabel& label) {
  return {"OVLabel", {{"displayName", label.displayName()}, {"name", label.name()}}};
}

/// Of a value that holds no more than its type.
ListedFields fieldsOf(const OVValue& value) {
  return {value.classForCoder()->name, {{"type", typeOf(value)}}};
}

ListedFields fieldsOf(const OVMutableSingleValue& value) {
  return {"OVMutableSingleValue",
          {{"label", value.label()}, {"type", typeOf(value)}, {"value", value.value()}}};
}

ListedFields fieldsOf(const OVMutableMultipleValue& value) {
  ListedFields result{"OVMutableMultipleValue", {}};
  const std::uint64_t main = value.indexOfValue(value.mainValue());
  if (main != OVNotFound) result.fields["mainValueIndex"] = std::to_string(main);
  Objects elements;
  for (std::uint64_t i = 0; i < value.count(); ++i) elements.push_back(value.valueAtIndex(i));
  if (!elements.empty()) result.fields["valueArray"] = elements;
  return result;
}

ListedFields fieldsOf(const OVObjectPersonName& name) {
  return {"OVObjectPersonName",
          {{"first", name.first()}, {"last", name.last()}, {"middle", name.middle()}}};
}

ListedFields fieldsOf(const OVObjectPhone& phone) {
  return {"OVObjectPhone", {{"phoneNumber", phone.phoneNumber()}}};
}

ListedFields fieldsOf(const OVObjectEmail& email) {
  return {"OVObjectEmail", {{"email", email.email()}}};
}

ListedFields fieldsOf(const OVObjectInstantMessage& account) {
  return {"OVObjectInstantMessage",
          {{"serverName", account.server()->name()}, {"userName", account.userName()}}};
}

ListedFields fieldsOf(const OVObjectAddress& address) {
  ListedFields result{"OVObjectAddress", {{"countryCode", address.countryCode()}}};
  for (const OVString& name :
       {OVAddressFieldCountryOrArea, OVAddressFieldProvince, OVAddressFieldCity,
        OVAddressFieldStreet, OVAddressFieldPostalCode}) {
    result.fields["valueDic." + name.str()] = address.stringValueByFieldName(name);
  }
  return result;
}

ListedFields fieldsOf(const OVImage& image) { return {"OVImage", {{"data", image.data()}}}; }

ListedFields fieldsOf(const OVAddressBookGeneral& book) {
  return {"OVAddressBookGeneral",
          {{"groupDic", book.groupsDic()}, {"personDic", book.personsDic()}}};
}

ListedFields fieldsOf(const OVPersonGeneral& person) {
  ListedFields result{"OVPersonGeneral", {{"ID", person.ID()}}};
  for (const OVRef<OVProperty> property : OVProperty::StandardPropertyArray()) {
    result.fields[property->name().str()] = person.valueByProperty(property);
  }
  return result;
}

ListedFields fieldsOf(const OVGroupGeneral& group) {
  return {"OVGroupGeneral",
          {{"persons", group.persons()}, {"subArray", group.subArray()}, {"title", group.title()}}};
}

ListedFields fieldsOf(const OVTagManager& manager) {
  ListedFields result{"OVTagManager", {}};
  Objects tags;
  for (std::uint64_t i = 0; i < manager.count(); ++i) {
    const OVString tag = manager.tagAtIndex(i);
    tags.push_back(tag);
    const auto persons = manager.personIDsByTag(tag);
    result.fields["TagsDicKey." + tag.str()] = objectsOf(persons);
    for (const OVString& ID : persons) {
      result.fields["PersonDicKey." + ID.str()] = objectsOf(manager.tagsByPersonID(ID));
    }
  }
  result.fields["TagsKey"] = tags;
  return result;
}

template <class... Classes>
ListedFields fieldsOfFirst(const OVRef<OVObject>& object) {
  ListedFields result;
  const auto attempt = [&]<class T>(const OVRef<T>& found) {
    if (found != nullptr) result = fieldsOf(*found);
    return found != nullptr;
  };
  static_cast<void>((attempt(ov::cast<Classes>(object)) || ...));
  return result;
}

}  // namespace

ListedFields listedFields(const OVRef<OVObject>& object) {
  return fieldsOfFirst<OVLabel, OVMutableSingleValue, OVMutableMultipleValue, OVValue,
                       OVObjectPersonName, OVObjectPhone, OVObjectEmail, OVObjectInstantMessage,
                       OVObjectAddress, OVImage, OVAddressBookGeneral, OVPersonGeneral,
                       OVGroupGeneral, OVTagManager>(object);
}
