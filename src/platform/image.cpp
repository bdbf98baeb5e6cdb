#include <OVAddressBookSDK/image.h>

#include <utility>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "platform/archive/class_table.h"
#include "platform/maker.h"

using ov::detail::Maker;

namespace {
constexpr std::string_view kData = "data";
}

namespace ov::detail {
constexpr OVClass kImageClass{"OVImage", nullptr, &Maker::empty<OVImage>};
}

OVRef<OVImage> OVImage::imageWithData(OVRef<OVData> data) {
  if (data == nullptr) return nullptr;
  auto image = Maker::make<OVImage>();
  image->data_ = std::move(data);
  return image;
}

const OVClass* OVImage::classForCoder() const { return &ov::detail::kImageClass; }

void OVImage::encodeWithCoder(OVKeyedArchiver& coder) const {
  if (data_ != nullptr) coder.encodeObjectForKey(data_, kData);
}

void OVImage::initWithCoder(OVKeyedUnarchiver& coder) { data_ = coder.decodeObjectForKey(kData); }
