#include "field_words.h"

#include <OVAddressBookSDK/address_field.h>

namespace ovbook {

namespace {

constexpr std::string_view kPrefix = "OVAddressField";

}  // namespace

std::string_view wordOfField(const OVString& fieldName) {
  std::string_view word = fieldName;
  if (word.starts_with(kPrefix)) word.remove_prefix(kPrefix.size());
  return word;
}

OVString fieldOfWord(std::string_view word) {
  const auto field = OVAdressField::fieldWithName(std::string(kPrefix) + std::string(word));
  return field == nullptr ? nullptr : field->name();
}

}  // namespace ovbook
