#pragma once

#include <libebook/libebook.h>

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>

#include <OVAddressBookEDS/eds_session.h>

#include "glib_ptr.h"

namespace ov::eds {

/// Brings what servers ask for to the program, and its answers to the servers.
///
/// The service asks again and again while a server refuses or is dead. An answer that the server
/// has just refused is not given again, and nobody is answered more than a few times in a row.
class Credentials {
 public:
  explicit Credentials(OVEDSSession::CredentialsCallback ask);

  /// From here on the signals of the registry come in on its thread; `leave` ends that, there.
  void watch(ESourceRegistry* registry);
  void leave();

  /// Whether somebody may answer for that source: false without a callback, and after an answer
  /// that did not help.
  [[nodiscard]] bool mayAnswer(const std::string& uid) const;
  /// How often somebody has answered for that source.
  [[nodiscard]] int answersGiven(const std::string& uid) const;
  /// Gives the source new chances.
  void forgive(const std::string& uid);

 private:
  struct Asked {
    int times = 0;
    bool isHopeless = false;
    int answers = 0;
    int refusals = 0;
    OVEDSCredentials last;
  };
  struct Shared {
    mutable std::mutex mutex;
    std::map<std::string, Asked> asked;
  };

  static void required(ESourceRegistry* registry, ESource* source, ESourceCredentialsReason reason,
                       const gchar* certificate, GTlsCertificateFlags errors, const GError* error,
                       gpointer self);
  void ask(ESource* source, bool wasRejected);
  static void answer(Shared& shared, ESource* source, bool wasRejected,
                     const OVEDSCredentials& given);

  OVEDSSession::CredentialsCallback ask_;
  ESourceRegistry* registry_ = nullptr;
  gulong handler_ = 0;
  std::shared_ptr<Shared> shared_ = std::make_shared<Shared>();
};

}  // namespace ov::eds
