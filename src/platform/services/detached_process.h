#pragma once

#include <string>

namespace ov {

/// Runs a program with one argument as a process that has nothing to do with this one any more: a
/// session of its own, no child of ours, standard streams on /dev/null, no other descriptor, no
/// blocked or ignored signal. Waits for nothing that the program does. False when no process could
/// be made; a program that cannot be executed is not noticed.
[[nodiscard]] bool startDetached(const std::string& program, const std::string& argument);

}  // namespace ov
