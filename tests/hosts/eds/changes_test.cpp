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
  /// Both sides give Kim another phone, and ours is saved last.
  void changeOnBothSides() {
    setPhone(personOf(*book, "kim"), "555-02");
    putCard(kim("555-03"));
    EXPECT_EQ(book->saveWithin({}), OVEDSError::Conflict);
    ASSERT_EQ(book->conflicts().size(), 1U);
    EXPECT_EQ(phoneOf(personOf(*book, "kim")), OVString("555-03"));
  }

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

TEST_F(LiveChanges, ACallbackTellsThatSomethingWaits) {
  std::atomic<int> times = 0;
  book->setWaitingCallback([&] { ++times; });
  putCard(kim("555-02"));
  EXPECT_TRUE(eventually([&] { return times > 0; }));
  book->setWaitingCallback({});
  EXPECT_TRUE(book->hasChangesWaiting());
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

TEST_F(LiveChanges, OfBothSidesAreAConflictWhenSaved) {
  changeOnBothSides();
  const OVEDSConflict conflict = book->conflicts().front();
  EXPECT_EQ(conflict.ID, OVString("kim"));
  EXPECT_THAT(conflict.ourCard.str(), HasSubstr("555-02"));
  EXPECT_THAT(conflict.theirCard.str(), HasSubstr("555-03"));
  EXPECT_FALSE(book->resolve("ida", OVEDSResolution::Theirs));
}

TEST_F(LiveChanges, OfBothSidesAreAConflictWhenApplied) {
  setPhone(personOf(*book, "kim"), "555-02");
  putCard(kim("555-03"));
  EXPECT_TRUE(applied(*book, isAnyChange));
  EXPECT_EQ(book->conflicts().size(), 1U);
  EXPECT_EQ(phoneOf(personOf(*book, "kim")), OVString("555-03"));
}

TEST_F(LiveChanges, AConflictIsResolvedWithTheirs) {
  changeOnBothSides();
  EXPECT_TRUE(book->resolve("kim", OVEDSResolution::Theirs));
  EXPECT_FALSE(book->saveWithin({}));
  EXPECT_THAT(storedCards(), HasSubstr("555-03"));
  EXPECT_THAT(storedCards(), Not(HasSubstr("555-02")));
}

TEST_F(LiveChanges, AConflictIsResolvedWithOurs) {
  changeOnBothSides();
  EXPECT_TRUE(book->resolve("kim", OVEDSResolution::Ours));
  EXPECT_EQ(phoneOf(personOf(*book, "kim")), OVString("555-02"));
  EXPECT_FALSE(book->saveWithin({}));
  EXPECT_THAT(storedCards(), HasSubstr("555-02"));
  EXPECT_THAT(storedCards(), Not(HasSubstr("555-03")));
  EXPECT_THAT(storedCards(), HasSubstr("X-ODD:left alone"));
}

TEST_F(LiveChanges, AConflictIsResolvedWithBoth) {
  changeOnBothSides();
  EXPECT_TRUE(book->resolve("kim", OVEDSResolution::Both));
  EXPECT_FALSE(book->saveWithin({}));
  EXPECT_THAT(storedCards(), HasSubstr("555-02"));
  EXPECT_THAT(storedCards(), HasSubstr("555-03"));
  EXPECT_EQ(openedBook()->allPersonsCount(), 3U);
}

TEST_F(LiveChanges, WhatTheyRemovedAndWeChangedIsAConflict) {
  setPhone(personOf(*book, "kim"), "555-02");
  EXPECT_EQ(otherProgram({"remove", bookUID.str(), "kim"}).status, 0);
  EXPECT_EQ(book->saveWithin({}), OVEDSError::Conflict);
  ASSERT_EQ(book->conflicts().size(), 1U);
  EXPECT_TRUE(book->conflicts().front().theyRemoved);
  EXPECT_EQ(personOf(*book, "kim"), nullptr);
  EXPECT_TRUE(book->resolve("kim", OVEDSResolution::Ours));
  EXPECT_FALSE(book->saveWithin({}));
  EXPECT_THAT(storedCards(), HasSubstr("555-02"));
}

TEST_F(LiveChanges, WhatWeRemovedAndTheyChangedIsAConflict) {
  const auto leaving = OVList<IOVPerson>::list();
  leaving.push_back(personOf(*book, "kim"));
  book->removePersons(leaving);
  putCard(kim("555-03"));
  EXPECT_EQ(book->saveWithin({}), OVEDSError::Conflict);
  ASSERT_EQ(book->conflicts().size(), 1U);
  EXPECT_TRUE(book->conflicts().front().weRemoved);
  EXPECT_NE(personOf(*book, "kim"), nullptr);
  EXPECT_TRUE(book->resolve("kim", OVEDSResolution::Ours));
  EXPECT_FALSE(book->saveWithin({}));
  EXPECT_THAT(storedCards(), Not(HasSubstr("UID:kim")));
}

TEST_F(LiveChanges, OfTwoBooksOfOneProcessReachEachOther) {
  const auto second = openedBook();
  setPhone(personOf(*book, "kim"), "555-02");
  EXPECT_FALSE(book->saveWithin({}));
  EXPECT_TRUE(applied(*second, isAnyChange));
  EXPECT_EQ(phoneOf(personOf(*second, "kim")), OVString("555-02"));
}

}  // namespace
