#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

#include <OVAddressBookSDK/text.h>

namespace ov::detail {

/// What a text takes: the object, then its characters, then a NUL.
inline std::size_t textBytes(std::string_view text) { return sizeof(TextObject) + text.size() + 1; }

inline void storeCharacters(void* place, std::string_view text) {
  char* characters = static_cast<char*>(place) + sizeof(TextObject);
  if (!text.empty()) std::memcpy(characters, text.data(), text.size());
  characters[text.size()] = '\0';
}

}  // namespace ov::detail
