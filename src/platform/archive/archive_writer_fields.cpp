#include <algorithm>
#include <string>
#include <variant>
#include <vector>

#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/number.h>

#include "platform/archive/archive_writer.h"
#include "platform/utf8.h"

namespace ov::detail {

bool ArchiveWriter::isWritten(Number fieldKey) const {
  return std::ranges::find(fields_.span(), fieldKey, &PlistWriter::Entry::key) !=
         fields_.span().end();
}

void ArchiveWriter::newField(std::string_view name, Number value) {
  const bool isReserved = name.starts_with(archive::kReserved);
  const Number number = isReserved ? key(archive::kReserved + std::string(name)) : key(name);
  if (countsReferences()) nextKey_.add(name, number);
  if (places_ != nullptr) namePlaces(name);
  addField(number, value);
}

void ArchiveWriter::rawField(std::string_view name, Number value) {
  if (places_ != nullptr) namePlaces(name);
  addField(key(name), value);
}

void ArchiveWriter::addField(Number key, Number value) {
  if (countsReferences() || !isWritten(key)) fields_.push_back({key, value});
}

ArchiveWriter::Number ArchiveWriter::newKey(std::string_view key) {
  const bool isWellFormed = wellFormedPrefix(key) == key.size();
  const Number number = isWellFormed ? inlineText(key) : inlineText(repaired(key));
  keys_.add(key, number);
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

void ArchiveWriter::writeLeaf(const OVObject& object, Kind kind) {
  if (kind == Kind::text) {
    const auto& text = static_cast<const TextObject&>(object);
    plist_.text({text.data(), text.size()});
  } else if (kind == Kind::data) {
    plist_.data(static_cast<const OVData&>(object).bytes());
  } else if (kind == Kind::date) {
    plist_.date(static_cast<const OVDate&>(object).timeIntervalSinceReferenceDate());
  } else {
    const auto number = static_cast<const OVNumber&>(object).value();
    if (const auto* flag = std::get_if<bool>(&number)) {
      plist_.boolean(*flag);
    } else if (const auto* integer = std::get_if<std::int64_t>(&number)) {
      plist_.integer(*integer);
    } else if (const auto* natural = std::get_if<std::uint64_t>(&number)) {
      plist_.unsignedInteger(*natural);
    } else {
      plist_.real(std::get<double>(number));
    }
  }
}

ArchiveWriter::Number ArchiveWriter::inlineObject(const OVRef<OVObject>& object) {
  if (object == nullptr) {
    plist_.null();
  } else {
    writeLeaf(*object, kindOf(*object->classForCoder()));
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
  std::vector<PlistWriter::Entry> entries;
  for (const auto& [name, member] : std::get<OVOpaqueValue::Dictionary>(value.content)) {
    entries.push_back({key(name), opaqueValue(member)});
  }
  return plist_.dictionary(entries);
}

}  // namespace ov::detail
