#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string_view>
#include <vector>

#include <OVAddressBookSDK/data.h>
#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>

class OVOpaqueObject;

namespace ov::detail {
class DictionaryObject;
class ListObject;
class ArchiveReader;
struct ArchiveFields;
class TextField;
}  // namespace ov::detail

/// A data block that is not a keyed archive, is damaged or malicious. The message says what is
/// wrong and where.
class OV_EXPORT OVInvalidArchive : public std::invalid_argument {
 public:
  /// With this message.
  using std::invalid_argument::invalid_argument;
  /// Copies share the message.
  /// @{
  OVInvalidArchive(const OVInvalidArchive&) = default;
  OVInvalidArchive& operator=(const OVInvalidArchive&) = default;
  /// @}
  ~OVInvalidArchive() override;
};

/// Reads an object graph out of a data block.
///
/// Only the library's classes and those that the host registered are built; an object of any other
/// class becomes an `OVOpaqueObject`, which is written back unchanged. A coder is passed to
/// `OVObject::initWithCoder` and lives for that call.
///
/// Absent keys, and keys with something of another kind, read as null or 0.
///
/// The objects of one archive share pieces of memory, of 64 KiB in a small archive and 4 MiB in a
/// large one. They are independent of each other, on any thread; the memory of a piece is freed
/// with the last of its objects.
///
/// \code
/// try {
///   auto root = OVKeyedUnarchiver::unarchiveObjectWithData(OVData::dataWithText("bplist00"));
/// } catch (const OVInvalidArchive& error) {
///   std::cout << "not read\n";  // not read
///   std::cerr << error.what() << "\n";
/// }
/// \endcode
class OV_EXPORT OVKeyedUnarchiver {
 public:
  OVKeyedUnarchiver(const OVKeyedUnarchiver&) = delete;
  OVKeyedUnarchiver& operator=(const OVKeyedUnarchiver&) = delete;

  /// The root object of the archive; null when the archive holds a null root. Throws
  /// `OVInvalidArchive`, for null data too.
  [[nodiscard]] static OVRef<OVObject> unarchiveObjectWithData(const OVRef<OVData>& data);

  /// The same, but with numbers, dates, lists, dictionaries and plain texts and data as the only
  /// known classes: every other object, such as an "NSMutableString", becomes an `OVOpaqueObject`.
  /// For looking into archives of any origin.
  [[nodiscard]] static OVRef<OVObject> unarchiveOpaqueObjectWithData(const OVRef<OVData>& data);

  /// Lets archives build objects of a host's class, from now on and in every thread.
  ///
  /// Registering the same class again does nothing. Throws `std::invalid_argument` when the name is
  /// null or empty, belongs to another class, or the class has no `make`.
  static void registerClass(const OVClass& hostClass);

  /// Whether the object has the key; true also when it holds null.
  [[nodiscard]] bool containsValueForKey(std::string_view key) const;
  /// The object under the key, with its identity; null when there is none.
  [[nodiscard]] OVRef<OVObject> decodeObjectForKey(std::string_view key);
  /// The same as a T; null for an object of another class.
  template <class T>
  [[nodiscard]] ov::Handle<T> decodeObjectForKey(std::string_view key) {
    return ov::cast<T>(decodeObjectForKey(key));
  }
  /// The text under the key; null for anything but a text.
  [[nodiscard]] OVString decodeStringForKey(std::string_view key);
  /// The elements of a list object; false when there is no list under the key.
  [[nodiscard]] bool decodeListForKey(std::vector<OVRef<OVObject>>& items, std::string_view key);
  /// A number inside the object itself; a real number is rounded towards zero, a number out of
  /// range becomes the nearest end of it.
  [[nodiscard]] std::int64_t decodeIntegerForKey(std::string_view key) const;
  /// False for zero and for what is not a number.
  [[nodiscard]] bool decodeBoolForKey(std::string_view key) const;
  /// The nearest double of a number inside the object itself.
  [[nodiscard]] double decodeDoubleForKey(std::string_view key) const;
  /// Empty when absent. Valid during the call that was given this coder.
  [[nodiscard]] std::span<const std::byte> decodeBytesForKey(std::string_view key) const;

 private:
  friend class OVOpaqueObject;
  friend class ov::detail::DictionaryObject;
  friend class ov::detail::ListObject;
  friend class ov::detail::ArchiveReader;
  friend class ov::detail::TextField;
  OVKeyedUnarchiver(ov::detail::ArchiveReader& reader, const ov::detail::ArchiveFields& fields)
      : reader_(reader), fields_(fields) {}

  ov::detail::ArchiveReader& reader_;
  const ov::detail::ArchiveFields& fields_;
};
