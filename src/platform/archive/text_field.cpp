#include <OVAddressBookSDK/text_field.h>

#include <utility>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "platform/archive/archive_reader.h"
#include "platform/dispose.h"

namespace ov::detail {

/// An object in the place of a text, counted like one.
class TextField::Kept final : public TextObject {
 public:
  explicit Kept(OVRef<OVObject> kept) : TextObject(1, kNoText), object(std::move(kept)) {}
  Kept(const Kept&) = delete;
  Kept& operator=(const Kept&) = delete;
  ~Kept() override { dispose(std::move(object)); }

  OVRef<OVObject> object;
};

void TextField::encode(OVKeyedArchiver& coder, std::string_view key) const {
  if (isEmpty()) return;
  if (isText()) return coder.encodeObjectForKey(held_, key);
  // Fields may share what holds the object. With two references more it is taken for shared itself.
  const OVRef<OVObject> object = static_cast<const Kept*>(held_.text_)->object;
  coder.encodeObjectForKey(OVRef<OVObject>(object), key);
}

TextField TextField::decoded(OVKeyedUnarchiver& coder, std::string_view key) {
  ArchiveReader& reader = coder.reader_;
  const auto item = reader.find(coder.fields_, key);
  if (!item) return {};
  TextField field(reader.textOf(*item));
  if (!field.isEmpty()) return field;
  if (OVRef<OVObject> object = reader.objectOf(*item)) {
    field.held_ = OVString(static_cast<const TextObject*>(new Kept(std::move(object))));
  }
  return field;
}

TextField TextField::decodedToBeSearched(OVKeyedUnarchiver& coder, std::string_view key) {
  // Many objects may share a long text. So much of it is searched in the time that a byte of memory
  // is worth.
  constexpr std::size_t kSearchedPerByte = 8;
  TextField field = decoded(coder, key);
  coder.reader_.plist().charge(field.text().size() / kSearchedPerByte);
  return field;
}

}  // namespace ov::detail
