// Changes one object of a property list and lays out the list again around it: a change anywhere
// else moves what follows, and the offsets no longer fit.

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/archive/big_endian.h"
#include "platform/archive/plist_format.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

using ov::detail::loadBigEndian;
using ov::detail::storeBigEndian;
namespace plist = ov::detail::plist;

/// The parts of a list whose trailer makes sense.
struct Parts {
  std::vector<std::string> objects;  // in the order in which they are in the block
  std::vector<std::size_t> numbers;  // for each number, its place among them
  std::string trailer;
};

std::uint64_t numberAt(std::string_view text, std::size_t at, unsigned width) {
  return loadBigEndian(reinterpret_cast<const std::byte*>(text.data() + at), width);
}

void put(std::string& text, std::size_t at, std::uint64_t number, unsigned width) {
  storeBigEndian(reinterpret_cast<std::byte*>(text.data() + at), number, width);
}

std::optional<Parts> split(std::string_view list) {
  const std::size_t head = plist::kHeader.size();
  if (list.size() < head + plist::kTrailerSize) return std::nullopt;
  const std::size_t end = list.size() - plist::kTrailerSize;
  const auto width = static_cast<unsigned char>(list[end + 6]);
  const std::uint64_t count = numberAt(list, end + 8, 8);
  const std::uint64_t table = numberAt(list, end + 24, 8);
  if (width < 1 || width > 8 || table < head || table > end || count == 0 ||
      count > (end - table) / width) {
    return std::nullopt;
  }
  std::vector<std::uint64_t> offsets;
  for (std::uint64_t i = 0; i < count; ++i) {
    offsets.push_back(
        std::clamp<std::uint64_t>(numberAt(list, table + i * width, width), head, table));
  }
  std::vector<std::uint64_t> places = offsets;
  std::ranges::sort(places);
  places.erase(std::unique(places.begin(), places.end()), places.end());
  Parts parts;
  for (std::size_t i = 0; i < places.size(); ++i) {
    const std::uint64_t past = i + 1 < places.size() ? places[i + 1] : table;
    parts.objects.emplace_back(list.substr(places[i], past - places[i]));
  }
  for (const std::uint64_t offset : offsets) {
    parts.numbers.push_back(
        static_cast<std::size_t>(std::ranges::lower_bound(places, offset) - places.begin()));
  }
  parts.trailer = list.substr(end);
  return parts;
}

std::string joined(const Parts& parts) {
  std::string list(plist::kHeader);
  std::vector<std::size_t> offsets;
  for (const std::string& object : parts.objects) {
    offsets.push_back(list.size());
    list += object;
  }
  const std::size_t table = list.size();
  const unsigned width = table < 0x100 ? 1 : table < 0x10000 ? 2 : 4;
  list.resize(table + width * parts.numbers.size());
  for (std::size_t i = 0; i < parts.numbers.size(); ++i) {
    put(list, table + i * width, offsets[parts.numbers[i]], width);
  }
  const std::size_t trailer = list.size();
  list += parts.trailer;
  list[trailer + 6] = static_cast<char>(width);
  put(list, trailer + 8, parts.numbers.size(), 8);
  put(list, trailer + 24, table, 8);
  return list;
}

void change(std::string& bytes) {
  constexpr std::size_t kRoom = 32;  // for any word of the dictionary
  const std::size_t size = bytes.size();
  bytes.resize(size + kRoom);
  bytes.resize(LLVMFuzzerMutate(reinterpret_cast<std::uint8_t*>(bytes.data()), size, bytes.size()));
}

/// Changes a text and leaves it one: a key, a class name, a value. False for anything else.
bool changeText(std::string& object) {
  const auto first = static_cast<unsigned char>(object.empty() ? '\0' : object.front());
  const std::size_t start = (first & 0x0FU) == plist::kLengthFollows ? 3 : 1;
  if ((first & 0xF0U) != plist::kAscii || object.size() <= start) return false;
  std::string text = object.substr(start);
  change(text);
  text.resize(std::min<std::size_t>(text.size(), 0xFF));
  for (char& c : text) c = static_cast<char>(c & 0x7F);
  object = static_cast<char>(plist::kAscii | plist::kLengthFollows);
  object += static_cast<char>(plist::kInteger);
  object += static_cast<char>(text.size());
  object += text;
  return true;
}

unsigned kindOf(const Parts& parts, std::size_t number) {
  const std::string& object = parts.objects[parts.numbers[number]];
  return object.empty() ? 0 : static_cast<unsigned char>(object.front()) & 0xF0U;
}

/// Another number whose object is of the same kind; the same one when there is none.
std::size_t numberLike(const Parts& parts, std::size_t number, unsigned chance) {
  const std::size_t count = parts.numbers.size();
  for (std::size_t i = 0, other = chance; i < count; ++i, ++other) {
    if (other % count != number && kindOf(parts, other % count) == kindOf(parts, number)) {
      return other % count;
    }
  }
  return number;
}

/// Lets an array, a set or a dictionary refer to something else in one place.
void redirect(Parts& parts, unsigned chance) {
  const auto width = static_cast<unsigned char>(parts.trailer[7]);
  std::string& object = parts.objects[parts.numbers[chance % parts.numbers.size()]];
  const std::size_t references = width == 0 || object.empty() ? 0 : (object.size() - 1) / width;
  if (references == 0 || static_cast<unsigned char>(object.front()) < plist::kArray) return;
  const std::size_t which = chance / 7 % references;
  put(object, object.size() - (which + 1) * width, chance / 64 % parts.numbers.size(), width);
}

void changeOne(Parts& parts, unsigned chance) {
  std::string& object = parts.objects[chance / 8 % parts.objects.size()];
  const std::size_t number = chance / 8 % parts.numbers.size();
  switch (chance % 8) {
    case 3:  // keys, class names or references change places
      std::swap(parts.numbers[number], parts.numbers[numberLike(parts, number, chance / 64)]);
      break;
    case 4:  // one takes the place of another
      parts.numbers[number] = parts.numbers[numberLike(parts, number, chance / 64)];
      break;
    case 5:
      redirect(parts, chance / 8);
      break;
    case 0:  // one more number for an object
      parts.numbers.push_back(chance / 8 % parts.objects.size());
      break;
    case 1:  // one more object
      parts.numbers.push_back(parts.objects.size());
      parts.objects.push_back(std::string(object));
      change(parts.objects.back());
      break;
    case 2:  // a number for another object
      parts.numbers[chance / 8 % parts.numbers.size()] = chance / 64 % parts.objects.size();
      break;
    case 6:
      if (!changeText(object)) change(object);
      break;
    default:
      change(object);
  }
}

}  // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maxSize, unsigned seed) {
  constexpr unsigned kAnywhere = 4;  // one change in that many
  auto parts = split({reinterpret_cast<const char*>(data), size});
  if (!parts || seed % kAnywhere == 0) return LLVMFuzzerMutate(data, size, maxSize);
  changeOne(*parts, seed / kAnywhere);
  const std::string list = joined(*parts);
  if (list.size() > maxSize) return LLVMFuzzerMutate(data, size, maxSize);
  std::ranges::copy(list, reinterpret_cast<char*>(data));
  return list.size();
}
