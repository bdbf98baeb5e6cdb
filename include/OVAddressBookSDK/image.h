#pragma once

#include <OVAddressBookSDK/data.h>
#include <OVAddressBookSDK/object.h>

/// An encoded image (PNG, JPEG, ...). The library never decodes it.
class OV_EXPORT OVImage final : public OVObject {
 public:
  /// Null for null data.
  [[nodiscard]] static OVRef<OVImage> imageWithData(OVRef<OVData> data);

  /// The encoded image. Null only for an image from an archive that held none, or held something
  /// else there, which is kept and written back.
  [[nodiscard]] OVRef<OVData> data() const { return ov::cast<OVData>(data_); }

  [[nodiscard]] const OVClass* classForCoder() const override;
  void encodeWithCoder(OVKeyedArchiver& coder) const override;
  void initWithCoder(OVKeyedUnarchiver& coder) override;

 private:
  friend struct ov::detail::Maker;
  OVImage() = default;

  OVRef<OVObject> data_;
};
