#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "mapping/group_card.h"

namespace ov::eds {

/// How a member of a contact list is written.
struct Member {
  std::string name;
  std::string email;
};
/// Finds out about a member by its ID; nothing for one that nobody knows.
using FindMember = std::function<std::optional<Member>(const OVString& id)>;

/// A contact list as the card of a group, for the reader of groups; nothing for any other card.
[[nodiscard]] std::optional<std::string> groupOfList(std::string_view card);

/// The group as a new contact list.
[[nodiscard]] std::string newList(const ov::card::GroupContent& group, const FindMember& find);

/// The contact list that the group came from, with those of its lines changed that no longer hold.
/// Addresses that are nobody's in the book stay.
[[nodiscard]] std::string changedList(std::string_view card, const ov::card::GroupContent& group,
                                      const FindMember& find);

}  // namespace ov::eds
