#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>

#include <OVAddressBookSDK/data.h>
#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>

class OVOpaqueObject;

namespace ov::detail {
class ArchiveWriter;
}  // namespace ov::detail

/// Writes an object graph into one data block: a keyed archive in a binary property list.
///
/// Each object is written once, under its identity, so that sharing and cycles survive; of texts
/// that are equal but not shared, most are written once. The same graph always gives the same
/// bytes. A coder is passed to `OVObject::encodeWithCoder` and lives for that call. Meanwhile
/// nothing in the graph may change except what is atomic: an `OVAtomic`, and what headers say may
/// be set while a book is saved.
///
/// Keys are UTF-8 texts without a NUL. Writing a key twice in one object is a mistake in its class:
/// readers use the first.
///
/// \code
/// auto label = OVLabel::init();
/// auto pair = OVList<OVLabel>::list({label, label});
/// auto block = OVKeyedArchiver::archivedDataWithRootObject(pair);
/// auto back = ov::cast<OVList<OVLabel>>(OVKeyedUnarchiver::unarchiveObjectWithData(block));
/// std::cout << (back[0] == back[1]) << "\n";  // 1
/// \endcode
class OV_EXPORT OVKeyedArchiver {
 public:
  OVKeyedArchiver(const OVKeyedArchiver&) = delete;
  OVKeyedArchiver& operator=(const OVKeyedArchiver&) = delete;

  /// The archive of everything that can be reached from `root`. A null root is archived as null.
  /// Throws `std::invalid_argument` for an object whose class cannot be archived; the message gives
  /// the path to it, such as the ID of the person, the property and the position.
  [[nodiscard]] static OVRef<OVData> archivedDataWithRootObject(const OVRef<OVObject>& root);

  /// Null is written as a null object: the key exists and reads as null.
  void encodeObjectForKey(const OVRef<OVObject>& object, std::string_view key);
  /// The same for a copy of the owner's reference, such as one that an `OVAtomic` gives: the object
  /// lives until it is written, even when the owner releases it meanwhile.
  void encodeObjectForKey(OVRef<OVObject>&& object, std::string_view key);
  /// The same for a text.
  void encodeObjectForKey(const OVString& text, std::string_view key);
  /// The same for a list or a dictionary.
  /// @{
  template <class T>
  void encodeObjectForKey(const OVList<T>& list, std::string_view key) {
    encodeObjectForKey(list.object(), key);
  }
  template <class T>
  void encodeObjectForKey(const OVDictionary<T>& dictionary, std::string_view key) {
    encodeObjectForKey(dictionary.object(), key);
  }
  /// @}
  /// The same for a reference of another type.
  template <class T>
  void encodeObjectForKey(const OVRef<T>& object, std::string_view key) {
    encodeObjectForKey(OVRef<OVObject>(object), key);
  }
  /// An array as one object of the class "NSMutableArray".
  void encodeListForKey(std::span<const OVRef<OVObject>> items, std::string_view key);
  /// A number inside the object itself, without an identity.
  /// @{
  void encodeIntegerForKey(std::int64_t value, std::string_view key);
  void encodeBoolForKey(bool value, std::string_view key);
  void encodeDoubleForKey(double value, std::string_view key);
  /// @}
  /// Raw bytes, inside the object itself.
  void encodeBytesForKey(std::span<const std::byte> bytes, std::string_view key);

 private:
  friend class OVOpaqueObject;
  friend class ov::detail::DictionaryObject;
  friend class ov::detail::ListObject;
  friend class ov::detail::ArchiveWriter;
  explicit OVKeyedArchiver(ov::detail::ArchiveWriter& writer) : writer_(writer) {}

  ov::detail::ArchiveWriter& writer_;
};
