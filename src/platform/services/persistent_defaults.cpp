#include "platform/services/persistent_defaults.h"

#include <atomic>
#include <exception>
#include <mutex>
#include <utility>
#include <vector>

#include <OVAddressBookSDK/log.h>

#include "platform/services/cached_values.h"
#include "platform/services/deadline.h"
#include "platform/services/defaults_database.h"

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
      wasRead_ = true;
      return done;
    });
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
    try {
      work();
      return true;
    } catch (const std::exception& error) {
      failure_ = error.what();
      return false;
    }
  }

  /// Works with the database for a bounded time and then, without any lock, logs what there is to
  /// log: a failure once, until all is saved again.
  template <class Work>
  bool withDatabase(Work work) {
    std::vector<std::string> lines;
    bool done = false;
    {
      const std::lock_guard lock(mutex_);
      Deadline deadline(longestWait_);
      done = work(deadline);
      if (const std::string names = database_.takeMovedAside(); !names.empty()) {
        lines.push_back("User defaults: no sound database; what stood there is kept as " + names);
      }
      if (!done && !std::exchange(failing_, true)) {
        lines.push_back("User defaults in \"" + directory_ + "\" stay in memory: " + failure_);
      }
      if (done && values.unsaved().empty()) failing_ = false;
    }
    for (const auto& line : lines) OVLog::sharedLog()->log(line);
    return done;
  }

  const std::string directory_;
  const std::chrono::milliseconds longestWait_;
  std::mutex mutex_;  // of what follows
  DefaultsDatabase database_;
  std::string failure_;
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
