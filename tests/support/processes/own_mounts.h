#pragma once

#include <string>

/// Puts an empty file system with room for so many bytes in the place of the folder, for this
/// forked child alone. False where the system does not let it have one.
[[nodiscard]] bool mountSmallDisk(const std::string& folder, int bytes);
/// Gives it other room; its files stay.
[[nodiscard]] bool resizeSmallDisk(const std::string& folder, int bytes);

/// Takes from this forked child, even from root, the right to write into the folder: by a mount, or
/// where it can have none, by modes and, of root, by giving up that it is root.
void makeReadOnly(const std::string& folder);
/// For the parent: gives it the right back.
void makeWritable(const std::string& folder);
