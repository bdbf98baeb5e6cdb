#include <algorithm>
#include <variant>

#include "platform/archive/archive_keys.h"
#include "platform/archive/archive_writer.h"
#include "platform/utf8.h"

namespace ov::detail {

void ArchiveWriter::field(std::string_view key, Number value) {
  if (!key.starts_with(archive::kReserved)) {
    rawField(key, value);
  } else {
    rawField(archive::kReserved + std::string(key), value);
  }
}

void ArchiveWriter::rawField(std::string_view name, Number value) {
  const Number number = key(name);
  if (std::find(fieldKeys_.begin(), fieldKeys_.end(), number) != fieldKeys_.end()) return;
  fieldKeys_.push_back(number);
  fieldValues_.push_back(value);
}

ArchiveWriter::Number ArchiveWriter::key(std::string_view key) {
  Number number = keys_.find(key);
  if (number == KeyNumbers::kNone) {
    number = wellFormedPrefix(key) == key.size() ? inlineText(key) : inlineText(repaired(key));
    keys_.add(key, number);
  }
  return number;
}

ArchiveWriter::Number ArchiveWriter::inlineText(std::string_view text) {
  plist_.text(text);
  return inlineLeaves_.addLast().object;
}

ArchiveWriter::Number ArchiveWriter::inlineInteger(std::int64_t value) {
  const bool isSmall = value >= 0 && value < static_cast<std::int64_t>(smallIntegers_.size());
  if (isSmall && smallIntegers_[static_cast<std::size_t>(value)] != 0) {
    return smallIntegers_[static_cast<std::size_t>(value)];
  }
  plist_.integer(value);
  const Number number = inlineLeaves_.addLast().object;
  if (isSmall) smallIntegers_[static_cast<std::size_t>(value)] = number;
  return number;
}

ArchiveWriter::Number ArchiveWriter::inlineBool(bool value) {
  plist_.boolean(value);
  return inlineLeaves_.addLast().object;
}

ArchiveWriter::Number ArchiveWriter::inlineReal(double value) {
  plist_.real(value);
  return inlineLeaves_.addLast().object;
}

ArchiveWriter::Number ArchiveWriter::inlineData(std::span<const std::byte> bytes) {
  plist_.data(bytes);
  return inlineLeaves_.addLast().object;
}

ArchiveWriter::Number ArchiveWriter::inlineObject(const OVRef<OVObject>& object) {
  if (object == nullptr) {
    plist_.null();
  } else {
    writeLeaf(*object, *object->classForCoder());
  }
  return inlineLeaves_.addLast().object;
}

ArchiveWriter::Number ArchiveWriter::textArray(std::span<const OVString> texts) {
  std::vector<Number> numbers;
  for (const OVString& text : texts) numbers.push_back(inlineText(text));
  return plist_.array(numbers);
}

ArchiveWriter::Number ArchiveWriter::arrayOf(const OVOpaqueValue::Array& values, bool asSet) {
  std::vector<Number> numbers;
  for (const OVOpaqueValue& value : values) numbers.push_back(opaqueValue(value));
  return asSet ? plist_.set(numbers) : plist_.array(numbers);
}

ArchiveWriter::Number ArchiveWriter::opaqueValue(const OVOpaqueValue& value) {
  if (const auto* reference = std::get_if<OVOpaqueValue::Reference>(&value.content)) {
    return this->reference(reference->object);
  }
  if (const auto* leaf = std::get_if<OVOpaqueValue::Inline>(&value.content)) {
    return inlineObject(leaf->object);
  }
  if (const auto* array = std::get_if<OVOpaqueValue::Array>(&value.content)) {
    return arrayOf(*array, false);
  }
  if (const auto* set = std::get_if<OVOpaqueValue::Set>(&value.content)) {
    return arrayOf(set->elements, true);
  }
  std::vector<Number> keys;
  std::vector<Number> values;
  for (const auto& [name, member] : std::get<OVOpaqueValue::Dictionary>(value.content)) {
    keys.push_back(key(name));
    values.push_back(opaqueValue(member));
  }
  return plist_.dictionary(keys, values);
}

}  // namespace ov::detail
