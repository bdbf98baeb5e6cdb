#pragma once

#include <OVAddressBookSDK/person_general.h>

namespace ov::detail {

/// A person who reads, of an archived one, what lists show.
class ListedPerson final : public OVPersonGeneral {
 public:
  void encodeWithCoder(OVKeyedArchiver& coder) const override;
  void initWithCoder(OVKeyedUnarchiver& coder) override;
  /// Throws `std::invalid_argument`: the rest of the person would be lost.
  [[noreturn]] void refuseToKeep() const;

 private:
  friend struct Maker;
  ListedPerson() = default;
};

}  // namespace ov::detail
