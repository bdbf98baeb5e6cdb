// A text is one allocation: the object with its count, then the characters. Ill-formed input is
// repaired once, here, so that no other code has to check.

#include <OVAddressBookSDK/text.h>

#include <sys/single_threaded.h>

#include <cstddef>
#include <memory>
#include <new>
#include <ostream>
#include <stdexcept>
#include <typeinfo>

#include <OVAddressBookSDK/text_view.h>

#include "platform/arena_text.h"
#include "platform/maker.h"
#include "platform/utf8.h"

namespace ov::detail {

TextObject* TextObject::make(std::span<const std::string_view> wellFormed) {
  std::size_t size = 0;
  for (const std::string_view piece : wellFormed) size += piece.size();
  if (size >= kNoText) {
    throw std::length_error("OVString: a text holds at most 4294967294 bytes");
  }
  void* place = ::operator new(textBytes(size));
  storeCharacters(place, wellFormed);
  return ::new (place) TextObject(1, static_cast<std::uint32_t>(size));
}

OVString joined(std::span<const std::string_view> wellFormed) {
  return OVString(static_cast<const TextObject*>(TextObject::make(wellFormed)));
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
  // Most are of this very class, which takes no comparison of names.
  const bool isInArena = typeid(*this) != typeid(TextObject) && typeid(*this) == typeid(ArenaText);
  void* const place = const_cast<TextObject*>(this);
  this->~TextObject();
  if (isInArena) {
    ObjectArena::release(place, sizeof(ArenaText));
  } else {
    ::operator delete(place);
  }
}

namespace {

/// Gives out one place in static memory.
template <class T>
struct OnePlace {
  using value_type = T;
  OnePlace() = default;
  template <class U>
  OnePlace(const OnePlace<U>&) {}  // NOLINT(google-explicit-constructor)
  T* allocate(std::size_t /*n*/) {
    alignas(T) static std::byte place[sizeof(T)];
    return reinterpret_cast<T*>(place);
  }
  void deallocate(T* /*place*/, std::size_t /*n*/) {}
  template <class U>
  bool operator==(const OnePlace<U>&) const {
    return true;
  }
};

/// What owns every constant, so that one can be held weakly; it allocates nothing and never ends.
const std::shared_ptr<void>& ownerOfConstants() {
  alignas(std::shared_ptr<void>) static std::byte place[sizeof(std::shared_ptr<void>)];
  static const auto* const owner = ::new (static_cast<void*>(place)) std::shared_ptr<void>(
      nullptr, [](std::nullptr_t) {}, OnePlace<char>());
  return *owner;
}

}  // namespace

OVString Cast<OVString>::from(const OVRef<OVObject>& object) {
  const TextObject* text = TextObject::of(object.get());
  if (text != nullptr) text->retain();
  return OVString(text);
}

}  // namespace ov::detail

OVString::OVString(const char* text)
    : OVString(text == nullptr ? OVString() : OVString(std::string_view(text))) {}

OVString::OVString(std::string_view text)
    : OVString(ov::detail::wellFormedPrefix(text) == text.size()
                   ? ov::detail::joined({&text, 1})
                   : OVString(std::string_view(ov::detail::repaired(text)))) {}

OVString::OVString(const OVStringView& text)
    : OVString(text.string_ != nullptr ? *text.string_
               : text.isNull()         ? OVString()
                                       : ov::detail::joined({&text.characters_, 1})) {}

void OVStringView::lookAt(std::string_view text) {
  characters_ = text.data() == nullptr ? "" : text;
  if (ov::detail::wellFormedPrefix(text) == text.size()) return;
  repaired_ = OVString(text);
  characters_ = repaired_.view();
  string_ = &repaired_;
}

OVString::operator OVRef<OVObject>() const {
  if (text_ == nullptr) return nullptr;
  // Texts are immutable; only the interface for any object is not const.
  auto* text = const_cast<ov::detail::TextObject*>(text_);
  if (text->isConstant()) return {ov::detail::ownerOfConstants(), text};
  text->retain();
  const auto release = [](ov::detail::TextObject* held) { held->release(); };
  if (ov::detail::ObjectArena::current() == nullptr) return {text, release};
  return {text, release, ov::detail::Maker::Allocator<char, ov::detail::Maker::Arena>()};
}

std::ostream& operator<<(std::ostream& stream, const OVString& text) {
  return stream << text.view();
}
