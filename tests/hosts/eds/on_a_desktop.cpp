// on_a_desktop PROGRAM [ARGUMENT ...]: runs a program on a desktop of its own.
#include <sys/wait.h>
#include <unistd.h>

#include <vector>

#include "desktop.h"

int main(int /*count*/, char** words) {
  Desktop::ofThisProcess();
  const pid_t child = fork();
  if (child == 0) {
    execvp(words[1], words + 1);
    _exit(127);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}
