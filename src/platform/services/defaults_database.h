#pragma once

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>

#include "platform/services/deadline.h"
#include "platform/services/defaults_file.h"

namespace ov {

/// The values of one application in its database. Failures throw a `std::exception`.
///
/// The database is open only while a call works on it: a connection does not survive a fork, and so
/// a fork finds none. One thread at a time.
class DefaultsDatabase {
 public:
  using Values = std::unordered_map<OVString, OVRef<OVObject>>;
  struct Change {
    OVString key;
    /// Null removes the entry.
    OVRef<OVObject> object;
  };

  explicit DefaultsDatabase(std::string directory) : file_(std::move(directory)) {}

  [[nodiscard]] Values read(Deadline& deadline);
  /// Writes all of the changes or none. They survive the death of the process from then on; other
  /// entries stay as they are.
  void write(const std::vector<Change>& changes, Deadline& deadline);
  /// Makes what was written survive a loss of power.
  void flush(Deadline& deadline);

  /// The new names of what had to be moved aside since this was last asked; "" for nothing.
  [[nodiscard]] std::string takeMovedAside() { return std::exchange(movedAside_, {}); }

 private:
  template <class Work>
  void work(Deadline& deadline, Work work);
  void noteMoved(const std::vector<std::string>& names);

  DefaultsFile file_;
  std::string movedAside_;
};

}  // namespace ov
