#pragma once

#include <sys/types.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "daemon.h"
#include "support/processes/temporary_folder.h"

/// A desktop of its own: a session bus that knows the two services for address books and nothing
/// else, so that no keyring, no prompter and no calendar starts, and a home below a temporary
/// folder.
class Desktop {
 public:
  Desktop();

  /// "NAME=value", for a process that is to run on this desktop.
  [[nodiscard]] std::vector<std::string> environment() const;
  [[nodiscard]] std::string path(std::string_view name) const { return folder_.at(name); }
  /// The process that keeps the books; nothing when none runs.
  [[nodiscard]] std::optional<pid_t> factory() const;
  [[nodiscard]] std::optional<pid_t> registry() const;
  /// Ends everything that runs on it. The next bus begins with `prepare`.
  void restart(const std::function<void()>& prepare = {});

  /// The desktop of this process: made on first use, and the environment is set to it.
  static Desktop& ofThisProcess();

 private:
  void writeServices() const;
  void start(const std::function<void()>& prepare);

  TemporaryFolder folder_;
  std::string address_;
  std::optional<Daemon> bus_;
};

/// Looks again and again, at most half a minute, until `isThere` is true. False when time was up.
[[nodiscard]] bool eventually(const std::function<bool()>& isThere);
