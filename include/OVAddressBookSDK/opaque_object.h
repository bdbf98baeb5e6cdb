#pragma once

#include <utility>
#include <variant>
#include <vector>

#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>

namespace ov::detail {
class ArchiveReader;
}

/// One field of an opaque object, as it stands in the archive.
struct OV_EXPORT OVOpaqueValue {
  using Array = std::vector<OVOpaqueValue>;
  using Dictionary = std::vector<std::pair<OVString, OVOpaqueValue>>;
  /// A reference to another object of the archive, null included.
  struct Reference {
    OVRef<OVObject> object;
  };
  /// A text, number, date or data block that stands in the object itself.
  struct Inline {
    OVRef<OVObject> object;
  };
  /// A property list's own set.
  struct Set {
    Array elements;
  };

  std::variant<Reference, Inline, Array, Dictionary, Set> content;
};

/// An object of a class that nobody registered, kept whole and written back unchanged.
class OV_EXPORT OVOpaqueObject final : public OVObject {
 public:
  ~OVOpaqueObject() override;

  /// The name under which the object was recorded.
  [[nodiscard]] const OVString& className() const { return className_; }
  /// The class and its superclasses, nearest first; empty when the archive named none.
  [[nodiscard]] const std::vector<OVString>& classes() const { return classes_; }
  /// Names of classes that may stand in for this one; mostly empty.
  [[nodiscard]] const std::vector<OVString>& classHints() const { return classHints_; }
  /// The fields in the archive's order, keys as the class knows them.
  [[nodiscard]] const OVOpaqueValue::Dictionary& fields() const { return fields_; }

 private:
  friend struct ov::detail::Maker;
  friend class ov::detail::ArchiveReader;
  OVOpaqueObject() = default;

  OVString className_;
  std::vector<OVString> classes_;
  std::vector<OVString> classHints_;
  OVOpaqueValue::Dictionary fields_;
};
