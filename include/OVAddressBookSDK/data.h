#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include <OVAddressBookSDK/held_view.h>
#include <OVAddressBookSDK/object.h>

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
