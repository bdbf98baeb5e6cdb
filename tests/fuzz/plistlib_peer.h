#pragma once

#include <sys/types.h>

#include <span>
#include <string>
#include <string_view>

/// Python's plistlib in a process of its own (plistlib_peer.py), which ends with this object.
class PlistlibPeer {
 public:
  PlistlibPeer();
  PlistlibPeer(const PlistlibPeer&) = delete;
  PlistlibPeer& operator=(const PlistlibPeer&) = delete;
  ~PlistlibPeer();

  /// How the values that plistlib reads in the block differ from `description` (plist_text.h); ""
  /// when they do not.
  [[nodiscard]] std::string difference(std::span<const std::byte> block,
                                       std::string_view description);

 private:
  void send(std::string_view part) const;
  [[nodiscard]] std::string receive(std::size_t size) const;

  int socket_;
  pid_t process_;
};
