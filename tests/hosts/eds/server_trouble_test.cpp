#include <mutex>
#include <optional>
#include <thread>

#include "live_server.h"

namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::Not;
using LiveServerTrouble = LiveServer;

TEST_F(LiveServerTrouble, WhatIsSavedWhileTheServerIsAwayWaitsInTheBook) {
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

TEST_F(LiveServerTrouble, AWrongPasswordIsToldAndAskedForAFewTimesOnly) {
  server.put("kim.vcf", kim("555-01"));
  ASSERT_NO_FATAL_FAILURE(open("kaya", "wrong"));
  EXPECT_EQ(book->refresh(), OVEDSError::CredentialsNeeded);
  EXPECT_EQ(book->state(), OVEDSState::CredentialsNeeded);
  EXPECT_EQ(book->allPersonsCount(), 0U);
  EXPECT_LE(questions, 20);
}

TEST_F(LiveServerTrouble, ChangesMadeWithoutAPasswordArriveLater) {
  std::mutex mutex;
  std::optional<OVEDSCredentialsRequest> asked;
  ASSERT_NO_FATAL_FAILURE(openWith([&](const OVEDSCredentialsRequest& request) {
    const std::lock_guard lock(mutex);
    asked = request;
  }));
  EXPECT_EQ(book->refresh({300ms}), std::errc::timed_out);
  EXPECT_TRUE(eventually([&] { return book->state() == OVEDSState::CredentialsNeeded; }));
  setName(book->newPerson(), "Mira", "Halonen");
  EXPECT_FALSE(book->saveWithin({})) << book->saveError().message();
  EXPECT_EQ(book->state(), OVEDSState::CredentialsNeeded);
  EXPECT_TRUE(book->waitsForServer());
  EXPECT_THAT(server.cards(), Not(HasSubstr("Halonen")));
  {
    const std::lock_guard lock(mutex);
    ASSERT_TRUE(asked);
    asked->answer({"kaya", "secret"});
  }
  EXPECT_FALSE(book->refresh());
  EXPECT_EQ(book->state(), OVEDSState::Connected);
  EXPECT_FALSE(book->waitsForServer());
  EXPECT_TRUE(eventually([&] { return server.cards().find("Halonen") != std::string::npos; }));
}

TEST_F(LiveServerTrouble, ABookWhoseServerNeverAnsweredMayOnlyBeRead) {
  server.stop();
  ASSERT_NO_FATAL_FAILURE(open());
  EXPECT_EQ(book->refresh(), OVEDSError::Offline);
  EXPECT_EQ(book->state(), OVEDSState::Offline);
  EXPECT_EQ(book->newPerson(), nullptr);
}

TEST_F(LiveServerTrouble, ChangesMadeWhileTheServiceDoesNotReachTheServerArriveLater) {
  server.put("kim.vcf", kim("555-01"));
  ASSERT_NO_FATAL_FAILURE(open());
  refresh();
  server.stop();
  // The next process of the service has never seen the server.
  kill(Desktop::ofThisProcess().factory().value(), SIGKILL);
  setPhone(personOf(*book, "kim"), "555-02");
  EXPECT_FALSE(book->saveWithin({})) << book->saveError().message();
  EXPECT_TRUE(book->waitsForServer());
  EXPECT_EQ(book->refresh(), OVEDSError::Offline);
  EXPECT_TRUE(book->waitsForServer());
  EXPECT_THAT(server.cards(), HasSubstr("555-01"));
  server.start();
  refresh();
  EXPECT_EQ(book->state(), OVEDSState::Connected);
  EXPECT_FALSE(book->waitsForServer());
  EXPECT_TRUE(eventually([&] { return server.cards().find("555-02") != std::string::npos; }));
  EXPECT_EQ(phoneOf(personOf(*book, "kim")), OVString("555-02"));
}

TEST_F(LiveServerTrouble, ASilentServerKeepsNoCallBeyondItsDeadline) {
  server.put("kim.vcf", kim("555-01"));
  ASSERT_NO_FATAL_FAILURE(open());
  refresh();
  server.fallSilent();
  std::stop_source source;
  {
    const std::jthread stopper([&] { source.request_stop(); });
    EXPECT_EQ(book->refresh({1h, source.get_token()}), std::errc::operation_canceled);
  }
  EXPECT_EQ(book->refresh({100ms}), std::errc::timed_out);
  EXPECT_EQ(book->refresh({0ms}), std::errc::timed_out);
  setPhone(personOf(*book, "kim"), "555-02");
  EXPECT_EQ(book->saveWithin({100ms}), std::errc::timed_out);
  EXPECT_EQ(phoneOf(personOf(*book, "kim")), OVString("555-02"));
  server.goOn();
  EXPECT_FALSE(book->saveWithin({})) << book->saveError().message();
  EXPECT_THAT(server.cards(), HasSubstr("555-02"));
}

}  // namespace
