#include <OVAddressBookSDK/data.h>

#include <utility>

OVRef<OVData> OVData::dataWithBytes(std::span<const std::byte> bytes) {
  return dataWithVector({bytes.begin(), bytes.end()});
}

OVRef<OVData> OVData::dataWithText(std::string_view bytes) {
  return dataWithBytes(std::as_bytes(std::span(bytes)));
}

OVRef<OVData> OVData::dataWithVector(std::vector<std::byte> bytes) {
  const auto owner = std::make_shared<const std::vector<std::byte>>(std::move(bytes));
  return dataWithBytesNoCopy(*owner, owner);
}

OVRef<OVData> OVData::dataWithBytesNoCopy(std::span<const std::byte> bytes,
                                          std::shared_ptr<const void> owner) {
  return std::shared_ptr<OVData>(new OVData(bytes, std::move(owner)));
}
