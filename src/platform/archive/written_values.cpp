#include "platform/archive/written_values.h"

#include <variant>
#include <vector>

#include <OVAddressBookSDK/data.h>
#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/number.h>

#include "platform/archive/class_table.h"
#include "platform/utf8.h"

namespace ov::detail {

namespace {

PlistWriter::Number writeNumber(PlistWriter& plist, const OVNumber& number) {
  const auto value = number.value();
  if (const auto* flag = std::get_if<bool>(&value)) return plist.boolean(*flag);
  if (const auto* integer = std::get_if<std::int64_t>(&value)) return plist.integer(*integer);
  if (const auto* natural = std::get_if<std::uint64_t>(&value)) {
    return plist.unsignedInteger(*natural);
  }
  return plist.real(std::get<double>(value));
}

}  // namespace

PlistWriter::Number writeLeaf(PlistWriter& plist, const OVObject& leaf) {
  const OVClass* leafClass = leaf.classForCoder();
  if (leafClass == &kTextClass) {
    const auto& text = static_cast<const TextObject&>(leaf);
    return plist.text({text.data(), text.size()});
  }
  if (leafClass == &kDataClass) return plist.data(static_cast<const OVData&>(leaf).bytes());
  if (leafClass == &kNumberClass) return writeNumber(plist, static_cast<const OVNumber&>(leaf));
  return plist.date(static_cast<const OVDate&>(leaf).timeIntervalSinceReferenceDate());
}

PlistWriter::Number WrittenValues::key(std::string_view key) {
  if (const auto known = keys_.find(key); known != keys_.end()) return known->second;
  const bool isWellFormed = wellFormedPrefix(key) == key.size();
  const Number number = isWellFormed ? text(key) : text(repaired(key));
  keys_.emplace(key, number);
  return number;
}

PlistWriter::Number WrittenValues::leaf(const OVRef<OVObject>& leaf) {
  if (leaf == nullptr) return once(plist_.null());
  if (leaf.use_count() == 1) return once(writeLeaf(plist_, *leaf));
  const auto [known, isNew] = met_.at(*leaf, leaf);
  if (isNew) known.number = once(writeLeaf(plist_, *leaf));
  return known.number;
}

PlistWriter::Number WrittenValues::integer(std::int64_t value) {
  const auto small = static_cast<std::uint64_t>(value);
  if (small >= smallIntegers_.size()) return once(plist_.integer(value));
  Number& number = smallIntegers_[static_cast<std::size_t>(small)];
  if (number == 0) number = once(plist_.integer(value));
  return number;
}

PlistWriter::Number WrittenValues::texts(std::span<const OVString> texts) {
  std::vector<Number> numbers;
  for (const OVString& each : texts) numbers.push_back(text(each));
  return plist_.array(numbers);
}

}  // namespace ov::detail
