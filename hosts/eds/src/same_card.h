#pragma once

#include <string>
#include <string_view>

namespace ov::eds {

enum class Photos : bool { Ignored, Compared };

/// Whether two cards say the same, whatever the service added of its own (revision, sorting name,
/// normalised numbers), and however they spell it.
[[nodiscard]] bool sayTheSame(std::string_view a, std::string_view b,
                              Photos photos = Photos::Compared);

/// Whether a line of that name is the service's own business.
[[nodiscard]] bool isOwnLine(std::string_view name);

/// The UID of a card; "" without.
[[nodiscard]] std::string uidOf(std::string_view card);

}  // namespace ov::eds
