#include <OVAddressBookSDK/text.h>

#include <sys/single_threaded.h>

#include <limits>
#include <memory>
#include <new>
#include <ostream>
#include <stdexcept>
#include <typeinfo>

#include "platform/arena_text.h"
#include "platform/maker.h"
#include "platform/utf8.h"

namespace ov::detail {

TextObject* TextObject::make(std::string_view wellFormed) {
  if (wellFormed.size() > std::numeric_limits<std::uint32_t>::max()) {
    throw std::length_error("OVString: a text holds at most 4294967295 bytes");
  }
  void* place = ::operator new(textBytes(wellFormed));
  storeCharacters(place, wellFormed);
  return ::new (place) TextObject(1, static_cast<std::uint32_t>(wellFormed.size()));
}

std::uint32_t TextObject::count(int change, std::memory_order order) const {
  const auto added = static_cast<std::uint32_t>(change);
  if (__libc_single_threaded == 0) return references_.fetch_add(added, order);
  // With one thread there is nobody to lock out.
  const std::uint32_t before = references_.load(std::memory_order_relaxed);
  references_.store(before + added, std::memory_order_relaxed);
  return before;
}

void TextObject::destroy() const {
  const bool isInArena = typeid(*this) == typeid(ArenaText);
  void* const place = const_cast<TextObject*>(this);
  this->~TextObject();
  if (isInArena) {
    ObjectArena::release(place, sizeof(ArenaText));
  } else {
    ::operator delete(place);
  }
}

OVString Cast<OVString>::from(const OVRef<OVObject>& object) {
  const TextObject* text = TextObject::of(object.get());
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
  const auto release = [](ov::detail::TextObject* held) { held->release(); };
  if (ov::detail::ObjectArena::current() == nullptr) return {text, release};
  return {text, release, ov::detail::Maker::Allocator<char, ov::detail::Maker::Arena>()};
}

std::ostream& operator<<(std::ostream& stream, const OVString& text) {
  return stream << text.view();
}
