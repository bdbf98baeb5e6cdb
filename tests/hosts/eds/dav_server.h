#pragma once

#include <signal.h>

#include <optional>
#include <string>

#include "desktop.h"

/// A CardDAV server on the loopback, with the address book "study" of the user "kaya", whose
/// password is "secret". The user "guest", with the same password, may only read it.
class DavServer {
 public:
  DavServer();

  void start();
  void stop() { server_.reset(); }
  /// Whoever asks it waits meanwhile.
  void fallSilent() { server_->send(SIGSTOP); }
  void goOn() { server_->send(SIGCONT); }

  /// Of the address book.
  [[nodiscard]] std::string url() const;
  /// All cards of the address book, one after the other.
  [[nodiscard]] std::string cards() const;
  /// Puts a file there, as another program would.
  void put(const std::string& name, const std::string& card) const;

 private:
  [[nodiscard]] std::string collection() const;

  TemporaryFolder folder_;
  int port_;
  std::optional<Daemon> server_;
};
