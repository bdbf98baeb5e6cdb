#include <OVAddressBookSDK/text.h>

#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <ostream>
#include <stdexcept>

#include "platform/utf8.h"

namespace ov::detail {

TextObject* TextObject::make(std::string_view wellFormed) {
  if (wellFormed.size() > std::numeric_limits<std::uint32_t>::max()) {
    throw std::length_error("OVString: a text holds at most 4294967295 bytes");
  }
  void* place = ::operator new(sizeof(TextObject) + wellFormed.size() + 1);
  // cppcheck-suppress legacyUninitvar ; it takes the new expression for a read of what it makes
  auto* text = ::new (place) TextObject(1, static_cast<std::uint32_t>(wellFormed.size()));
  char* characters = static_cast<char*>(place) + sizeof(TextObject);
  if (!wellFormed.empty()) std::memcpy(characters, wellFormed.data(), wellFormed.size());
  characters[wellFormed.size()] = '\0';
  return text;
}

void TextObject::destroy() const {
  this->~TextObject();
  ::operator delete(const_cast<TextObject*>(this));
}

OVString Cast<OVString>::from(const OVRef<OVObject>& object) {
  const auto* text = dynamic_cast<const TextObject*>(object.get());
  if (text != nullptr) text->retain();
  return OVString(text);
}

}  // namespace ov::detail

OVString::OVString(const char* text)
    : OVString(text == nullptr ? OVString() : OVString(std::string_view(text))) {}

OVString::OVString(std::string_view text)
    : text_(ov::detail::TextObject::make(
          ov::detail::wellFormedPrefix(text) == text.size() ? text : ov::detail::repaired(text))) {}

OVString::operator OVRef<OVObject>() const {
  if (text_ == nullptr) return nullptr;
  // Texts are immutable; only the interface for any object is not const.
  auto* text = const_cast<ov::detail::TextObject*>(text_);
  if (text->isConstant()) return {std::shared_ptr<void>(), text};
  text->retain();
  return {text, [](ov::detail::TextObject* held) { held->release(); }};
}

std::ostream& operator<<(std::ostream& stream, const OVString& text) {
  return stream << text.view();
}
