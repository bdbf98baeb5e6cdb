#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ov::eds {

/// The service keeps photos in files of its own, beside the cards. A card that names such a file
/// gets the photo itself in the place of the name; nothing for any other card. A file elsewhere is
/// not read: the card may be a stranger's.
[[nodiscard]] std::optional<std::string> withPhoto(std::string_view card);

/// The card with the name of the file again, where it holds the same line as `readable`, which
/// `withPhoto` made of `original`.
[[nodiscard]] std::string withPhotoName(std::string card, std::string_view readable,
                                        std::string_view original);

}  // namespace ov::eds
