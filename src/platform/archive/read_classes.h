#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "platform/archive/class_table.h"
#include "platform/archive/read_leaves.h"
#include "platform/archive/read_objects.h"

namespace ov::detail {

/// What an archive says of a class.
struct ArchivedClass {
  OVString name;
  std::vector<OVString> classes;
  std::vector<OVString> hints;
  const OVClass* known = nullptr;  // null: opaque, or of the archive's own forms
  const OVClass* form = nullptr;   // the library's class of that name
  bool isHosts = false;
};

/// The records of an archive's classes, each read once.
class ReadClasses {
 public:
  ReadClasses(PlistReader& plist, const ReadObjects& objects, ReadLeaves& leaves,
              ClassLookup classes)
      : plist_(plist), objects_(objects), leaves_(leaves), lookUp_(classes) {}

  /// The record that an item refers to. Stays where it is. Throws `OVInvalidArchive` where there is
  /// none.
  [[nodiscard]] const ArchivedClass& record(std::uint64_t item);

 private:
  ArchivedClass read(std::uint64_t uid);
  std::vector<OVString> texts(const PlistItem& array);

  PlistReader& plist_;
  const ReadObjects& objects_;
  ReadLeaves& leaves_;
  ClassLookup lookUp_;
  std::unordered_map<std::uint64_t, ArchivedClass> records_;
};

}  // namespace ov::detail
