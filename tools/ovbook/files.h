#pragma once

#include <iosfwd>
#include <string>

#include <OVAddressBookSDK/data.h>

namespace ovbook {

/// All bytes of a file, pipes included. Throws `Failure`, also for what is not a regular file and
/// has no end after 512 MiB.
[[nodiscard]] OVRef<OVData> readFile(const std::string& path);

/// Throws `Failure` for a path that is not valid UTF-8 and would lead to another file.
void checkPath(const std::string& path);

/// Whether the path is "-", which names standard output as a target.
[[nodiscard]] bool isStandardOutput(const std::string& target);

/// Throws `Failure` where bytes that are not text would go to a terminal.
void checkNoTerminal(const std::string& target);

/// Throws `Failure` when `target` cannot be replaced safely: a folder, a device, or the very file
/// that `input` names; "" for no file.
void checkTarget(const std::string& target, const std::string& input);

/// Writes the bytes whole or not at all. A new file is for the user's eyes only, an existing one
/// keeps its mode. "-" is `out`. Throws `Failure`.
void writeFile(const std::string& path, const OVRef<OVData>& data, std::ostream& out);

}  // namespace ovbook
