#pragma once

#include <atomic>
#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <typeinfo>
#include <utility>

#include <OVAddressBookSDK/export.h>
#include <OVAddressBookSDK/object.h>

class OVString;
class OVStringView;

namespace ov::detail {

class ArchiveSlot;
class ArchiveWriter;
class TextField;

/// The characters of an `OVString`: well-formed UTF-8, followed by a NUL.
class OV_EXPORT TextObject : public OVObject {
 public:
  constexpr ~TextObject() override {}  // NOLINT(modernize-use-equals-default): g++ 12 needs it
  [[nodiscard]] inline const char* data() const;
  [[nodiscard]] std::uint32_t size() const { return size_; }

  /// Keeps the text alive. Constants are never counted.
  void retain() const {
    if (!isConstant()) count(1, std::memory_order_relaxed);
  }
  void release() const {
    if (!isConstant() && count(-1, std::memory_order_acq_rel) == 1) destroy();
  }

  /// False for what a `TextField` holds instead of a text.
  [[nodiscard]] bool isText() const { return size_ != kNoText; }

  [[nodiscard]] bool isConstant() const { return references_.load(std::memory_order_relaxed) == 0; }

  /// True when more than one handle holds the text.
  [[nodiscard]] bool isShared() const { return references_.load(std::memory_order_relaxed) != 1; }

  [[nodiscard]] const OVClass* classForCoder() const override;

  /// The object as a text; null when it is null or something else.
  [[nodiscard]] static inline const TextObject* of(const OVObject* object);

  /// A new text of these pieces, with one reference. They must be well-formed.
  static TextObject* make(std::span<const std::string_view> wellFormed);

 protected:
  static constexpr std::uint32_t kNoText = ~std::uint32_t{0};

  constexpr explicit TextObject(std::uint32_t references, std::uint32_t size)
      : references_(references), size_(size) {}

 private:
  void destroy() const;

  /// Returns the previous number of references.
  std::uint32_t count(int change, std::memory_order order) const;

  mutable std::atomic<std::uint32_t> references_;
  std::uint32_t size_;
};

/// A text in static storage.
class TextConstant final : public TextObject {
 public:
  constexpr explicit TextConstant(std::string_view literal)
      : TextObject(0, static_cast<std::uint32_t>(literal.size())), characters_(literal.data()) {}
  constexpr ~TextConstant() override {}  // NOLINT(modernize-use-equals-default)

 private:
  friend class TextObject;
  const char* characters_;
};

/// A literal as a template argument.
template <std::size_t N>
struct Literal {
  constexpr Literal(const char (&text)[N]) {  // NOLINT(google-explicit-constructor)
    for (std::size_t i = 0; i < N; ++i) characters[i] = text[i];
  }
  char characters[N];
};

template <Literal L>
inline constexpr TextConstant kConstant{std::string_view(L.characters, sizeof(L.characters) - 1)};

inline const TextObject* TextObject::of(const OVObject* object) {
  if (object == nullptr) return nullptr;
  // Most texts are of exactly this class, and to compare is quicker than to cast.
  if (typeid(*object) == typeid(TextObject)) return static_cast<const TextObject*>(object);
  return dynamic_cast<const TextObject*>(object);
}

inline const char* TextObject::data() const {
  return isConstant() ? static_cast<const TextConstant*>(this)->characters_
                      : reinterpret_cast<const char*>(this) + sizeof(TextObject);
}

/// A new text of these pieces, which must be well-formed.
[[nodiscard]] OVString joined(std::span<const std::string_view> wellFormed);

}  // namespace ov::detail

template <class T>
concept OVTextLike = std::convertible_to<const T&, std::string_view> && !std::same_as<T, OVString>;

/// Text: a nullable, immutable, shared handle.
///
/// Null and "" differ, also under `==`. The text is well-formed UTF-8: ill-formed input is repaired
/// with U+FFFD when the string is made. Copies share the text and keep its identity; any thread may
/// read and copy a string, and a string object that one thread writes belongs to that thread.
///
/// \code
/// const OVString none = nullptr;
/// const OVString empty = "";
/// std::cout << (none == empty) << none.size() << empty.size() << "\n";  // 000
/// std::cout << (OVString("Brest") == "Brest") << "\n";                  // 1
/// \endcode
class OV_EXPORT OVString {
 public:
  /// Null.
  constexpr OVString() = default;
  /// Null.
  constexpr OVString(std::nullptr_t) {}  // NOLINT(google-explicit-constructor)
  /// A null pointer gives the null string.
  OVString(const char* text);  // NOLINT(google-explicit-constructor)
  /// A new text of these characters.
  /// @{
  OVString(std::string_view text);  // NOLINT(google-explicit-constructor)
  OVString(const std::string& text) : OVString(std::string_view(text)) {}  // NOLINT
  /// @}
  /// The text of the view, to keep: shared if it is an `OVString`'s, else a new one.
  explicit OVString(const OVStringView& text);
  /// A string over static storage; costs no allocation, ever.
  constexpr explicit OVString(const ov::detail::TextConstant& constant) : text_(&constant) {}

  /// Copies share the text; a moved-from string is null.
  /// @{
  OVString(const OVString& other) : text_(other.text_) {
    if (text_ != nullptr) text_->retain();
  }
  OVString(OVString&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
  OVString& operator=(const OVString& other) {
    OVString(other).swap(*this);
    return *this;
  }
  OVString& operator=(OVString&& other) noexcept {
    OVString(std::move(other)).swap(*this);  // cppcheck-suppress accessMoved ; a new string
    return *this;
  }
  /// @}
  constexpr ~OVString() {
    if (!std::is_constant_evaluated() && text_ != nullptr) text_->release();
  }
  /// Exchanges the texts.
  void swap(OVString& other) noexcept { std::swap(text_, other.text_); }

  /// True for null, false for "".
  [[nodiscard]] bool isNull() const { return text_ == nullptr; }
  /// False for null, true for "".
  explicit operator bool() const { return text_ != nullptr; }

  /// The text; "" for null. Valid while some copy of this string lives: clang warns when a view of
  /// a temporary is kept.
  [[nodiscard]] std::string_view view() const OV_LIFETIMEBOUND {
    return text_ == nullptr ? std::string_view("", 0)
                            : std::string_view(text_->data(), text_->size());
  }
  /// The same.
  operator std::string_view() const OV_LIFETIMEBOUND {  // NOLINT(google-explicit-constructor)
    return view();
  }
  /// A copy of the text; "" for null.
  [[nodiscard]] std::string str() const { return std::string(view()); }
  /// The text, ended by a NUL; "" for null. A text may hold NULs of its own.
  [[nodiscard]] const char* c_str() const OV_LIFETIMEBOUND { return view().data(); }
  /// Bytes of UTF-8; 0 for null.
  [[nodiscard]] std::size_t size() const { return text_ == nullptr ? 0 : text_->size(); }
  /// True for null and for "".
  [[nodiscard]] bool empty() const { return size() == 0; }

  /// True when both are the same text object, or both null.
  [[nodiscard]] bool isSame(const OVString& other) const { return text_ == other.text_; }

  /// The string as an object, identity kept: turning it back with `ov::cast<OVString>` gives the
  /// same text object. Null gives the null reference.
  operator OVRef<OVObject>() const;  // NOLINT(google-explicit-constructor)

  friend bool operator==(const OVString& a, const OVString& b) {
    return a.text_ == b.text_ || (a.text_ != nullptr && b.text_ != nullptr && a.view() == b.view());
  }
  friend bool operator==(const OVString& a, std::nullptr_t) { return a.text_ == nullptr; }
  /// A null pointer compares as null.
  friend bool operator==(const OVString& a, const OVTextLike auto& b) {
    if constexpr (std::is_pointer_v<std::remove_cvref_t<decltype(b)>>) {
      if (b == nullptr) return a.isNull();
    }
    return a.text_ != nullptr && a.view() == std::string_view(b);
  }
  /// Null comes before every text; texts are ordered by their bytes, that is, by code point.
  friend std::strong_ordering operator<=>(const OVString& a, const OVString& b) {
    if (a.isNull() || b.isNull()) return !a.isNull() <=> !b.isNull();
    return a.view() <=> b.view();
  }

 private:
  friend struct ov::detail::Cast<OVString>;
  friend class ov::detail::ArchiveSlot;
  friend class ov::detail::ArchiveWriter;
  friend class ov::detail::TextField;
  friend OVString ov::detail::joined(std::span<const std::string_view> wellFormed);
  explicit OVString(const ov::detail::TextObject* adopted) : text_(adopted) {}

  const ov::detail::TextObject* text_ = nullptr;
};

/// Writes the text; nothing for null.
OV_EXPORT std::ostream& operator<<(std::ostream& stream, const OVString& text);

template <>
struct ov::detail::Handle<OVString> {
  using type = OVString;
};

template <>
struct OV_EXPORT ov::detail::Cast<OVString> {
  static OVString from(const OVRef<OVObject>& object);
};

/// @cond
// Equal texts have equal hashes; null has that of "".
template <>
struct std::hash<OVString> {
  std::size_t operator()(const OVString& text) const noexcept {
    return std::hash<std::string_view>()(text.view());
  }
};
/// @endcond
