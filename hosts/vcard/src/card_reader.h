#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include <OVAddressBookSDK/text.h>

#include "field.h"
#include "others.h"
#include "person_draft.h"

namespace ov::vcard {

/// What the card of a group holds.
struct GroupDraft {
  struct Member {
    OVString id;
    std::size_t line = 0;
  };
  OVString name;
  std::vector<Member> members;
  /// Everything else, to be written back.
  std::vector<KeptLine> others;
};

/// The UID of a card; null when it has none.
[[nodiscard]] OVString idOf(const std::vector<Field>& fields);

/// True for the card of a group.
[[nodiscard]] bool isGroup(const std::vector<Field>& fields);

[[nodiscard]] PersonDraft readPerson(const std::vector<Field>& fields);
[[nodiscard]] GroupDraft readGroup(const std::vector<Field>& fields);

}  // namespace ov::vcard
