#pragma once

#include <cstdint>
#include <optional>
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
/// The connection stays open from one call to the next. It does not survive a fork: close it first.
/// One thread at a time.
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
  /// What `read` gives, unless nobody else has changed anything since this was last called. A file
  /// that is not a database is left where it is: an error.
  [[nodiscard]] std::optional<Values> readIfChanged(Deadline& deadline);
  /// Writes all of the changes or none. They survive the death of the process from then on; other
  /// entries stay as they are.
  void write(const std::vector<Change>& changes, Deadline& deadline);
  /// Makes what was written survive a loss of power.
  void flush(Deadline& deadline);
  /// The next call opens the database again, and reads it.
  void close() noexcept { connection_.reset(); }

  /// The new names of what had to be moved aside since this was last asked; "" for nothing.
  [[nodiscard]] std::string takeMovedAside() { return std::exchange(movedAside_, {}); }

 private:
  using Connection = std::unique_ptr<DefaultsFile::Connection>;

  template <class Work>
  void work(Deadline& deadline, Work work);
  template <class Work>
  void workWithoutMending(Deadline& deadline, Work work);
  void noteMoved(const std::vector<std::string>& names);

  DefaultsFile file_;
  Connection connection_;
  std::optional<std::int64_t> versionRead_;
  std::string movedAside_;
};

}  // namespace ov
