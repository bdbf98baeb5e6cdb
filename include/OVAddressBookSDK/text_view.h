#pragma once

#include <compare>
#include <cstddef>
#include <string>
#include <string_view>

#include <OVAddressBookSDK/text.h>

/// A view of a text: the argument of look-ups by name, key and code.
///
/// It is made, without allocation, from a literal, a `std::string`, a `std::string_view`, an
/// `OVString`, or `nullptr` for the null text. Ill-formed UTF-8 reads as an `OVString` of it would,
/// which does allocate.
///
/// It lives for one call and cannot be copied. Make an `OVString` of it to keep the text, or use it
/// as it is:
///
/// \code
/// auto isNote = [](const OVStringView& name) { return name == OVProPertyNote; };
/// std::cout << isNote("Note") << isNote(nullptr) << "\n";  // 10
/// \endcode
class OV_EXPORT OVStringView {
 public:
  /// Null.
  OVStringView(std::nullptr_t) {}  // NOLINT(google-explicit-constructor)
  /// Keeps the identity: an `OVString` made from the view shares the text.
  OVStringView(const OVString& text OV_LIFETIMEBOUND)  // NOLINT(google-explicit-constructor)
      : characters_(text.isNull() ? std::string_view() : text.view()), string_(&text) {}
  /// A null pointer gives the null text.
  OVStringView(const char* text OV_LIFETIMEBOUND) {  // NOLINT(google-explicit-constructor)
    if (text != nullptr) lookAt(text);
  }
  /// Never null: an empty view, even a default one, is "".
  OVStringView(std::string_view text OV_LIFETIMEBOUND) {  // NOLINT(google-explicit-constructor)
    lookAt(text);
  }
  /// Never null.
  OVStringView(const std::string& text OV_LIFETIMEBOUND)  // NOLINT(google-explicit-constructor)
      : OVStringView(std::string_view(text)) {}

  OVStringView(const OVStringView&) = delete;
  OVStringView& operator=(const OVStringView&) = delete;
  ~OVStringView() = default;

  /// True for null, false for "".
  [[nodiscard]] bool isNull() const { return characters_.data() == nullptr; }
  /// The characters, well-formed UTF-8; "" for null. Valid during the call.
  [[nodiscard]] std::string_view view() const OV_LIFETIMEBOUND {
    return isNull() ? std::string_view("", 0) : characters_;
  }
  /// A copy of the characters; "" for null.
  [[nodiscard]] std::string str() const { return std::string(view()); }

  /// Null and "" differ.
  friend bool operator==(const OVStringView& a, const OVStringView& b) {
    return a.isNull() == b.isNull() && a.characters_ == b.characters_;
  }
  /// Null comes before every text; texts are ordered by their bytes, that is, by code point.
  friend std::strong_ordering operator<=>(const OVStringView& a, const OVStringView& b) {
    if (a.isNull() || b.isNull()) return !a.isNull() <=> !b.isNull();
    return a.characters_ <=> b.characters_;
  }

 private:
  friend class OVString;
  void lookAt(std::string_view text);

  std::string_view characters_;
  const OVString* string_ = nullptr;  // whose text it is, if it is one's
  OVString repaired_;
};
