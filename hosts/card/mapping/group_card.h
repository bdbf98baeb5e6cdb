#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <OVAddressBookSDK/text.h>

#include "codec/card.h"
#include "reading.h"

namespace ov::card {

/// What the card of a group says.
struct GroupReading {
  enum class Role : std::uint8_t { ID, Kind, Name, Member, Other };
  struct Member {
    OVString id;
    const Line* line;
  };

  explicit GroupReading(const Lines& lines);

  /// Null when there is none.
  OVString id;
  /// Never null.
  OVString name;
  std::vector<Member> members;
  /// One for each line.
  std::vector<Role> roles;
};

/// What is written of a group. Members are the IDs of persons and groups.
struct GroupContent {
  OVString id;
  OVString name;
  std::vector<OVString> members;
  /// As `oddLinesOf`; null for none.
  OVString oddLines;
};

/// Appends the group as a card of version 4.0. A null or empty ID is left out.
void writeGroup(const GroupContent& group, std::string& out);

/// Appends the card that the group came from, with those of its lines changed that no longer hold.
void rewriteGroup(const Card& card, const GroupContent& group, std::string& out);

/// What ID, name and members do not say about the card; null for nothing.
[[nodiscard]] OVString oddLinesOf(const Lines& lines, const GroupReading& reading);

/// The same for a group whose members are named elsewhere, except for those that are missing there.
[[nodiscard]] OVString oddLinesWithMissing(const OVString& oddLines,
                                           const std::vector<OVString>& missing);

/// The ID as the URI by which other cards refer to it.
[[nodiscard]] std::string referenceTo(std::string_view id);
/// What an ID is found by where a card refers to another: "urn:uuid:" may precede it or not, and
/// the case of a UUID does not matter.
[[nodiscard]] std::string referenceKey(std::string_view id);
/// The ID without "urn:uuid:".
[[nodiscard]] std::string_view withoutPrefix(std::string_view id);

}  // namespace ov::card
