#pragma once

#include <cstdint>
#include <string_view>

#include <OVAddressBookSDK/object.h>

#include "platform/archive/read_classes.h"
#include "platform/archive/read_fields.h"
#include "platform/archive/read_leaves.h"
#include "platform/archive/read_objects.h"

namespace ov::detail {

/// The forms in which archives hold texts, data, dates, lists and dictionaries as objects.
class FoundationForms {
 public:
  /// Texts and data that are objects may be left as they are, so that their classes show.
  FoundationForms(PlistReader& plist, const ReadObjects& objects, ReadLeaves& leaves,
                  ReadFields& fields, bool makesLeaves)
      : plist_(plist),
        objects_(objects),
        leaves_(leaves),
        fields_(fields),
        makesLeaves_(makesLeaves) {}

  /// The object that an archived one is: a text or data block, or a date or collection that is
  /// still empty. Null when it is neither.
  [[nodiscard]] OVRef<OVObject> make(const ArchivedClass& record, const ArchiveFields& fields);

  [[nodiscard]] static bool isList(const ArchivedClass& record);

 private:
  [[nodiscard]] bool areTexts(const PlistItem& array);
  [[nodiscard]] bool isText(std::uint64_t uid);

  PlistReader& plist_;
  const ReadObjects& objects_;
  ReadLeaves& leaves_;
  ReadFields& fields_;
  bool makesLeaves_;
};

}  // namespace ov::detail
