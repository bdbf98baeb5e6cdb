#pragma once

#include <sys/resource.h>

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

/// How a program ended and what it wrote.
struct Outcome {
  /// The exit status; minus the signal's number when a signal ended it.
  int status = 0;
  std::string out = {};
  std::string err = {};

  bool operator==(const Outcome&) const = default;
};

std::ostream& operator<<(std::ostream& stream, const Outcome& outcome);

/// What a program runs in.
struct Surroundings {
  /// Variables set on top of those of the test, as "NAME=value".
  std::vector<std::string> environment = {};
  std::string input = {};
  /// A file that standard output goes to instead of `Outcome::out`.
  std::string outputFile = {};
  /// Standard output is a pipe that nobody reads any more.
  bool outputIsBroken = false;
  bool outputIsClosed = false;
  /// Standard output is a terminal; what it shows is not kept.
  bool outputIsTerminal = false;
  /// The most bytes that a file of the program's may have.
  std::optional<rlim_t> largestFile = {};
};

/// Runs a program, `command[0]`, searched for in PATH, to its end.
[[nodiscard]] Outcome runProgram(const std::vector<std::string>& command,
                                 const Surroundings& surroundings);
