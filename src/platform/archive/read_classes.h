#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "platform/archive/class_table.h"
#include "platform/archive/plain_entries.h"
#include "platform/archive/read_leaves.h"
#include "platform/archive/read_objects.h"

namespace ov::detail {

/// What an archive says of a class.
struct ArchivedClass {
  OVString name;
  std::vector<OVString> classes;
  std::vector<OVString> hints;
  const OVClass* known = nullptr;  // null: opaque, or of the archive's own forms
  bool isHosts = false;
};

/// The records of an archive's classes, each read once.
class ReadClasses {
 public:
  enum class Known : std::uint8_t { registeredClasses, noClasses };

  ReadClasses(const PlistReader& plist, ReadingBudget& budget, ReadObjects& objects,
              ReadLeaves& leaves, Known known)
      : plist_(plist), budget_(budget), objects_(objects), leaves_(leaves), known_(known) {}

  /// Stays where it is. Throws `OVInvalidArchive` where there is no class record.
  [[nodiscard]] const ArchivedClass& record(std::uint64_t uid);

 private:
  ArchivedClass read(std::uint64_t uid);
  std::vector<OVString> texts(const PlistItem& array);

  const PlistReader& plist_;
  ReadingBudget& budget_;
  ReadObjects& objects_;
  ReadLeaves& leaves_;
  Known known_;
  std::unordered_map<std::uint64_t, ArchivedClass> records_;
};

}  // namespace ov::detail
