#pragma once

#include <cstdint>
#include <string_view>

#include <OVAddressBookSDK/text.h>

#include "platform/object_arena.h"
#include "platform/text_storage.h"

namespace ov::detail {

/// A text in an arena.
class ArenaText final : public TextObject {
 public:
  static bool fits(std::string_view text) {
    return textBytes(text.size()) <= ObjectArena::kLargest;
  }
  /// A new text with one reference. `wellFormed` is not checked.
  static TextObject* make(ObjectArena& arena, std::string_view wellFormed) {
    void* place = arena.allocate(textBytes(wellFormed.size()));
    storeCharacters(place, {&wellFormed, 1});
    return ::new (place) ArenaText(static_cast<std::uint32_t>(wellFormed.size()));
  }

 private:
  explicit ArenaText(std::uint32_t size) : TextObject(1, size) {}
};

}  // namespace ov::detail
