#include "support/archive/plist_builder.h"

#include <bit>

namespace {

unsigned fewestBytes(std::uint64_t number) {
  return number < 0x100 ? 1 : number < 0x10000 ? 2 : number < 0x100000000 ? 4 : 8;
}

std::string integerBytes(std::uint64_t value, unsigned width) {
  const auto marker = static_cast<char>(0x10 | std::countr_zero(width));
  return marker + PlistBuilder::bigEndian(value, width);
}

}  // namespace

std::string PlistBuilder::bigEndian(std::uint64_t number, unsigned width) {
  std::string bytes;
  for (unsigned i = width; i-- > 0;) {
    bytes.push_back(i < 8 ? static_cast<char>(number >> (8 * i)) : '\0');
  }
  return bytes;
}

std::string PlistBuilder::head(unsigned kind, std::size_t length) {
  if (length < 15) return {static_cast<char>(kind | length)};
  return static_cast<char>(kind | 0x0F) + integerBytes(length, fewestBytes(length));
}

PlistBuilder::Number PlistBuilder::add(std::string bytes, std::vector<Number> references) {
  objects_.push_back({std::move(bytes), std::move(references)});
  return objects_.size() - 1;
}

PlistBuilder::Number PlistBuilder::raw(std::string bytes) { return add(std::move(bytes), {}); }

PlistBuilder::Number PlistBuilder::integer(std::int64_t value, unsigned width) {
  const auto number = static_cast<std::uint64_t>(value);
  if (width == 0) width = fewestBytes(number);
  std::string bytes = integerBytes(number, width);
  if (width == 16 && value < 0) bytes.replace(1, 8, 8, '\xFF');
  return raw(bytes);
}

PlistBuilder::Number PlistBuilder::real(double value) {
  return raw('\x23' + bigEndian(std::bit_cast<std::uint64_t>(value), 8));
}

PlistBuilder::Number PlistBuilder::shortReal(float value) {
  return raw('\x22' + bigEndian(std::bit_cast<std::uint32_t>(value), 4));
}

PlistBuilder::Number PlistBuilder::date(double seconds) {
  return raw('\x33' + bigEndian(std::bit_cast<std::uint64_t>(seconds), 8));
}

PlistBuilder::Number PlistBuilder::bytes(std::string_view bytes) {
  return raw(head(0x40, bytes.size()).append(bytes));
}

PlistBuilder::Number PlistBuilder::ascii(std::string_view text) {
  return raw(head(0x50, text.size()).append(text));
}

PlistBuilder::Number PlistBuilder::utf16(std::u16string_view text) {
  std::string bytes = head(0x60, text.size());
  for (const char16_t unit : text) bytes += bigEndian(unit, 2);
  return raw(bytes);
}

PlistBuilder::Number PlistBuilder::uid(std::uint64_t value, unsigned width) {
  return raw(static_cast<char>(0x80 | (width - 1)) + bigEndian(value, width));
}

PlistBuilder::Number PlistBuilder::array(std::vector<Number> elements) {
  std::string bytes = head(0xA0, elements.size());
  return add(std::move(bytes), std::move(elements));
}

PlistBuilder::Number PlistBuilder::set(std::vector<Number> elements) {
  std::string bytes = head(0xC0, elements.size());
  return add(std::move(bytes), std::move(elements));
}

PlistBuilder::Number PlistBuilder::dictionary(std::vector<Number> keys,
                                              const std::vector<Number>& values) {
  std::string bytes = head(0xD0, keys.size());
  keys.insert(keys.end(), values.begin(), values.end());
  return add(std::move(bytes), std::move(keys));
}

PlistBuilder::Number PlistBuilder::fields(const Fields& fields) {
  std::vector<Number> keys;
  std::vector<Number> values;
  for (const auto& [key, value] : fields) {
    keys.push_back(ascii(key));
    values.push_back(value);
  }
  return dictionary(std::move(keys), values);
}

std::string PlistBuilder::list(Number top) const {
  const unsigned width = referenceSize != 0 ? referenceSize : fewestBytes(objects_.size());
  std::string list = "bplist00";
  std::vector<std::uint64_t> offsets;
  for (const Object& object : objects_) {
    offsets.push_back(list.size());
    list += object.bytes;
    for (const Number reference : object.references) list += bigEndian(reference, width);
  }
  const std::size_t table = list.size();
  const unsigned offsetWidth = offsetSize != 0 ? offsetSize : fewestBytes(table);
  for (const std::uint64_t offset : offsets) list += bigEndian(offset, offsetWidth);
  list += std::string(6, '\0') + static_cast<char>(offsetWidth) + static_cast<char>(width);
  list += bigEndian(objects_.size(), 8) + bigEndian(top, 8) + bigEndian(table, 8);
  return list;
}
