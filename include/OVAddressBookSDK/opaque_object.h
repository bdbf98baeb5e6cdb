#pragma once

#include <memory>
#include <span>
#include <utility>
#include <variant>
#include <vector>

#include <OVAddressBookSDK/held_view.h>
#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>

struct OVOpaqueField;

/// The value of one key of an opaque object, as in the archive.
struct OVOpaqueValue {
  /// The elements of an array that is in the object itself.
  using Array = std::vector<OVOpaqueValue>;
  /// The entries of a dictionary that is in the object itself, in their order.
  using Dictionary = std::vector<OVOpaqueField>;
  /// Another object of the archive, or null.
  struct Reference {
    /// Shared with whatever else refers to it.
    OVRef<OVObject> object;
  };
  /// A text, number, date or data block that is in the object itself, or null.
  struct Inline {
    /// An `OVNumber`, `OVDate`, `OVData` or a text.
    OVRef<OVObject> object;
  };
  /// A set that is in the object itself.
  struct Set {
    /// In the order in which they were archived.
    Array elements;
  };

  /// Which of these it is.
  std::variant<Reference, Inline, Array, Dictionary, Set> content;
};

/// One key of an opaque object and its value.
struct OVOpaqueField {
  /// As in the archive, where a class's own key that begins with "$" has one more.
  OVString key;
  /// Never changed by the library.
  OVOpaqueValue value;
};

/// An object of a class that nobody registered, kept whole and written back unchanged.
class OV_EXPORT OVOpaqueObject final : public OVObject,
                                       public std::enable_shared_from_this<OVOpaqueObject> {
 public:
  ~OVOpaqueObject() override;

  /// The name under which the object was recorded.
  [[nodiscard]] OVString className() const { return className_; }
  /// The class and its superclasses, nearest first; empty when the archive named none.
  [[nodiscard]] std::vector<OVString> classes() const { return classes_; }
  /// Names of classes that may replace this one; usually empty.
  [[nodiscard]] std::vector<OVString> classHints() const { return classHints_; }
  /// The fields in the archive's order. What this returns keeps the object alive.
  [[nodiscard]] OVHeldView<std::span<const OVOpaqueField>> fields() const {
    return {fields_, shared_from_this()};
  }

  [[nodiscard]] const OVClass* classForCoder() const override;
  void encodeWithCoder(OVKeyedArchiver& coder) const override;
  void initWithCoder(OVKeyedUnarchiver& coder) override;

 private:
  friend struct ov::detail::Maker;
  OVOpaqueObject(OVString className, std::vector<OVString> classes,
                 std::vector<OVString> classHints)
      : className_(std::move(className)),
        classes_(std::move(classes)),
        classHints_(std::move(classHints)) {}

  OVString className_;
  std::vector<OVString> classes_;
  std::vector<OVString> classHints_;
  std::vector<OVOpaqueField> fields_;
};
