#pragma once

#include <string_view>

namespace ov::eds {

/// The UID of a card of a person that is as the service writes most cards: nothing about it is to
/// be reported, and its values can wait until somebody asks for them. "" for any other.
[[nodiscard]] std::string_view uidOfPlainCard(std::string_view card);

}  // namespace ov::eds
