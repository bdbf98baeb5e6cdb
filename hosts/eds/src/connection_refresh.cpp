#include <libebook/libebook.h>

#include "connection.h"

namespace ov::eds {

namespace {

/// A refresh that the service does not begin is asked for again: it forgets those that come while
/// it finds out who asks.
constexpr std::chrono::seconds kPatience{2};

}  // namespace

Connection::Outcome Connection::refresh(const Call& call) {
  if (isLocal_) return {};
  session_->credentials().forgive(uid_);
  isOffline_ = false;
  const ServiceCall whole(session_->worker(), call);
  for (;;) {
    int ended = 0;
    {
      const std::lock_guard lock(mutex_);
      ended = refreshesEnded_;
    }
    Outcome outcome =
        request(call, true, [](EBookClient* book, GCancellable* cancellable, GError** error) {
          e_client_refresh_sync(E_CLIENT(book), cancellable, error);
        });
    if (outcome.error) return outcome;
    // A stop and the deadline come through the cancellable, which tells this thread.
    const gulong handler = g_cancellable_connect(
        whole.cancellable(),
        G_CALLBACK(+[](GCancellable* /*cancellable*/, gpointer self) {
          static_cast<Connection*>(self)->changed_.notify_all();
        }),
        this, nullptr);
    bool isOver = false;
    bool wasAsked = false;
    {
      std::unique_lock lock(mutex_);
      const auto again = std::min(whole.deadline(), Worker::Clock::now() + kPatience);
      changed_.wait_until(lock, again, [&] {
        if (refreshesEnded_ != ended || isGone_ || whole.ended()) return true;
        if (state() == OVEDSState::CredentialsNeeded) {
          wasAsked = true;
          return !session_->credentials().mayAnswer(uid_);
        }
        return wasAsked && state() != OVEDSState::Offline;
      });
      isOver = refreshesEnded_ != ended;
    }
    g_cancellable_disconnect(whole.cancellable(), handler);
    if (isGone_) return {OVEDSError::NoBook};
    if (state() == OVEDSState::CredentialsNeeded && !session_->credentials().mayAnswer(uid_)) {
      return {OVEDSError::CredentialsNeeded};
    }
    if (isOver) {
      inbox_.addIncomplete();
      if (isOffline_) return {OVEDSError::Offline};
      if (state() == OVEDSState::Offline) return {OVEDSError::Offline};
      waitsForServer_ = false;
      return {};
    }
    if (const auto early = whole.ended()) return {early};
  }
}

}  // namespace ov::eds
