#pragma once

#include <memory>
#include <mutex>
#include <string>

#include <OVAddressBookSDK/locale.h>

#include "platform/services/collation.h"

namespace ov {

/// Countries, case mappings and collations of ICU.
class IcuLocale final : public OVLocale {
 public:
  /// A null identifier means that of the environment.
  explicit IcuLocale(OVString identifier) : identifier_(std::move(identifier)) {}

  [[nodiscard]] OVList<OVString> isoCountryCodes() const override;
  [[nodiscard]] OVString currentLocaleIdentifier() const override;
  [[nodiscard]] OVString lowercase(const OVString& text) const override;
  [[nodiscard]] std::string sortKey(const OVString& text) const override;
  [[nodiscard]] OVString searchForm(const OVString& text) const override;

 private:
  [[nodiscard]] std::shared_ptr<const Collation> collation() const;

  const OVString identifier_;
  mutable std::mutex mutex_;
  mutable OVString collationIdentifier_;
  mutable std::shared_ptr<const Collation> collation_;
};

}  // namespace ov
