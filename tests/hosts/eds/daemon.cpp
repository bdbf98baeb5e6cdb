#include "daemon.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

std::vector<char*> pointers(std::vector<std::string>& texts) {
  std::vector<char*> all;
  for (std::string& text : texts) all.push_back(text.data());
  all.push_back(nullptr);
  return all;
}

}  // namespace

Daemon::Daemon(const std::vector<std::string>& command, const std::vector<std::string>& environment,
               int inherited, const std::function<void()>& prepare) {
  std::vector<std::string> words = command;
  std::vector<std::string> variables = environment;
  const auto arguments = pointers(words);
  const auto surroundings = pointers(variables);
  const pid_t parent = getpid();
  id_ = fork();
  if (id_ != 0) return;
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != parent) _exit(1);
  if (inherited >= 0) fcntl(inherited, F_SETFD, 0);
  // A file that may not grow is an error for it and for what it starts, not the end.
  ::signal(SIGXFSZ, SIG_IGN);
  if (prepare) prepare();
  const int log = open("/dev/null", O_RDWR);
  for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(log, standard);
  execvpe(arguments.front(), arguments.data(), surroundings.data());
  _exit(127);
}

Daemon::~Daemon() {
  send(SIGKILL);
  ::waitpid(id_, nullptr, 0);
}

void Daemon::send(int signal) const { ::kill(id_, signal); }
