#include <OVAddressBookSDK/address_field.h>

#include <array>
#include <cstddef>
#include <utility>

#include "address/field_table.h"
#include "platform/built_once.h"
#include "platform/maker.h"

using ov::detail::kConstant;
using ov::detail::kFieldTable;

constexpr OVString OVAddressFieldCountryOrArea(kConstant<"OVAddressFieldCountryOrArea">);
constexpr OVString OVAddressFieldProvince(kConstant<"OVAddressFieldProvince">);
constexpr OVString OVAddressFieldCity(kConstant<"OVAddressFieldCity">);
constexpr OVString OVAddressFieldStreet(kConstant<"OVAddressFieldStreet">);
constexpr OVString OVAddressFieldPostalCode(kConstant<"OVAddressFieldPostalCode">);
constexpr OVString OVAddressFieldZIP(kConstant<"OVAddressFieldZIP">);
constexpr OVString OVAddressFieldState(kConstant<"OVAddressFieldState">);
constexpr OVString OVAddressFieldAdjacentarea(kConstant<"OVAddressFieldAdjacentarea">);
constexpr OVString OVAddressFieldcounty(kConstant<"OVAddressFieldcounty">);
constexpr OVString OVAddressFieldIsland(kConstant<"OVAddressFieldIsland">);
constexpr OVString OVAddressFieldPostalDistricts(kConstant<"OVAddressFieldPostalDistricts">);
constexpr OVString OVAddressFieldRegion(kConstant<"OVAddressFieldRegion">);
constexpr OVString OVAddressFieldDepartment(kConstant<"OVAddressFieldDepartment">);
constexpr OVString OVAddressFieldJurisdiction(kConstant<"OVAddressFieldJurisdiction">);
constexpr OVString OVAddressFieldTownCity(kConstant<"OVAddressFieldTownCity">);
constexpr OVString OVAddressFieldPostcode(kConstant<"OVAddressFieldPostcode">);
constexpr OVString OVAddressFieldSuburb(kConstant<"OVAddressFieldSuburb">);
constexpr OVString OVAddressFieldCountryCity(kConstant<"OVAddressFieldCountryCity">);
constexpr OVString OVAddressFieldPrefecture(kConstant<"OVAddressFieldPrefecture">);
constexpr OVString OVAddressFieldFurtherDivisions(kConstant<"OVAddressFieldFurtherDivisions">);

namespace {

using AllFields = std::array<OVRef<OVAdressField>, kFieldTable.size()>;

constinit ov::detail::BuiltOnce<AllFields> fieldsOnce;

AllFields buildFields() {
  AllFields fields;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    fields[i] = OVAdressField::initWithNameDisplayName(OVString(*kFieldTable[i].name),
                                                       OVString(*kFieldTable[i].displayName));
  }
  return fields;
}

}  // namespace

OVAdressField::OVAdressField(OVString name, OVString displayName)
    : name_(std::move(name)), displayName_(std::move(displayName)) {}

OVRef<OVAdressField> OVAdressField::initWithNameDisplayName(OVString name, OVString displayName) {
  return ov::detail::Maker::make<OVAdressField>(std::move(name), std::move(displayName));
}

void OVAdressField::checkInitField() { fieldsOnce.get(buildFields); }

OVRef<OVAdressField> OVAdressField::fieldWithName(const OVStringView& name) {
  const auto field = ov::detail::kFieldNames.find(name.view());
  return field ? fieldsOnce.get(buildFields)[*field] : nullptr;
}
