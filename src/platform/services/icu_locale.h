#pragma once

#include <OVAddressBookSDK/locale.h>

namespace ov {

/// Countries and case mappings of ICU.
class IcuLocale final : public OVLocale {
 public:
  /// A null identifier stands for that of the environment.
  explicit IcuLocale(OVString identifier) : identifier_(std::move(identifier)) {}

  [[nodiscard]] OVList<OVString> isoCountryCodes() const override;
  [[nodiscard]] OVString currentLocaleIdentifier() const override;
  [[nodiscard]] OVString lowercase(const OVString& text) const override;

 private:
  const OVString identifier_;
};

}  // namespace ov
