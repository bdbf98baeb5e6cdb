#pragma once

#include <OVAddressBookSDK/group_general.h>

namespace ov::card {

/// The record of a group whose card says more than name and members. Programs that do not know the
/// class read a plain `OVGroupGeneral`.
class GeneralGroup final : public OVGroupGeneral {
 public:
  /// `oddLines` as from `oddLinesOf`; must not be null.
  [[nodiscard]] static OVRef<GeneralGroup> make(OVString oddLines);

  /// Null only where an archive held none.
  [[nodiscard]] const OVString& oddLines() const { return oddLines_; }

  /// Lets archives build objects of this class.
  static void registerClass();
  [[nodiscard]] const OVClass* classForCoder() const override;
  void encodeWithCoder(OVKeyedArchiver& coder) const override;
  void initWithCoder(OVKeyedUnarchiver& coder) override;

 private:
  GeneralGroup() = default;
  static const OVClass& archivedClass();

  OVString oddLines_;
};

}  // namespace ov::card
