// All books share a session. The callback for passwords has a lock of its own, so that setting it
// never waits for a session that is being opened.

#include <memory>
#include <mutex>
#include <utility>

#include <OVAddressBookEDS/eds_session.h>
#include <OVAddressBookQt/qt_text.h>

#include "live/eds/desktop_book.h"
#include "live/live_sources.h"

namespace ovcontacts {

namespace {

using ov::qt::ovString;
using ov::qt::qString;

/// One session for as long as somebody uses it, opened when it is needed.
class Session : public std::enable_shared_from_this<Session> {
 public:
  using Callback = std::function<void(const PasswordRequest&)>;

  void setCallback(Callback callback) {
    const std::lock_guard lock(mutex_);
    callback_ = std::move(callback);
  }

  OVRef<OVEDSSession> get() {
    const std::lock_guard lock(openingMutex_);
    if (session_ != nullptr && session_->state() == OVEDSSessionState::Connected) return session_;
    std::error_code error;
    session_ = OVEDSSession::open(error, [weak = weak_from_this()](const auto& request) {
      if (const auto session = weak.lock()) session->ask(request);
    });
    if (session_ == nullptr) throw OpeningError(wordsFor(error));
    return session_;
  }

 private:
  void ask(const OVEDSCredentialsRequest& request) {
    Callback callback;
    {
      const std::lock_guard lock(mutex_);
      callback = callback_;
    }
    if (!callback) return;
    callback({qString(request.bookUID), qString(request.bookName), qString(request.user),
              request.wasRejected,
              [answer = request.answer](const QString& user, const QString& password) {
                answer({user.isEmpty() ? OVString() : ovString(user), ovString(password)});
              }});
  }

  std::mutex mutex_;
  Callback callback_;
  std::mutex openingMutex_;
  OVRef<OVEDSSession> session_;
};

class DesktopSource final : public BookSource {
 public:
  DesktopSource(std::shared_ptr<Session> session, OVEDSBookInfo info)
      : session_(std::move(session)), info_(std::move(info)) {}

  [[nodiscard]] QString name() const override { return qString(info_.name); }

  [[nodiscard]] OpenedBook open(const Progress& progress,
                                const Cancellation& cancellation) override {
    ov::eds::Call call;
    call.stop = cancellation.token();
    std::error_code error;
    const auto book = session_->get()->openBook(info_.uid, error, call);
    if (book != nullptr) error = book->load(progress, call);
    cancellation.check();
    if (error) throw OpeningError(wordsFor(error));
    return {book, Format::Live, {}, {}, std::make_shared<DesktopBook>(book)};
  }

 private:
  const std::shared_ptr<Session> session_;
  const OVEDSBookInfo info_;
};

class DesktopSources final : public LiveSources {
 public:
  ~DesktopSources() override { session_->setCallback({}); }

  [[nodiscard]] Sources list() override {
    Sources sources;
    for (const OVEDSBookInfo& info : session_->get()->books()) {
      sources.push_back(std::make_shared<DesktopSource>(session_, info));
    }
    return sources;
  }
  void setPasswordCallback(std::function<void(const PasswordRequest&)> callback) override {
    session_->setCallback(std::move(callback));
  }

 private:
  const std::shared_ptr<Session> session_ = std::make_shared<Session>();
};

}  // namespace

std::shared_ptr<LiveSources> liveSources() { return std::make_shared<DesktopSources>(); }

}  // namespace ovcontacts
