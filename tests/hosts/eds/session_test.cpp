#include <signal.h>

#include <thread>

#include "live_test.h"

namespace {

using namespace std::chrono_literals;
using LiveSession = LiveTest;

std::optional<OVEDSBookInfo> infoOf(const OVEDSSession& session, const OVString& uid) {
  for (const OVEDSBookInfo& book : session.books()) {
    if (book.uid == uid) return book;
  }
  return std::nullopt;
}

/// The service's process for books stands still meanwhile.
class Standstill {
 public:
  Standstill() : factory_(Desktop::ofThisProcess().factory().value()) { kill(factory_, SIGSTOP); }
  Standstill(const Standstill&) = delete;
  Standstill& operator=(const Standstill&) = delete;
  ~Standstill() { kill(factory_, SIGCONT); }

 private:
  pid_t factory_;
};

TEST_F(LiveSession, ListsTheDesktopsOwnBookAsTheDefault) {
  const auto system = infoOf(*session, "system-address-book");
  ASSERT_TRUE(system);
  EXPECT_TRUE(system->isDefault);
  EXPECT_TRUE(system->isWritable);
  EXPECT_EQ(system->kind, OVEDSBookKind::Local);
}

TEST_F(LiveSession, MakesAndRemovesALocalBook) {
  const auto made = infoOf(*session, bookUID);
  ASSERT_TRUE(made);
  EXPECT_EQ(made->name, OVString("Study"));
  EXPECT_EQ(made->kind, OVEDSBookKind::Local);
  EXPECT_FALSE(made->isDefault);
  EXPECT_FALSE(session->removeBook(bookUID));
  EXPECT_TRUE(eventually([&] { return !infoOf(*session, bookUID); }));
  EXPECT_EQ(session->removeBook(bookUID), OVEDSError::NoBook);
}

TEST_F(LiveSession, ACardDAVBookNeedsAUsableURL) {
  std::error_code error;
  for (const char* url : {"", "no url", "ftp://example.org/", "http:///"}) {
    EXPECT_TRUE(session->addCardDAVBook("Study", {url, "kaya"}, error).isNull()) << url;
    EXPECT_EQ(error, std::errc::invalid_argument) << url;
  }
}

TEST_F(LiveSession, ABookThatIsNotThereIsNotOpened) {
  std::error_code error;
  EXPECT_EQ(session->openBook("nobody", error), nullptr);
  EXPECT_EQ(error, OVEDSError::NoBook);
}

TEST_F(LiveSession, ACallEndsWithItsDeadline) {
  const auto book = openedBook();
  std::error_code error;
  const Standstill standstill;
  EXPECT_EQ(session->openBook(bookUID, error, {50ms}), nullptr);
  EXPECT_EQ(error, std::errc::timed_out);
  (void)book->newPerson();
  EXPECT_EQ(book->saveWithin({50ms}), std::errc::timed_out);
  EXPECT_EQ(book->load({}, {0ms}), std::error_code());
}

TEST_F(LiveSession, ACallWithoutTimeDoesNotBegin) {
  std::error_code error;
  EXPECT_EQ(session->openBook(bookUID, error, {0ms}), nullptr);
  EXPECT_EQ(error, std::errc::timed_out);
  EXPECT_EQ(OVEDSSession::open(error, {}, {-1ms}), nullptr);
  EXPECT_EQ(error, std::errc::timed_out);
}

TEST_F(LiveSession, ACallIsStopped) {
  const auto book = openedBook();
  (void)book->newPerson();
  const Standstill standstill;
  std::stop_source source;
  std::thread stopper([&] { source.request_stop(); });
  EXPECT_EQ(book->saveWithin({1h, source.get_token()}), std::errc::operation_canceled);
  stopper.join();
}

TEST_F(LiveSession, TellsWhenTheServiceThatListsBooksHasDied) {
  EXPECT_EQ(session->state(), OVEDSSessionState::Connected);
  const auto book = openedBook();
  kill(Desktop::ofThisProcess().registry().value(), SIGKILL);
  EXPECT_TRUE(eventually([&] { return session->state() == OVEDSSessionState::Gone; }));
  setName(book->newPerson(), "Mira", "Halonen");
  EXPECT_FALSE(book->saveWithin({}));
}

}  // namespace
