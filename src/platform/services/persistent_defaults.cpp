// User defaults in a database, read from memory. A look at the database's version says whether
// another process has written; only then is it read again. What cannot be written stays in memory
// and is tried again.

#include "platform/services/persistent_defaults.h"

#include <ctime>

#include <atomic>
#include <cstdint>
#include <exception>
#include <mutex>
#include <new>
#include <utility>
#include <vector>

#include <OVAddressBookSDK/log.h>

#include "platform/services/cached_values.h"
#include "platform/services/deadline.h"
#include "platform/services/defaults_database.h"
#include "platform/services/fork_guard.h"

namespace ov {

class PersistentDefaults::State {
 public:
  State(const std::string& directory, std::chrono::milliseconds longestWait)
      : directory_(directory),
        longestWait_(longestWait),
        database_(directory),
        databaseToRead_(directory) {}

  CachedValues values;

  /// Brings the values up to date with what has been committed. What cannot be read for want of
  /// memory must not pass for absent: that throws.
  void look() {
    Deadline deadline(longestWait_);
    ForkGuard::letForksPass();
    {
      const std::lock_guard lock(readMutex_);
      if (readIfChanged(deadline)) return;
    }
    // The other way moves aside what is not a database, and says what is wrong.
    bool lacksMemory = false;
    withDatabase([&](Deadline&) {
      const bool done = attempt([&] { read(deadline); });
      lacksMemory = lacksMemory_;
      return done;
    });
    if (lacksMemory) throw std::bad_alloc();
    wasRead_ = true;
  }

  /// Knows what was committed some milliseconds ago, unless that would mean to wait.
  void glance() {
    if (!wasRead_) return look();
    if (milliseconds() - lastLook_.load(std::memory_order_relaxed) < kLatest) return;
    const std::unique_lock lock(readMutex_, std::try_to_lock);
    if (!lock) return;
    Deadline none(std::chrono::milliseconds(0));
    static_cast<void>(readIfChanged(none));
  }

  void save() {
    withDatabase([this](Deadline& deadline) {
      const bool saved = attempt([&] { write(deadline); });
      return (isKnown_ || attempt([&] { read(deadline); })) && saved;
    });
  }

  /// What can be done is done, even when something before it has failed.
  bool saveDurablyAndRead() {
    return withDatabase([this](Deadline& deadline) {
      const bool saved = attempt([&] { write(deadline); });
      const bool flushed = attempt([&] { database_.flush(deadline); });
      const bool done = attempt([&] { read(deadline); });
      wasRead_ = true;
      return saved && flushed && done;
    });
  }

 private:
  static constexpr std::int64_t kLatest = 4;

  /// The clock that costs the least to look at.
  static std::int64_t milliseconds() {
    timespec now = {};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return static_cast<std::int64_t>(now.tv_sec) * 1000 + now.tv_nsec / 1'000'000;
  }

  void read(Deadline& deadline) {
    values.refresh(database_.read(deadline));
    isKnown_ = true;
  }

  /// Called with the mutex for reading held. False when it fails.
  [[nodiscard]] bool readIfChanged(Deadline& deadline) {
    lastLook_.store(milliseconds(), std::memory_order_relaxed);
    try {
      bool isCurrent = false;
      while (!isCurrent) {
        const std::uint64_t saved = values.savedBefore();
        auto changed = databaseToRead_.readIfChanged(deadline);
        isCurrent = !changed || values.refresh(std::move(*changed), saved);
        if (!isCurrent) databaseToRead_.close();
      }
      isKnown_ = true;
      wasRead_ = true;
      return true;
    } catch (const std::exception&) {
      databaseToRead_.close();
      return false;
    }
  }

  void write(Deadline& deadline) {
    const auto changes = values.unsaved();
    if (changes.empty()) return;
    database_.write(changes, deadline);
    values.markSaved(changes);
  }

  template <class Work>
  bool attempt(Work work) {
    lacksMemory_ = false;
    try {
      work();
      return true;
    } catch (const std::bad_alloc&) {
      lacksMemory_ = true;
      keepFailure("no memory");
    } catch (const std::exception& error) {
      keepFailure(error.what());
    }
    return false;
  }

  void keepFailure(const char* what) noexcept {
    try {
      failure_ = what;
    } catch (const std::bad_alloc&) {
      failure_.clear();
    }
  }

  /// Works with the database for a bounded time and then, without any lock, logs what there is to
  /// log: a failure once, until all is saved again.
  template <class Work>
  bool withDatabase(Work work) {
    std::vector<OVString> lines;
    bool done = false;
    ForkGuard::letForksPass();
    {
      const std::lock_guard lock(mutex_);
      Deadline deadline(longestWait_);
      done = work(deadline);
      lines = linesAfter(done);
    }
    for (const OVString& line : lines) OVLog::sharedLog()->log(line);
    return done;
  }

  /// A line that there is no memory for is left out.
  std::vector<OVString> linesAfter(bool done) {
    std::vector<OVString> lines;
    try {
      if (const std::string names = database_.takeMovedAside(); !names.empty()) {
        lines.emplace_back("User defaults: not a valid database; the old file is kept as " + names);
      }
      if (!done && !failing_) {
        lines.emplace_back("User defaults in \"" + directory_ + "\" stay in memory: " + failure_);
        failing_ = true;
      }
    } catch (const std::bad_alloc&) {
      lines.clear();
    }
    if (done && !values.hasUnsaved()) failing_ = false;
    return lines;
  }

  const std::string directory_;
  const std::chrono::milliseconds longestWait_;
  std::mutex mutex_;  // of what follows
  ForkGuard guard_{mutex_, [this] { database_.close(); }};
  DefaultsDatabase database_;
  std::string failure_;
  bool lacksMemory_ = false;  // that was the last failure
  bool failing_ = false;

  // Another connection, so that no reader waits for a writer that waits for another process.
  std::mutex readMutex_;
  ForkGuard readGuard_{readMutex_, [this] { databaseToRead_.close(); }};
  DefaultsDatabase databaseToRead_;

  std::atomic<std::int64_t> lastLook_ = 0;
  std::atomic<bool> wasRead_ = false;  // true when reading has been tried
  std::atomic<bool> isKnown_ = false;  // the values have been read
};

PersistentDefaults::PersistentDefaults(const std::string& directory,
                                       std::chrono::milliseconds longestWait)
    : state_(std::make_unique<State>(directory, longestWait)) {}

PersistentDefaults::~PersistentDefaults() = default;

OVRef<OVObject> PersistentDefaults::load(const OVString& key) const {
  state_->look();
  return state_->values.get(key);
}

OVRef<OVObject> PersistentDefaults::loadPreference(const OVString& key) const {
  state_->glance();
  return state_->values.get(key);
}

void PersistentDefaults::store(const OVRef<OVObject>& object, const OVString& key) {
  state_->values.change(key, object);
  state_->save();
}

bool PersistentDefaults::writeThrough() { return state_->saveDurablyAndRead(); }

}  // namespace ov
