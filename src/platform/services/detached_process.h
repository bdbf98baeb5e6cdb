#pragma once

#include <string>

namespace ov {

/// Runs a program with one argument as a process that has nothing to do with this one any more: a
/// session of its own, no child of ours, standard streams on /dev/null, no other descriptor, no
/// blocked or ignored signal. Waits for nothing that the program does, and takes no longer in a
/// process with much memory. False when the program could not be started.
[[nodiscard]] bool startDetached(const std::string& program, const std::string& argument);

}  // namespace ov
