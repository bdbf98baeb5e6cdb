#pragma once

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>

#include <OVAddressBookVCard/vcard_book.h>

#include "live/live_book.h"
#include "live/live_sources.h"

/// A live book whose store answers when it is allowed to.
class SlowStore final : public ovcontacts::LiveBook {
 public:
  explicit SlowStore(OVRef<OVVCardBook> itsBook) : book(std::move(itsBook)) {}

  /// From now on the store does not answer, or does again.
  void hold();
  void answer();
  /// Whether somebody waits for an answer.
  [[nodiscard]] bool isAsked();
  /// What others do, which shows once it has been applied.
  void change(std::function<void(ovcontacts::LiveChanges&)> change);
  void become(ovcontacts::LiveState state);

  [[nodiscard]] QString save(const ovcontacts::LiveCall& call) override;
  [[nodiscard]] QString refresh(const ovcontacts::LiveCall& call) override;
  [[nodiscard]] QString apply(const ovcontacts::LiveCall& call,
                              ovcontacts::LiveChanges& changes) override;
  [[nodiscard]] std::vector<ovcontacts::LiveConflict> conflicts() const override;
  void resolve(const OVString& conflictID, ovcontacts::LiveChoice choice) override;
  [[nodiscard]] ovcontacts::LiveState state() const override { return state_; }
  [[nodiscard]] bool hasNews() const override { return hasNews_; }
  [[nodiscard]] bool waitsForServer() const override { return false; }
  void setCallback(std::function<void()> callback) override;

  const OVRef<OVVCardBook> book;
  /// What a save says that went wrong.
  QString wrong;
  std::vector<ovcontacts::LiveConflict> open;
  std::vector<ovcontacts::LiveChoice> choices;
  int saves = 0;
  int refreshes = 0;

 private:
  /// False when it was stopped.
  bool wait(const ovcontacts::LiveCall& call);
  void tell();

  std::mutex mutex_;
  std::condition_variable_any changed_;
  bool isHeld_ = false;
  int waiting_ = 0;
  std::function<void(ovcontacts::LiveChanges&)> news_;
  std::atomic<bool> hasNews_{false};
  std::atomic<ovcontacts::LiveState> state_{ovcontacts::LiveState::Connected};
  std::function<void()> callback_;
};

/// A desktop with one live book, which it lists when it is allowed to.
class SlowSources final : public ovcontacts::LiveSources {
 public:
  explicit SlowSources(std::shared_ptr<SlowStore> store) : store_(std::move(store)) {}

  void hold() { isHeld_ = true; }
  void answer();
  void ask(const ovcontacts::PasswordRequest& request) { callback_(request); }

  [[nodiscard]] Sources list() override;
  void setPasswordCallback(
      std::function<void(const ovcontacts::PasswordRequest&)> callback) override {
    callback_ = std::move(callback);
  }

 private:
  const std::shared_ptr<SlowStore> store_;
  std::atomic<bool> isHeld_{false};
  std::function<void(const ovcontacts::PasswordRequest&)> callback_;
};
