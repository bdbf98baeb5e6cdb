#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "keyed_hash.h"

namespace ov::card {

/// The IDs of members.
using MemberIDs = std::unordered_multiset<std::string, KeyedHash, std::equal_to<>>;

/// Which of the lines of a group, of which each names one ID, name a member still; takes the
/// members that have a line out of `members`. An ID means the member that is spelled alike before
/// one that it merely refers to. A line that repeats one that stays does, too.
[[nodiscard]] std::vector<bool> linesThatStay(const std::vector<std::string_view>& named,
                                              MemberIDs& members);

}  // namespace ov::card
