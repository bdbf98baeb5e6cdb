#pragma once

#include <cstddef>
#include <cstring>
#include <span>
#include <string_view>

#include <OVAddressBookSDK/text.h>

namespace ov::detail {

/// What a text of so many characters takes: the object, then they, then a NUL.
inline std::size_t textBytes(std::size_t size) { return sizeof(TextObject) + size + 1; }

/// Puts the characters after the place of the object.
inline void storeCharacters(void* place, std::span<const std::string_view> pieces) {
  char* end = static_cast<char*>(place) + sizeof(TextObject);
  for (const std::string_view piece : pieces) {
    if (!piece.empty()) std::memcpy(end, piece.data(), piece.size());
    end += piece.size();
  }
  *end = '\0';
}

}  // namespace ov::detail
