#include "live_server.h"

LiveServer::LiveServer() { Desktop::ofThisProcess(); }

LiveServer::~LiveServer() {
  book = nullptr;
  if (session != nullptr) (void)session->removeBook(uid);
}

void LiveServer::open(const char* user, const char* password) {
  openWith(
      [this, password](const OVEDSCredentialsRequest& request) {
        ++questions;
        EXPECT_EQ(request.bookName, OVString("Study"));
        request.answer({nullptr, password});
      },
      user);
}

void LiveServer::openWith(OVEDSSession::CredentialsCallback answer, const char* user) {
  std::error_code error;
  session = OVEDSSession::open(error, std::move(answer));
  ASSERT_FALSE(error) << error.message();
  uid = session->addCardDAVBook("Study", {OVString(server.url()), user}, error);
  ASSERT_FALSE(error) << error.message();
  book = session->openBook(uid, error);
  ASSERT_FALSE(error) << error.message();
  ASSERT_FALSE(book->load());
}

void LiveServer::refresh() {
  const auto error = book->refresh();
  EXPECT_FALSE(error) << error.message();
  std::error_code applied;
  (void)book->applyChanges(applied);
  EXPECT_FALSE(applied) << applied.message();
}

Outcome LiveServer::onTheOtherMachine(const std::vector<std::string>& words) {
  if (!other) other.emplace();
  std::vector<std::string> command{OV_OTHER_MACHINE, server.url()};
  command.insert(command.end(), words.begin(), words.end());
  Surroundings surroundings;
  surroundings.environment = other->environment();
  return runProgram(command, surroundings);
}

std::string LiveServer::kim(const std::string& phone) {
  return "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:kim\r\nFN:Kim\r\nN:Kim;;;;\r\nTEL;TYPE=WORK:" + phone +
         "\r\nX-ODD:left alone\r\nEND:VCARD\r\n";
}
