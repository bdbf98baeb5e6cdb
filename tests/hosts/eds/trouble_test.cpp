#include <signal.h>

#include <thread>

#include "live_test.h"

namespace {

using testing::HasSubstr;

class LiveTrouble : public LiveTest {
 protected:
  static void killFactory() { kill(Desktop::ofThisProcess().factory().value(), SIGKILL); }
};

TEST_F(LiveTrouble, ADeadFactoryIsStartedAgainByTheNextCall) {
  const auto book = openedBook();
  addPersons(*book, 3);
  EXPECT_FALSE(book->saveWithin({}));
  killFactory();
  setPhone(personOf(*book, "p1"), "555-01");
  EXPECT_FALSE(book->saveWithin({})) << book->saveError().message();
  EXPECT_THAT(storedCards(), HasSubstr("555-01"));
  std::error_code error;
  EXPECT_TRUE(book->applyChanges(error).empty());
  EXPECT_FALSE(error) << error.message();
}

TEST_F(LiveTrouble, NewsThatCameWhileTheFactoryWasDeadAreApplied) {
  const auto book = openedBook();
  killFactory();
  putCard("UID:kim\r\nFN:Kim\r\nN:Kim;;;;\r\n");
  EXPECT_TRUE(applied(*book, [](const auto& changes) { return changes.cameIn.size() == 1; }));
}

TEST_F(LiveTrouble, AFactoryKilledAmidABulkAddLosesNothing) {
  const auto book = openedBook();
  addPersons(*book, 1200);
  bool isKilled = false;
  const auto error = book->saveWithin({}, [&](std::uint64_t, std::uint64_t) {
    if (!std::exchange(isKilled, true)) killFactory();
  });
  EXPECT_FALSE(error) << error.message();
  EXPECT_TRUE(isKilled);
  EXPECT_EQ(openedBook()->allPersonsCount(), 1200U);
  EXPECT_TRUE(book->conflicts().empty());
}

TEST_F(LiveTrouble, AFactoryKilledAtAnyMomentOfASaveLosesNothing) {
  const auto book = openedBook();
  addPersons(*book, 600);
  EXPECT_FALSE(book->saveWithin({}));
  for (const int delay : {1, 5, 20}) {
    const std::string number = "555-" + std::to_string(delay);
    for (const auto& person : book->allPersons()) setPhone(person, number.c_str());
    std::thread killer([&] {
      // A moment within the save, another each time: nothing could be waited for.
      const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(delay);
      while (std::chrono::steady_clock::now() < end) {
      }
      if (const auto factory = Desktop::ofThisProcess().factory()) kill(*factory, SIGKILL);
    });
    const auto error = book->saveWithin({});
    killer.join();
    EXPECT_FALSE(error) << error.message();
    EXPECT_TRUE(book->conflicts().empty());
    const auto again = openedBook();
    EXPECT_EQ(again->allPersonsCount(), 600U);
    for (const auto& person : again->allPersons()) ASSERT_EQ(phoneOf(person), OVString(number));
  }
}

TEST_F(LiveTrouble, MoreThanAMessageOfTheBusHoldsIsSavedAndRead) {
  const auto book = openedBook();
  addPersons(*book, 70);
  const OVString note(std::string(1'000'000, 'x'));
  for (const auto& person : book->allPersons()) {
    person->setValueByPropertyName(ov::labelled(note, "note", OVValueTypeNote), OVProPertyNote);
  }
  EXPECT_FALSE(book->saveWithin({})) << book->saveError().message();
  const auto again = openedBook();
  EXPECT_EQ(again->allPersonsCount(), 70U);
  std::error_code error;
  (void)again->applyChanges(error);
  EXPECT_FALSE(error) << error.message();
  EXPECT_TRUE(again->conflicts().empty());
}

TEST_F(LiveTrouble, RequestsAreRunAsTheProgramWants) {
  const auto book = openedBook();
  addPersons(*book, 3);
  int requests = 0;
  ov::eds::Call call;
  call.around = [&](const std::function<void()>& request) {
    EXPECT_EQ(book->allPersonsCount(), 3U);
    ++requests;
    request();
  };
  EXPECT_FALSE(book->saveWithin(call));
  EXPECT_GT(requests, 0);
  EXPECT_THAT(storedCards(), HasSubstr("UID:p2"));
  EXPECT_FALSE(session->removeBook(bookUID));
  EXPECT_TRUE(eventually([&] { return book->state() == OVEDSState::Gone; }));
  setPhone(personOf(*book, "p1"), "555-01");
  EXPECT_EQ(book->saveWithin(call), OVEDSError::NoBook);
}

TEST_F(LiveTrouble, TwoProcessesThatWriteAtTheSameTimeLoseNothing) {
  const auto book = openedBook();
  std::string cards;
  for (int i = 0; i < 50; ++i) {
    const std::string number = std::to_string(i);
    cards += liveCard("UID:o" + number + "\r\nFN:Other\r\nN:Other;" + number + ";;;\r\n");
  }
  std::thread other([&] {
    EXPECT_EQ(otherProgram({"put", bookUID.str()}, cards).status, 0);
    EXPECT_EQ(otherProgram({"phone", bookUID.str(), "555-01"}).status, 0);
  });
  for (int i = 0; i < 10; ++i) {
    addPersons(*book, 5);
    EXPECT_FALSE(book->saveWithin({})) << book->saveError().message();
  }
  other.join();
  EXPECT_EQ(openedBook()->allPersonsCount(), 100U);
  EXPECT_TRUE(eventually([&] {
    std::error_code error;
    (void)book->applyChanges(error);
    return !error && book->allPersonsCount() == 100U;
  }));
  EXPECT_TRUE(book->conflicts().empty());
}

TEST_F(LiveTrouble, ABookThatIsRemovedWhileItIsOpenIsGone) {
  const auto book = openedBook();
  addPersons(*book, 1);
  EXPECT_FALSE(session->removeBook(bookUID));
  EXPECT_TRUE(eventually([&] { return book->state() == OVEDSState::Gone; }));
  EXPECT_EQ(book->saveWithin({}), OVEDSError::NoBook);
  EXPECT_FALSE(book->canOprate());
  EXPECT_EQ(book->newPerson(), nullptr);
  EXPECT_EQ(book->allPersonsCount(), 1U);
}

}  // namespace
