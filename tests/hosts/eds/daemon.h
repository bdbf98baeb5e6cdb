#pragma once

#include <sys/types.h>

#include <functional>
#include <string>
#include <vector>

/// A process that is killed when this object goes.
class Daemon {
 public:
  /// `prepare` is called in the process before the command.
  Daemon(const std::vector<std::string>& command, const std::vector<std::string>& environment,
         int inherited = -1, const std::function<void()>& prepare = {});
  Daemon(const Daemon&) = delete;
  Daemon& operator=(const Daemon&) = delete;
  ~Daemon();
  void send(int signal) const;

 private:
  pid_t id_;
};
