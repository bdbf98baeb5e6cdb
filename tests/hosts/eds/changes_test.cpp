#include <atomic>

#include "live_test.h"

namespace {

using testing::HasSubstr;
using testing::Not;

class LiveChanges : public LiveTest {
 protected:
  LiveChanges() {
    putCard(kim("555-01"));
    putCard("UID:ida\r\nFN:Ida\r\nN:Ida;;;;\r\n");
    book = openedBook();
  }

  static std::string kim(const std::string& phone) {
    return "UID:kim\r\nFN:Kim\r\nN:Kim;;;;\r\nTEL;TYPE=WORK:" + phone + "\r\nX-ODD:left alone\r\n";
  }
  static bool isAnyChange(const OVEDSChanges& changes) { return !changes.empty(); }

  OVRef<OVEDSBook> book;
};

TEST_F(LiveChanges, OfOthersWaitUntilTheyAreApplied) {
  const auto person = personOf(*book, "kim");
  putCard(kim("555-02"));
  EXPECT_TRUE(eventually([&] { return book->hasChangesWaiting(); }));
  EXPECT_EQ(phoneOf(person), OVString("555-01"));
  EXPECT_TRUE(applied(*book, [&](const OVEDSChanges& changes) {
    return changes.changed.size() == 1 && OVRef<IOVPerson>(changes.changed[0]) == person;
  }));
  EXPECT_EQ(phoneOf(person), OVString("555-02"));
}

TEST_F(LiveChanges, TellWhoCameAndWhoWent) {
  putCard("UID:new\r\nFN:New\r\nN:New;;;;\r\n");
  EXPECT_EQ(otherProgram({"remove", bookUID.str(), "ida"}).status, 0);
  std::uint64_t came = 0;
  std::uint64_t went = 0;
  EXPECT_TRUE(applied(*book, [&](const OVEDSChanges& changes) {
    came += changes.cameIn.size();
    went += changes.went.size();
    return came == 1 && went == 1;
  }));
  EXPECT_NE(personOf(*book, "new"), nullptr);
  EXPECT_EQ(personOf(*book, "ida"), nullptr);
}

TEST_F(LiveChanges, OfAThousandPersonsAreApplied) {
  addPersons(*book, 1000);
  EXPECT_FALSE(book->saveWithin({})) << book->saveError().message();
  const Outcome changed = otherProgram({"phone", bookUID.str(), "555-04"});
  EXPECT_EQ(changed.status, 0) << changed.err;
  std::uint64_t count = 0;
  EXPECT_TRUE(applied(*book, [&](const OVEDSChanges& changes) {
    count += changes.changed.size();
    return count >= 1002;
  }));
  EXPECT_EQ(count, 1002U);
  EXPECT_TRUE(book->conflicts().empty());
  for (const OVRef<IOVPerson> person : book->allPersons()) {
    ASSERT_EQ(phoneOf(person), OVString("555-04")) << person->ID().str();
  }
}

TEST_F(LiveChanges, ACallbackTellsThatSomethingWaits) {
  std::atomic<int> times = 0;
  book->setWaitingCallback([&] { ++times; });
  putCard(kim("555-02"));
  EXPECT_TRUE(eventually([&] { return times > 0; }));
  book->setWaitingCallback({});
  EXPECT_TRUE(book->hasChangesWaiting());
}

TEST_F(LiveChanges, ACallbackTellsOfWhatWaitsAlready) {
  putCard(kim("555-02"));
  EXPECT_TRUE(eventually([&] { return book->hasChangesWaiting(); }));
  std::atomic<int> times = 0;
  book->setWaitingCallback([&] { ++times; });
  EXPECT_TRUE(eventually([&] { return times > 0; }));
  book->setWaitingCallback({});
}

TEST_F(LiveChanges, OfOurOwnAreNoNews) {
  setPhone(personOf(*book, "kim"), "555-02");
  setName(book->newPerson(), "Mira", "Halonen");
  EXPECT_FALSE(book->saveWithin({}));
  // What comes after our own news comes later.
  putCard("UID:last\r\nFN:Last\r\nN:Last;;;;\r\n");
  EXPECT_TRUE(applied(*book, [](const OVEDSChanges& changes) {
    EXPECT_TRUE(changes.changed.empty());
    EXPECT_TRUE(changes.went.empty());
    EXPECT_LE(changes.cameIn.size(), 1U);
    return changes.cameIn.size() == 1;
  }));
  EXPECT_TRUE(book->conflicts().empty());
}

TEST_F(LiveChanges, ArePostedUnderTheirNames) {
  const auto center = OVNotificationCenter::inProcess();
  OVNotificationCenter::setDefaultCenter(center);
  std::vector<OVString> names;
  OVString phone;
  const auto observer = center->addObserver(nullptr, [&](const OVNotification& told) {
    names.push_back(told.name);
    EXPECT_EQ(told.object, book);
    if (told.name != OVPersonChangePhoneNotification) return;
    const auto entry = ov::cast<OVObjectPhone>(told.userInfo[OVChangeNameNotification_PhoneKey]);
    phone = entry->phoneNumber();
    EXPECT_EQ(told.userInfo[OVChangeNameNotification_PersonKey], personOf(*book, "kim"));
  });
  putCard(kim("555-02"));
  EXPECT_TRUE(applied(*book, isAnyChange));
  EXPECT_THAT(names, testing::ElementsAre(OVPersonChangePhoneNotification));
  EXPECT_EQ(phone, OVString("555-02"));
  names.clear();
  putCard("UID:new\r\nFN:New\r\nN:New;;;;\r\n");
  EXPECT_TRUE(applied(*book, isAnyChange));
  EXPECT_THAT(names, testing::ElementsAre(OVPersonChangeAllPersonNotification));
  OVNotificationCenter::setDefaultCenter(nullptr);
}

TEST_F(LiveChanges, OfNamesAndEmailsArePostedToo) {
  const auto center = OVNotificationCenter::inProcess();
  OVNotificationCenter::setDefaultCenter(center);
  std::vector<OVString> names;
  const auto observer =
      center->addObserver(nullptr, [&](const OVNotification& told) { names.push_back(told.name); });
  putCard("UID:ida\r\nFN:Ida Moe\r\nN:Moe;Ida;;;\r\nEMAIL:ida@example.org\r\n");
  EXPECT_TRUE(applied(*book, isAnyChange));
  EXPECT_THAT(
      names, testing::ElementsAre(OVPersonChangeNameNotification, OVPersonChangeEmailNotification));
  OVNotificationCenter::setDefaultCenter(nullptr);
}

TEST_F(LiveChanges, OfTwoBooksOfOneProcessReachEachOther) {
  const auto second = openedBook();
  setPhone(personOf(*book, "kim"), "555-02");
  EXPECT_FALSE(book->saveWithin({}));
  EXPECT_TRUE(applied(*second, isAnyChange));
  EXPECT_EQ(phoneOf(personOf(*second, "kim")), OVString("555-02"));
}

}  // namespace
