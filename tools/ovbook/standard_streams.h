#pragma once

namespace ovbook {

class LiveBooks;

/// The command as a program: `run` on the arguments and streams of the process.
[[nodiscard]] int runOnStandardStreams(int argc, char** argv, const LiveBooks* live = nullptr);

}  // namespace ovbook
