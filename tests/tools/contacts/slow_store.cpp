#include "slow_store.h"

#include <utility>

using ovcontacts::LiveCall;

void SlowStore::hold() {
  const std::lock_guard lock(mutex_);
  isHeld_ = true;
}

void SlowStore::answer() {
  const std::lock_guard lock(mutex_);
  isHeld_ = false;
  changed_.notify_all();
}

bool SlowStore::isAsked() {
  const std::lock_guard lock(mutex_);
  return waiting_ != 0;
}

bool SlowStore::wait(const LiveCall& call) {
  bool isAnswered = false;
  call.around([&] {
    std::unique_lock lock(mutex_);
    ++waiting_;
    isAnswered = changed_.wait(lock, call.stop, [this] { return !isHeld_; });
    --waiting_;
  });
  return isAnswered;
}

void SlowStore::tell() {
  std::function<void()> callback;
  {
    const std::lock_guard lock(mutex_);
    callback = callback_;
  }
  if (callback) callback();
}

void SlowStore::change(std::function<void(ovcontacts::LiveChanges&)> change) {
  {
    const std::lock_guard lock(mutex_);
    news_ = std::move(change);
  }
  hasNews_ = true;
  tell();
}

void SlowStore::become(ovcontacts::LiveState state) {
  state_ = state;
  tell();
}

void SlowStore::setCallback(std::function<void()> callback) {
  const std::lock_guard lock(mutex_);
  callback_ = std::move(callback);
}

QString SlowStore::save(const LiveCall& call) {
  if (!wait(call)) return QStringLiteral("It was cancelled.");
  if (wrong.isEmpty()) ++saves;
  return wrong;
}

QString SlowStore::refresh(const LiveCall& call) {
  if (!wait(call)) return QStringLiteral("It was cancelled.");
  ++refreshes;
  return {};
}

QString SlowStore::apply(const LiveCall& call, ovcontacts::LiveChanges& changes) {
  if (!wait(call)) return QStringLiteral("It was cancelled.");
  hasNews_ = false;
  if (news_) std::exchange(news_, {})(changes);
  return {};
}

std::vector<ovcontacts::LiveConflict> SlowStore::conflicts() const { return open; }

void SlowStore::resolve(const OVString& conflictID, ovcontacts::LiveChoice choice) {
  std::erase_if(open, [&](const auto& each) { return each.ID == conflictID; });
  choices.push_back(choice);
}

void SlowSources::answer() {
  isHeld_ = false;
  isHeld_.notify_all();
}

SlowSources::Sources SlowSources::list() {
  isHeld_.wait(true);
  class Source final : public ovcontacts::BookSource {
   public:
    explicit Source(std::shared_ptr<SlowStore> store) : store_(std::move(store)) {}

   private:
    [[nodiscard]] QString name() const override { return QStringLiteral("Study & Sea"); }
    [[nodiscard]] ovcontacts::OpenedBook open(const Progress&,
                                              const ovcontacts::Cancellation&) override {
      return {store_->book, ovcontacts::Format::Live, {}, {}, store_};
    }
    std::shared_ptr<SlowStore> store_;
  };
  return {std::make_shared<Source>(store_)};
}
