#pragma once

#include <OVAddressBookSDK/atomic.h>
#include <OVAddressBookSDK/object.h>
#include <OVAddressBookSDK/text.h>
#include <OVAddressBookSDK/text_field.h>

/// What a datum is to the user: home, work, ... A label may be shared by many values; a change
/// shows in all of them. Two labels are the same only if they are the same object.
///
/// The accessors may be called from any thread.
class OV_EXPORT OVLabel : public OVObject {
 public:
  /// A new label, both texts null.
  [[nodiscard]] static OVRef<OVLabel> init();

  /// The label's key; may be null.
  [[nodiscard]] OVString name() const { return name_.load().text(); }
  /// Null clears the name.
  void setName(OVString name) { name_.store(ov::detail::TextField(std::move(name))); }
  /// The text shown to the user; may be null.
  [[nodiscard]] OVString displayName() const { return displayName_.load().text(); }
  /// Null clears the display name.
  void setDisplayName(OVString displayName) {
    displayName_.store(ov::detail::TextField(std::move(displayName)));
  }

  /// The class under which objects are archived.
  [[nodiscard]] static const OVClass& archivedClass();
  [[nodiscard]] const OVClass* classForCoder() const override;
  void encodeWithCoder(OVKeyedArchiver& coder) const override;
  void initWithCoder(OVKeyedUnarchiver& coder) override;

 protected:
  friend struct ov::detail::Maker;
  OVLabel() = default;

 private:
  OVAtomic<ov::detail::TextField> name_;
  OVAtomic<ov::detail::TextField> displayName_;
};
