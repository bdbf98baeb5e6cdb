#pragma once

#include <concepts>
#include <cstddef>
#include <memory>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include <OVAddressBookSDK/object.h>

/// Bytes or characters, and what holds them: they stay for as long as this value lives, whoever
/// lets go of the `OVData` they come from.
///
///     std::ofstream(path, std::ios::binary) << book->saveToData()->text();
///     for (const std::byte byte : book->saveToData()->bytes()) sum.add(byte);
///
/// It can be used as a View, which holds nothing: clang warns when one of a temporary is kept.
template <class View>
class OVHeldView {
 public:
  /// What it is a view of.
  using Byte = typename View::value_type;

  /// Views what stays unchanged for as long as `owner` lives.
  OVHeldView(View view, std::shared_ptr<const void> owner)
      : view_(view), owner_(std::move(owner)) {}

  /// The view alone, valid while this value or the `OVData` lives.
  [[nodiscard]] View view() const OV_LIFETIMEBOUND { return view_; }
  /// The same.
  operator View() const OV_LIFETIMEBOUND { return view_; }  // NOLINT(google-explicit-constructor)

  /// The first byte; null or not when there is none.
  [[nodiscard]] const Byte* data() const OV_LIFETIMEBOUND { return view_.data(); }
  /// How many bytes there are.
  [[nodiscard]] std::size_t size() const { return view_.size(); }
  /// Whether there are none.
  [[nodiscard]] bool empty() const { return view_.empty(); }
  /// The byte at a position, which must be below `size()`.
  [[nodiscard]] Byte operator[](std::size_t position) const { return view_[position]; }

  /// @cond
  // All that a loop needs. With an iterator of the standard's kind a `std::span` could be made of a
  // temporary without a warning.
  class Iterator {
   public:
    /// At this byte.
    explicit Iterator(const Byte* at) : at_(at) {}
    /// The byte.
    const Byte& operator*() const { return *at_; }
    /// Goes on to the next.
    Iterator& operator++() {
      ++at_;
      return *this;
    }
    friend bool operator==(Iterator a, Iterator b) { return a.at_ == b.at_; }

   private:
    const Byte* at_;
  };
  /// @endcond
  /// From the first byte to the last.
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

/// An immutable block of bytes. Any thread may read it.
class OV_EXPORT OVData final : public OVObject {
 public:
  /// A copy of the bytes.
  [[nodiscard]] static OVRef<OVData> dataWithBytes(std::span<const std::byte> bytes);
  /// A copy of the bytes of a text, in any encoding.
  [[nodiscard]] static OVRef<OVData> dataWithText(std::string_view bytes);
  /// Takes the bytes over without copying them.
  [[nodiscard]] static OVRef<OVData> dataWithVector(std::vector<std::byte> bytes);
  /// Refers to bytes that stay unchanged for as long as `owner` lives.
  [[nodiscard]] static OVRef<OVData> dataWithBytesNoCopy(std::span<const std::byte> bytes,
                                                         std::shared_ptr<const void> owner);

  /// The bytes.
  [[nodiscard]] OVHeldView<std::span<const std::byte>> bytes() const { return {bytes_, owner_}; }
  /// The same bytes as characters, in whatever encoding.
  [[nodiscard]] OVHeldView<std::string_view> text() const {
    return {{reinterpret_cast<const char*>(bytes_.data()), bytes_.size()}, owner_};
  }
  /// How many bytes there are.
  [[nodiscard]] std::size_t size() const { return bytes_.size(); }

  /// Written as plain data, without a class of its own.
  [[nodiscard]] const OVClass* classForCoder() const override;

 private:
  OVData(std::span<const std::byte> bytes, std::shared_ptr<const void> owner)
      : bytes_(bytes), owner_(std::move(owner)) {}

  std::span<const std::byte> bytes_;
  std::shared_ptr<const void> owner_;
};
