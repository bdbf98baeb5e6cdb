#include "notices.h"

#include <OVAddressBookSDK/notification_center.h>
#include <OVAddressBookSDK/notification_names.h>

#include "applying.h"

namespace ov::eds {

namespace {

using ov::card::Person;

OVString phoneOf(const Person& person) {
  const auto phone = person.mainPhone();
  return phone == nullptr ? OVString() : phone->phoneNumber();
}

OVString emailOf(const Person& person) {
  const auto email = person.mainEmail();
  return email == nullptr ? OVString() : email->email();
}

}  // namespace

PersonBefore::PersonBefore(const Person& person)
    : name_(person.showName()), phone_(phoneOf(person)), email_(emailOf(person)) {}

void PersonBefore::tell(const OVRef<Person>& person, std::vector<Notice>& notices) const {
  if (const OVString name = person->showName(); name != name_) {
    notices.push_back(
        {OVPersonChangeNameNotification, OVChangeNameNotification_NameKey, person, name});
  }
  if (phoneOf(*person) != phone_) {
    notices.push_back({OVPersonChangePhoneNotification, OVChangeNameNotification_PhoneKey, person,
                       person->mainPhone()});
  }
  if (emailOf(*person) != email_) {
    notices.push_back({OVPersonChangeEmailNotification, OVChangeNameNotification_EmailKey, person,
                       person->mainEmail()});
  }
}

void postNotices(BookContent& book, const OVRef<OVObject>& object) {
  const auto center = OVNotificationCenter::defaultCenter();
  const std::vector<Notice> notices = std::exchange(book.notices, {});
  for (const Notice& notice : notices) {
    OVDictionary<OVObject> info = nullptr;
    if (notice.person != nullptr) {
      info = OVDictionary<OVObject>::dictionary();
      info.set(OVChangeNameNotification_PersonKey, notice.person);
      if (notice.value != nullptr) info.set(notice.key, notice.value);
    }
    center->postNotificationName(notice.name, object, info);
  }
}

}  // namespace ov::eds
