#include <filesystem>
#include <map>
#include <set>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/OVAddressBookSDK.h>

#include "book/host_persons.h"
#include "support/archive/archived_fields.h"
#include "support/fakes/fake_platform.h"
#include "support/printers.h"
#include "support/values.h"

namespace {

/// A person that wants to be asked for its ID and its values by property only.
class GuardedPerson final : public IOVPerson {
 public:
  mutable int asked = 0;

  OVString ID() const override { return "p"; }
  OVRef<OVValue> valueByProperty(const OVRef<OVProperty>& property) const override {
    ++asked;
    return textValue(property->name());
  }
  OVString addressBookID() const override { return no<OVString>(); }
  OVString displayName() const override { return no<OVString>(); }
  OVRef<OVValue> valueByPropertyName(const OVStringView& /*name*/) const override {
    return no<OVRef<OVValue>>();
  }
  void setValueByProperty(const OVRef<OVValue>& /*value*/,
                          const OVRef<OVProperty>& /*property*/) override {
    no<int>();
  }
  void setValueByPropertyName(const OVRef<OVValue>& /*value*/, const OVString& /*name*/) override {
    no<int>();
  }
  OVRef<OVImage> thumbnail() const override { return no<OVRef<OVImage>>(); }
  void setThumbnail(const OVRef<OVImage>& /*image*/) override { no<int>(); }
  OVRef<OVObjectPhone> mainPhone() const override { return no<OVRef<OVObjectPhone>>(); }
  OVRef<OVObjectEmail> mainEmail() const override { return no<OVRef<OVObjectEmail>>(); }
  OVList<IOVGroup> groups() const override { return no<OVList<IOVGroup>>(); }
  OVList<OVProperty> notNullValueProperty() const override { return no<OVList<OVProperty>>(); }
  OVList<OVString> tagArray() const override { return no<OVList<OVString>>(); }
  void addTag(const OVString& /*tag*/) override { no<int>(); }
  void removeTag(const OVString& /*tag*/) override { no<int>(); }
  void setTags(const OVList<OVString>& /*tags*/) override { no<int>(); }
  void setIsOrganization(bool /*isOrganization*/) override { no<int>(); }
  bool isOrganization() const override { return no<bool>(); }
  OVString showName() const override { return no<OVString>(); }
  OVString companyName() const override { return no<OVString>(); }
  OVString jobTitle() const override { return no<OVString>(); }
  OVString nameChineesPinyin() const override { return no<OVString>(); }
  OVString showNameChineesPinyin() const override { return no<OVString>(); }

 private:
  template <class T>
  static T no() {
    ADD_FAILURE() << "asked for something else";
    return T{};
  }
};

TEST(HostPersons, AreAskedForIDAndValuesOnly) {
  const auto book = OVAddressBookGeneral::init();
  const auto person = std::make_shared<GuardedPerson>();
  book->addPerson(person);
  EXPECT_EQ(person->asked, 23);
  EXPECT_NE(book->saveToData(), nullptr);
  EXPECT_EQ(person->asked, 23);
}

TEST(HostPersons, AreAskedForTheirIDOnlyAsMembersOfAGroup) {
  const auto person = std::make_shared<GuardedPerson>();
  const auto group = hostGroup("g");
  group->members.push_back(person);
  const auto book = OVAddressBookGeneral::init();
  book->addGroup(group);
  EXPECT_EQ(book->groupsDic()["g"]->persons()[0], "p");
  EXPECT_EQ(person->asked, 0);
}

/// A group that wants its snapshot in a record of its own, or none.
class RecordedGroup final : public IOVGroup {
 public:
  explicit RecordedGroup(OVRef<OVGroupGeneral> record) : record_(std::move(record)) {}

  OVString ID() const override { return "g"; }
  OVString displayName() const override { return "Group"; }
  OVList<IOVGroup> subGroups() const override { return nullptr; }
  OVList<IOVPerson> persons() const override { return nullptr; }
  OVRef<OVGroupGeneral> emptyGeneralGroup() const override { return record_; }

 private:
  OVRef<OVGroupGeneral> record_;
};

TEST(HostGroups, MayGiveTheRecordOfTheirSnapshot) {
  const auto record = OVGroupGeneral::init();
  const auto book = OVAddressBookGeneral::init();
  book->addGroup(std::make_shared<RecordedGroup>(record));
  EXPECT_EQ(book->groupsDic()["g"], record);
  EXPECT_EQ(record->title(), "Group");
}

TEST(HostGroups, ThatGiveNoRecordGetOne) {
  const auto book = OVAddressBookGeneral::init();
  book->addGroup(std::make_shared<RecordedGroup>(nullptr));
  EXPECT_EQ(book->groupsDic()["g"]->title(), "Group");
}

/// User defaults that keep the keys that they were asked for.
class AskedDefaults final : public OVUserDefaults {
 public:
  mutable std::set<OVString> keys;

 private:
  OVRef<OVObject> load(const OVString& key) const override {
    keys.insert(key);
    const auto at = entries_.find(key);
    return at == entries_.end() ? nullptr : at->second;
  }
  void store(const OVRef<OVObject>& object, const OVString& key) override {
    keys.insert(key);
    entries_[key] = object;
  }
  bool writeThrough() override { return true; }

  std::map<OVString, OVRef<OVObject>> entries_;
};

std::ptrdiff_t threadCount() {
  const std::filesystem::directory_iterator tasks("/proc/self/task");
  return std::distance(begin(tasks), end(tasks));
}

void useEverything() {
  const auto book = OVAddressBookGeneral::init();
  const auto person = OVPersonGeneral::initWithID("p");
  const auto phones = OVMutableMultipleValue::init();
  phones->addValue(valueOf(OVValueTypePhone, OVObjectPhone::initWithPhoneNumber("5")));
  person->setValueByPropertyName(phones, OVProPertyPhone);
  person->setThumbnail(OVImage::imageWithData(OVData::dataWithText("picture")));
  const auto name = OVObjectPersonName::initWithFirstMiddleLast("A", "B", "C");
  person->setValueByPropertyName(valueOf(OVValueTypePersonName, name), OVProPertyName);
  const auto address = OVObjectAddress::init();
  address->setCountryCode("de");
  address->setStringValueForFieldName("Berlin", OVAddressFieldCity);
  person->setValueByPropertyName(valueOf(OVValueTypeAddress, address), OVProPertyAddress);
  EXPECT_EQ(OVAddressFormater::initWithObject(address)->formatString(), "Berlin");
  book->addPerson(person);
  book->addGroup(hostGroup("g"));
  const auto again = restored<OVAddressBookGeneral>(book);
  EXPECT_EQ(again->personsDic()["p"]->displayName(), "A B C");
  again->personsDic()["p"]->mainPhone()->call();
  OVAddressBook::setlastNameInFront(true);
  OVCountry::setDefaultCountry(OVCountry::countryWithCode("fr"));
  EXPECT_EQ(OVCountry::defaultCountry()->code(), "fr");
  const auto tags = OVTagManager::tagManagerWithID("host's tags");
  tags->addPersonIDForTag("p", "Friend");
  tags->removeForPersonID("p");
  static_cast<void>(OVInstantMessageServer::serverWithDisplayName("AIM"));
}

TEST(Platform, IsAskedForThreeKeysPostsOneNotificationAndHasNoThreadMore) {
  const FakePlatform platform;
  const auto defaults = std::make_shared<AskedDefaults>();
  OVUserDefaults::setStandardUserDefaults(defaults);
  std::vector<OVString> posted;
  const auto observer = platform.center->addObserver(
      nullptr, [&](const OVNotification& each) { posted.push_back(each.name); });
  const auto threads = threadCount();
  useEverything();
  EXPECT_EQ(threadCount(), threads);
  EXPECT_EQ(defaults->keys, (std::set<OVString>{"l_n_f", "Default_Country_Key", "host's tags"}));
  EXPECT_EQ(posted, std::vector<OVString>{"OV_LastNmaeFrontChange_notification"});
  EXPECT_TRUE(platform.log->lines().empty());
}

}  // namespace
