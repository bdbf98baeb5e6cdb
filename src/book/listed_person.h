#pragma once

#include <OVAddressBookSDK/person_general.h>

namespace ov::detail {

/// A person who reads, of an archived one, what lists show. Cannot be archived.
class ListedPerson final : public OVPersonGeneral {
 public:
  void encodeWithCoder(OVKeyedArchiver& coder) const override;
  void initWithCoder(OVKeyedUnarchiver& coder) override;

 private:
  friend struct Maker;
  ListedPerson() = default;
};

}  // namespace ov::detail
