#pragma once

#include <libebook/libebook.h>

#include <atomic>
#include <memory>
#include <string>
#include <system_error>

#include <OVAddressBookEDS/eds_session.h>

#include "credentials.h"
#include "glib_ptr.h"
#include "service_call.h"
#include "worker.h"

namespace ov::eds {

/// What the books of a session share: its thread and the list of sources.
class Session : public std::enable_shared_from_this<Session> {
 public:
  [[nodiscard]] static std::shared_ptr<Session> open(OVEDSSession::CredentialsCallback ask,
                                                     const Call& call, std::error_code& error);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  ~Session();

  [[nodiscard]] Worker& worker() { return *worker_; }
  /// Safe on any thread.
  [[nodiscard]] ESourceRegistry* registry() const { return registry_.get(); }
  /// Null when there is none.
  [[nodiscard]] GRef<ESource> source(const std::string& uid) const {
    return GRef<ESource>(e_source_registry_ref_source(registry(), uid.c_str()));
  }
  [[nodiscard]] Credentials& credentials() { return credentials_; }
  [[nodiscard]] bool isGone() const { return isGone_; }

 private:
  explicit Session(OVEDSSession::CredentialsCallback ask);
  [[nodiscard]] std::error_code connect(const Call& call);
  [[nodiscard]] std::error_code connectRegistry(const ServiceCall& request);
  void watch();

  const std::shared_ptr<Worker> worker_ = Worker::ofThisProcess();
  Credentials credentials_;
  std::atomic<bool> isGone_{false};
  GRef<GDBusConnection> bus_;
  guint busWatch_ = 0;  // of the session's thread
  std::shared_ptr<ESourceRegistry> registry_;
};

}  // namespace ov::eds
