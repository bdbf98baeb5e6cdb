#pragma once

#include <concepts>
#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>

#include <OVAddressBookSDK/export.h>

/// A view of an object's content, such as the bytes of a block, with a reference that keeps the
/// content alive: the view is valid as long as this value lives, even if everybody else releases
/// the object.
///
/// \code
/// std::ostringstream file;  // or a std::ofstream
/// file << OVAddressBookGeneral::init()->saveToData()->text();
/// std::cout << file.str().substr(0, 8) << "\n";  // bplist00
/// \endcode
///
/// It converts to a View, which keeps nothing alive: clang warns when one of a temporary is kept.
template <class View>
class OVHeldView {
 public:
  /// What it is a view of.
  using Element = typename View::value_type;

  /// A view of what is unchanged as long as `owner` lives.
  OVHeldView(View view, std::shared_ptr<const void> owner)
      : view_(view), owner_(std::move(owner)) {}

  /// The view alone, valid while this value or the object lives.
  [[nodiscard]] View view() const OV_LIFETIMEBOUND { return view_; }
  /// The same.
  operator View() const OV_LIFETIMEBOUND { return view_; }  // NOLINT(google-explicit-constructor)

  /// The first element; must not be dereferenced when there is none.
  [[nodiscard]] const Element* data() const OV_LIFETIMEBOUND { return view_.data(); }
  /// How many elements there are.
  [[nodiscard]] std::size_t size() const { return view_.size(); }
  /// Whether there are none.
  [[nodiscard]] bool empty() const { return view_.empty(); }
  /// The element at a position, which must be below `size()`.
  [[nodiscard]] const Element& operator[](std::size_t position) const OV_LIFETIMEBOUND {
    return view_[position];
  }

  /// @cond
  // All that a loop needs. With an iterator of the standard's kind a `std::span` could be made of a
  // temporary without a warning.
  class Iterator {
   public:
    /// At this element.
    explicit Iterator(const Element* at) : at_(at) {}
    /// The element.
    const Element& operator*() const { return *at_; }
    /// Goes on to the next.
    Iterator& operator++() {
      ++at_;
      return *this;
    }
    friend bool operator==(Iterator a, Iterator b) { return a.at_ == b.at_; }

   private:
    const Element* at_;
  };
  /// @endcond
  /// From the first element to the last.
  /// @{
  [[nodiscard]] Iterator begin() const OV_LIFETIMEBOUND { return Iterator(data()); }
  [[nodiscard]] Iterator end() const OV_LIFETIMEBOUND { return Iterator(data() + size()); }
  /// @}

  /// Whether the characters are the same.
  /// @{
  friend bool operator==(const OVHeldView& a,
                         const OVHeldView& b) requires std::same_as<View, std::string_view> {
    return a.view_ == b.view_;
  }
  friend bool operator==(const OVHeldView& a,
                         std::string_view b) requires std::same_as<View, std::string_view> {
    return a.view_ == b;
  }
  /// @}

  /// Writes the characters.
  template <class Stream>
  friend Stream& operator<<(Stream& stream,
                            const OVHeldView& text) requires std::same_as<View, std::string_view> {
    stream << text.view_;
    return stream;
  }

 private:
  View view_;
  std::shared_ptr<const void> owner_;
};
