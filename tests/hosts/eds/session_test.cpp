#include <signal.h>

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

TEST_F(LiveSession, WorksOnWhenAnotherOneOfTheProcessHasEnded) {
  std::error_code error;
  const auto second = OVEDSSession::open(error);
  ASSERT_FALSE(error) << error.message();
  session = nullptr;
  const auto book = second->openBook(bookUID, error, {5s});
  ASSERT_FALSE(error) << error.message();
  ASSERT_FALSE(book->load());
  putCard("UID:kim\r\nFN:Kim\r\nN:Kim;;;;\r\n");
  EXPECT_TRUE(applied(*book, [](const auto& changes) { return changes.cameIn.size() == 1; }));
  EXPECT_FALSE(second->removeBook(bookUID));
  EXPECT_TRUE(eventually([&] { return book->state() == OVEDSState::Gone; }));
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
