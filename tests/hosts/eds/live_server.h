#pragma once

#include <atomic>
#include <optional>

#include "dav_server.h"
#include "live_test.h"

/// A session that gives a password, and a book of a CardDAV server.
class LiveServer : public testing::Test {
 protected:
  LiveServer();
  ~LiveServer() override;

  /// Both are null until this has been called.
  void open(const char* user = "kaya", const char* password = "secret");
  /// The same, with another answer to the server.
  void openWith(OVEDSSession::CredentialsCallback answer, const char* user = "kaya");
  /// Asks the server, and shows what it says.
  void refresh();
  /// The other machine of the user, with a desktop of its own: runs commands with our own session
  /// there (see other_machine.cpp).
  Outcome onTheOtherMachine(const std::vector<std::string>& words);

  static std::string kim(const std::string& phone);

  DavServer server;
  OVRef<OVEDSSession> session;
  OVRef<OVEDSBook> book;
  OVString uid;
  std::optional<Desktop> other;
  std::atomic<int> questions = 0;
};
