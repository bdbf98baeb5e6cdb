#include "standard_streams.h"

#include <algorithm>
#include <csignal>
#include <iostream>
#include <ostream>

#include <fcntl.h>
#include <unistd.h>

#include <OVAddressBookSDK/user_defaults.h>

#include "command_line.h"
#include "output/descriptor_buffer.h"

namespace ovbook {

namespace {

/// Takes the standard descriptors that the caller left closed, so that no file of ours gets one of
/// them and what is meant for the caller ends up in it. What is written to them fails.
void occupyStandardDescriptors() {
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(descriptor, F_GETFD) != -1) continue;
    if (open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY) != descriptor) _exit(2);
  }
}

}  // namespace

int runOnStandardStreams(int argc, char** argv, const LiveBooks* live) {
  occupyStandardDescriptors();
  // A closed pipe and a full quota are reported by the write that meets them.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);

  DescriptorBuffer buffer(STDOUT_FILENO);
  std::ostream out(&buffer);
  out.exceptions(std::ios::badbit);
  OVUserDefaults::setApplicationIdentifier("ovbook");
  return run({argv + std::min(argc, 1), argv + argc}, out, std::cerr, live);
}

}  // namespace ovbook
