#include <atomic>
#include <thread>

#include "dav_server.h"
#include "live_test.h"

namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::Not;

/// A session that gives a password, and a book of a CardDAV server.
class LiveServer : public testing::Test {
 protected:
  LiveServer() { Desktop::ofThisProcess(); }
  ~LiveServer() override {
    book = nullptr;
    if (session != nullptr) (void)session->removeBook(uid);
  }

  void open(const char* user = "kaya", const char* password = "secret") {
    std::error_code error;
    session = OVEDSSession::open(error, [this, password](const OVEDSCredentialsRequest& request) {
      ++questions;
      EXPECT_EQ(request.bookName, OVString("Study"));
      request.answer({nullptr, password});
    });
    ASSERT_FALSE(error) << error.message();
    uid = session->addCardDAVBook("Study", {OVString(server.url()), user}, error);
    ASSERT_FALSE(error) << error.message();
    book = session->openBook(uid, error);
    ASSERT_FALSE(error) << error.message();
    ASSERT_FALSE(book->load());
  }

  /// Asks the server, and shows what it says.
  void refresh() {
    const auto error = book->refresh();
    EXPECT_FALSE(error) << error.message();
    std::error_code applied;
    (void)book->applyChanges(applied);
    EXPECT_FALSE(applied) << applied.message();
  }

  /// The other machine of the user, with a desktop of its own: runs commands with our own session
  /// there (see other_machine.cpp).
  Outcome onTheOtherMachine(const std::vector<std::string>& words) {
    if (!other) other.emplace();
    std::vector<std::string> command{OV_OTHER_MACHINE, server.url()};
    command.insert(command.end(), words.begin(), words.end());
    Surroundings surroundings;
    surroundings.environment = other->environment();
    return runProgram(command, surroundings);
  }

  static std::string kim(const std::string& phone) {
    return "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:kim\r\nFN:Kim\r\nN:Kim;;;;\r\nTEL;TYPE=WORK:" +
           phone + "\r\nX-ODD:left alone\r\nEND:VCARD\r\n";
  }

  DavServer server;
  OVRef<OVEDSSession> session;
  OVRef<OVEDSBook> book;
  OVString uid;
  std::optional<Desktop> other;
  std::atomic<int> questions = 0;
};

TEST_F(LiveServer, PersonOfTheServerIsReadAfterARefresh) {
  server.put("kim.vcf", kim("555-01"));
  ASSERT_NO_FATAL_FAILURE(open());
  refresh();
  ASSERT_NE(personOf(*book, "kim"), nullptr);
  EXPECT_EQ(phoneOf(personOf(*book, "kim")), OVString("555-01"));
  EXPECT_EQ(book->state(), OVEDSState::Connected);
  EXPECT_GE(questions, 1);
  for (const OVEDSBookInfo& info : session->books()) {
    if (info.uid != uid) continue;
    EXPECT_EQ(info.kind, OVEDSBookKind::CardDAV);
  }
}

TEST_F(LiveServer, SavedPersonIsOnTheServer) {
  ASSERT_NO_FATAL_FAILURE(open());
  refresh();
  const auto mira = book->newPerson();
  setName(mira, "Mira", "Halonen");
  setPhone(mira, "555-01");
  EXPECT_FALSE(book->saveWithin({})) << book->saveError().message();
  EXPECT_THAT(server.cards(), HasSubstr("555-01"));
  setPhone(mira, "555-02");
  EXPECT_FALSE(book->saveWithin({})) << book->saveError().message();
  EXPECT_THAT(server.cards(), HasSubstr("555-02"));
  EXPECT_FALSE(book->waitsForServer());
}

TEST_F(LiveServer, TwoMachinesOfOneUserSeeEachOthersChanges) {
  ASSERT_NO_FATAL_FAILURE(open());
  refresh();
  const auto mira = book->newPerson();
  setName(mira, "Mira", "Halonen");
  setPhone(mira, "555-01");
  EXPECT_FALSE(book->saveWithin({}));
  const std::string id = mira->ID().str();
  EXPECT_THAT(onTheOtherMachine({"list"}).out, HasSubstr(id + "\t555-01"));
  const Outcome changed = onTheOtherMachine({"phone", id, "555-02"});
  EXPECT_EQ(changed.status, 0) << changed.err;
  refresh();
  EXPECT_EQ(phoneOf(mira), OVString("555-02"));
  const Outcome removed = onTheOtherMachine({"remove", id});
  EXPECT_EQ(removed.status, 0) << removed.err;
  refresh();
  EXPECT_EQ(book->allPersonsCount(), 0U);
}

TEST_F(LiveServer, WhatWeRemoveGoesFromTheOtherMachine) {
  server.put("kim.vcf", kim("555-01"));
  ASSERT_NO_FATAL_FAILURE(open());
  refresh();
  EXPECT_THAT(onTheOtherMachine({"list"}).out, HasSubstr("kim\t555-01"));
  book->removePersons(book->allPersons());
  EXPECT_FALSE(book->saveWithin({})) << book->saveError().message();
  EXPECT_THAT(onTheOtherMachine({"list"}).out, Not(HasSubstr("kim")));
}

TEST_F(LiveServer, APersonChangedOnBothMachinesIsAConflict) {
  server.put("kim.vcf", kim("555-01"));
  ASSERT_NO_FATAL_FAILURE(open());
  refresh();
  const Outcome changed = onTheOtherMachine({"phone", "kim", "555-03"});
  EXPECT_EQ(changed.status, 0) << changed.err;
  setPhone(personOf(*book, "kim"), "555-02");
  EXPECT_EQ(book->saveWithin({}), OVEDSError::Conflict);
  ASSERT_EQ(book->conflicts().size(), 1U);
  EXPECT_EQ(phoneOf(personOf(*book, "kim")), OVString("555-03"));
  EXPECT_THAT(server.cards(), HasSubstr("555-03"));
  EXPECT_TRUE(book->resolve("kim", OVEDSResolution::Ours));
  EXPECT_FALSE(book->saveWithin({})) << book->saveError().message();
  EXPECT_THAT(server.cards(), HasSubstr("555-02"));
  EXPECT_THAT(server.cards(), HasSubstr("X-ODD:left alone"));
}

TEST_F(LiveServer, WhatIsSavedWhileTheServerIsAwayWaitsInTheBook) {
  server.put("kim.vcf", kim("555-01"));
  ASSERT_NO_FATAL_FAILURE(open());
  refresh();
  server.stop();
  setPhone(personOf(*book, "kim"), "555-02");
  EXPECT_EQ(book->saveWithin({}), OVEDSError::Offline) << book->saveError().message();
  EXPECT_EQ(book->state(), OVEDSState::Offline);
  EXPECT_EQ(book->refresh(), OVEDSError::Offline);
  EXPECT_EQ(phoneOf(personOf(*book, "kim")), OVString("555-02"));
  server.start();
  EXPECT_FALSE(book->saveWithin({})) << book->saveError().message();
  EXPECT_EQ(book->state(), OVEDSState::Connected);
  EXPECT_THAT(server.cards(), HasSubstr("555-02"));
}

TEST_F(LiveServer, AWrongPasswordIsToldAndAskedForAFewTimesOnly) {
  server.put("kim.vcf", kim("555-01"));
  ASSERT_NO_FATAL_FAILURE(open("kaya", "wrong"));
  EXPECT_EQ(book->refresh(), OVEDSError::CredentialsNeeded);
  EXPECT_EQ(book->state(), OVEDSState::CredentialsNeeded);
  EXPECT_EQ(book->allPersonsCount(), 0U);
  EXPECT_LE(questions, 20);
}

TEST_F(LiveServer, ChangesMadeWithoutAPasswordArriveLater) {
  std::error_code error;
  std::optional<OVEDSCredentialsRequest> asked;
  std::mutex mutex;
  session = OVEDSSession::open(error, [&](const OVEDSCredentialsRequest& request) {
    const std::lock_guard lock(mutex);
    asked = request;
  });
  uid = session->addCardDAVBook("Study", {OVString(server.url()), "kaya"}, error);
  book = session->openBook(uid, error);
  ASSERT_FALSE(error) << error.message();
  ASSERT_FALSE(book->load());
  EXPECT_EQ(book->refresh({300ms}), std::errc::timed_out);
  const auto mira = book->newPerson();
  setName(mira, "Mira", "Halonen");
  EXPECT_FALSE(book->saveWithin({})) << book->saveError().message();
  EXPECT_THAT(server.cards(), Not(HasSubstr("Halonen")));
  std::thread user([&] {
    EXPECT_TRUE(eventually([&] {
      const std::lock_guard lock(mutex);
      return asked.has_value();
    }));
    const std::lock_guard lock(mutex);
    asked->answer({"kaya", "secret"});
  });
  user.join();
  EXPECT_FALSE(book->refresh());
  EXPECT_EQ(book->state(), OVEDSState::Connected);
  EXPECT_FALSE(book->waitsForServer());
  EXPECT_TRUE(eventually([&] { return server.cards().find("Halonen") != std::string::npos; }));
}

TEST_F(LiveServer, ABookThatMayOnlyBeReadCannotBeChanged) {
  server.put("kim.vcf", kim("555-01"));
  ASSERT_NO_FATAL_FAILURE(open("guest"));
  refresh();
  EXPECT_NE(personOf(*book, "kim"), nullptr);
  EXPECT_TRUE(eventually([&] { return book->state() == OVEDSState::ReadOnly; }));
  EXPECT_FALSE(book->canOprate());
  EXPECT_FALSE(book->canCreateGroup());
  EXPECT_EQ(book->newPerson(), nullptr);
  EXPECT_EQ(book->addGroupByName("Choir"), nullptr);
  setPhone(personOf(*book, "kim"), "555-02");
  EXPECT_EQ(book->saveWithin({}), OVEDSError::ReadOnly);
  EXPECT_THAT(server.cards(), HasSubstr("555-01"));
}

TEST_F(LiveServer, AGroupOfAnotherProgramIsRead) {
  server.put("kim.vcf", kim("555-01"));
  server.put("choir.vcf",
             "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:choir\r\nFN:Choir\r\nN:Choir;;;;\r\n"
             "X-ADDRESSBOOKSERVER-KIND:group\r\nX-ADDRESSBOOKSERVER-MEMBER:urn:uuid:kim\r\n"
             "END:VCARD\r\n");
  ASSERT_NO_FATAL_FAILURE(open());
  refresh();
  const auto choir = book->groupByID("choir");
  ASSERT_NE(choir, nullptr);
  EXPECT_EQ(choir->persons().size(), 1U);
}

}  // namespace
