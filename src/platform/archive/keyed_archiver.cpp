#include <OVAddressBookSDK/keyed_archiver.h>

#include <utility>

#include "platform/archive/archive_writer.h"

using ov::detail::ArchiveWriter;

OVRef<OVData> OVKeyedArchiver::archivedDataWithRootObject(const OVRef<OVObject>& root) {
  using enum ArchiveWriter::Sharing;
  for (const auto sharing : {byReferenceCount, byIdentity}) {
    if (OVRef<OVData> data = ArchiveWriter(sharing).archive(root)) return data;
  }
  return ArchiveWriter(byIdentityWithPlaces).archive(root);
}

void OVKeyedArchiver::encodeObjectForKey(const OVRef<OVObject>& object, std::string_view key) {
  writer_.field(key, writer_.reference(object));
}

void OVKeyedArchiver::encodeObjectForKey(OVRef<OVObject>&& object, std::string_view key) {
  writer_.field(key, writer_.reference(std::move(object)));
}

void OVKeyedArchiver::encodeObjectForKey(const OVString& text, std::string_view key) {
  writer_.field(key, writer_.reference(text));
}

void OVKeyedArchiver::encodeListForKey(std::span<const OVRef<OVObject>> items,
                                       std::string_view key) {
  writer_.field(key, writer_.listReference(items));
}

void OVKeyedArchiver::encodeIntegerForKey(std::int64_t value, std::string_view key) {
  writer_.field(key, writer_.values().integer(value));
}

void OVKeyedArchiver::encodeBoolForKey(bool value, std::string_view key) {
  writer_.field(key, writer_.values().boolean(value));
}

void OVKeyedArchiver::encodeDoubleForKey(double value, std::string_view key) {
  writer_.field(key, writer_.values().real(value));
}

void OVKeyedArchiver::encodeBytesForKey(std::span<const std::byte> bytes, std::string_view key) {
  writer_.field(key, writer_.values().data(bytes));
}
