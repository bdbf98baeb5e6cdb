#include "platform/services/persistent_defaults.h"

#include <atomic>
#include <exception>
#include <mutex>
#include <new>
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
      : directory_(directory), longestWait_(longestWait), database_(directory) {}

  CachedValues values;

  void readOnce() {
    if (wasRead_) return;
    withDatabase([this](Deadline& deadline) {
      const bool done = wasRead_ || attempt([&] { read(deadline); });
      // Once is enough even when it fails: the next save tries again, where a wait is expected.
      wasRead_ = done || !lacksMemory_;
      return done;
    });
    // What cannot be read now must not pass for absent.
    if (!wasRead_) throw std::bad_alloc();
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
  void read(Deadline& deadline) {
    values.refresh(database_.read(deadline));
    isKnown_ = true;
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
        lines.emplace_back("User defaults: no sound database; what stood there is kept as " +
                           names);
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
  ForkGuard guard_{mutex_};
  DefaultsDatabase database_;
  std::string failure_;
  bool lacksMemory_ = false;  // that was the last failure
  bool failing_ = false;
  std::atomic<bool> wasRead_ = false;  // read by anyone; true when reading has been tried
  bool isKnown_ = false;               // the values have been read
};

PersistentDefaults::PersistentDefaults(const std::string& directory,
                                       std::chrono::milliseconds longestWait)
    : state_(std::make_unique<State>(directory, longestWait)) {}

PersistentDefaults::~PersistentDefaults() = default;

OVRef<OVObject> PersistentDefaults::load(const OVString& key) const {
  state_->readOnce();
  return state_->values.get(key);
}

void PersistentDefaults::store(const OVRef<OVObject>& object, const OVString& key) {
  state_->values.change(key, object);
  state_->save();
}

bool PersistentDefaults::writeThrough() { return state_->saveDurablyAndRead(); }

}  // namespace ov
