#include "fuzz/use_objects.h"

#include <stdexcept>

#include <OVAddressBookSDK/OVAddressBookSDK.h>

namespace {

template <class... Told>
void tell(const Told&... /*told*/) {}

void use(const OVLabel& label) { tell(label.name(), label.displayName()); }

void use(const OVSingleValue& value) {
  tell(value.type(), value.label(), value.value(), value.mutableCopy());
}

void use(const OVMultipleValue& value) {
  tell(value.type(), value.subType(), value.mainValue(), value.allLabel(), value.mutableCopy());
  try {
    tell(value.allLabelName());
  } catch (const std::invalid_argument&) {  // there is a label without a name to show
  }
  const std::uint64_t count = value.count();
  for (std::uint64_t i = 0; i < count; ++i) tell(value.indexOfValue(value.valueAtIndex(i)));
}

void use(const OVObjectPersonName& name) {
  tell(name.first(), name.middle(), name.last(), name.displayString());
}

void use(const OVObjectPhone& phone) {
  tell(phone.phoneNumber(), phone.displayString(), phone.valid(), phone.canDoCall(),
       phone.adjustNumber(phone.phoneNumber()));
}

void use(const OVObjectEmail& email) { tell(email.email(), email.valid()); }

void use(const OVObjectInstantMessage& account) {
  tell(account.userName(), account.server());
  if (account.server() != nullptr) tell(account.server()->displayName());
}

void use(const OVObjectAddress& address) {
  tell(address.countryCode(), address.valueCount(),
       address.stringValueByFieldName(OVAddressFieldStreet));
}

void use(const OVDate& date) { tell(date.timeIntervalSinceReferenceDate(), date.day()); }

void use(const OVNumber& number) {
  tell(number.boolValue(), number.integerValue(), number.doubleValue());
}

void use(const OVPersonGeneral& person) {
  tell(person.ID(), person.displayName(), person.showName(), person.companyName(),
       person.jobTitle(), person.isOrganization(), person.thumbnail(), person.mainPhone(),
       person.mainEmail(), person.groups(), person.notNullValueProperty(), person.tagArray());
  for (const OVRef<OVProperty> property : OVProperty::StandardPropertyArray()) {
    tell(person.valueByProperty(property), person.mainValueForProPertyName(property->name()),
         person.valueOfMainValueForProPertyName(property->name()));
  }
}

void use(const OVGroupGeneral& group) {
  tell(group.ID(), group.title());
  for (const OVString& each : group.subArray()) tell(each);
  for (const OVString& each : group.persons()) tell(each);
}

void use(const OVTagManager& manager) {
  for (std::uint64_t i = 0; i < manager.count(); ++i) {
    for (const OVString& ID : manager.personIDsByTag(manager.tagAtIndex(i))) {
      tell(manager.tagsByPersonID(ID));
    }
  }
}

void use(const OVAddressBookGeneral& book) {
  tell(book.allPersonsCount(), book.allPersons(), book.rootGroups(), book.thumbnail());
  for (const auto& [ID, person] : book.personsDic()) {
    if (person != nullptr) tell(person->displayName());
  }
  for (const auto& [ID, group] : book.groupsDic()) {
    if (group != nullptr) tell(group->title());
  }
}

template <class... Classes>
void useAs(const OVRef<OVObject>& object) {
  const auto attempt = []<class T>(const OVRef<T>& found) {
    if (found != nullptr) use(*found);
  };
  (attempt(ov::cast<Classes>(object)), ...);
}

/// Lays the address out as its own country does.
void layOut(const OVRef<OVObjectAddress>& address) {
  if (address == nullptr) return;
  const auto formater = OVAddressFormater::initWithObject(address);
  if (formater != nullptr) tell(formater->string(), formater->formatString());
}

}  // namespace

void useObjects(const std::vector<OVRef<OVObject>>& objects) {
  for (const OVRef<OVObject>& each : objects) {
    useAs<OVLabel, OVSingleValue, OVMultipleValue, OVObjectPersonName, OVObjectPhone, OVObjectEmail,
          OVObjectInstantMessage, OVObjectAddress, OVDate, OVNumber, OVPersonGeneral,
          OVGroupGeneral, OVTagManager, OVAddressBookGeneral>(each);
    layOut(ov::cast<OVObjectAddress>(each));
  }
}
