#include "platform/services/fork_guard.h"

#include <pthread.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <system_error>
#include <utility>

namespace ov {

namespace {

constexpr std::size_t kMaxPermanent = 8;

constinit std::array<std::atomic<std::mutex*>, kMaxPermanent> everlasting{};
constinit std::atomic<std::size_t> everlastingCount = 0;

}  // namespace

class ForkGuards {
 public:
  static void add(ForkGuard& guard) {
    watchForks();
    const std::lock_guard lock(mutex_);
    guard.older_ = newest_;
    if (newest_ != nullptr) newest_->newer_ = &guard;
    newest_ = &guard;
  }

  static void remove(ForkGuard& guard) {
    const std::lock_guard lock(mutex_);
    (guard.newer_ == nullptr ? newest_ : guard.newer_->older_) = guard.older_;
    if (guard.older_ != nullptr) guard.older_->newer_ = guard.newer_;
  }

  static void letForksPass() {
    if (isForking_.load(std::memory_order_relaxed)) const std::lock_guard wait(forking_);
  }

  static void watchForks() {
    static const int error = pthread_atfork(&hold, &release, &release);
    if (error != 0) throw std::system_error(error, std::generic_category(), "pthread_atfork");
  }

 private:
  static void hold() {
    forking_.lock();
    isForking_.store(true, std::memory_order_relaxed);
    for (std::size_t i = 0; i < kMaxPermanent; ++i) {
      held_[i] = everlasting[i].load(std::memory_order_acquire);
      if (held_[i] != nullptr) held_[i]->lock();
    }
    mutex_.lock();
    for (const ForkGuard* at = newest_; at != nullptr; at = at->older_) {
      at->mutex_.lock();
      if (at->beforeFork_) at->beforeFork_();
    }
  }

  static void release() {
    for (const ForkGuard* at = newest_; at != nullptr; at = at->older_) at->mutex_.unlock();
    mutex_.unlock();
    for (std::mutex* held : held_) {
      if (held != nullptr) held->unlock();
    }
    isForking_.store(false, std::memory_order_relaxed);
    forking_.unlock();
  }

  static constinit std::mutex forking_;  // one fork at a time
  static constinit std::atomic<bool> isForking_;
  static constinit std::array<std::mutex*, kMaxPermanent> held_;
  static constinit std::mutex mutex_;  // of the list
  static constinit ForkGuard* newest_;
};

constinit std::mutex ForkGuards::forking_;
constinit std::atomic<bool> ForkGuards::isForking_ = false;
constinit std::array<std::mutex*, kMaxPermanent> ForkGuards::held_{};
constinit std::mutex ForkGuards::mutex_;
constinit ForkGuard* ForkGuards::newest_ = nullptr;

ForkGuard::ForkGuard(std::mutex& mutex, std::function<void()> beforeFork)
    : mutex_(mutex), beforeFork_(std::move(beforeFork)) {
  ForkGuards::add(*this);
}

ForkGuard::~ForkGuard() { ForkGuards::remove(*this); }

void ForkGuard::letForksPass() { ForkGuards::letForksPass(); }

void guardForever(std::mutex& mutex) {
  ForkGuards::watchForks();
  everlasting.at(everlastingCount++).store(&mutex, std::memory_order_release);
}

}  // namespace ov
