#include "support/archive/overlapping_objects.h"

#include <array>
#include <map>
#include <string>
#include <vector>

#include "support/archive/plist_builder.h"

namespace {

// Numbers of objects. All others are a text, so that whatever is in the way can be a key.
constexpr unsigned char kValueKey = 0x30;
constexpr unsigned char kClassKey = 0x31;
constexpr unsigned char kClass = 0x32;
constexpr unsigned char kFirstObject = 0x40;
constexpr unsigned char kFirstUid = 0x60;
constexpr unsigned char kArchive = 0x80;
constexpr std::size_t kNumbers = 0xE0;  // 0xDF begins a dictionary

// Each dictionary begins that far after the one before.
constexpr std::size_t kStride = 256;
constexpr std::size_t kHead = 6;

char uidOf(unsigned char object) { return static_cast<char>(object - kFirstObject + 2); }

class Block {
 public:
  Block(std::size_t keys, std::size_t depth) {
    offsets_.fill(bytes_.size());
    bytes_ += "\x51k";
    add(kValueKey, "\x55value");
    add(kClassKey, "\x56$class");
    add(kClass, std::string("\x80\x01", 2));
    addArchive(depth);
    addDictionaries((keys | (kStride - 1)) + 1 + depth * kStride, depth);
  }

  OVRef<OVData> block() {
    const std::size_t table = bytes_.size();
    for (const std::size_t offset : offsets_) bytes_ += PlistBuilder::bigEndian(offset, 4);
    bytes_ += std::string(6, '\0') + "\x04\x01";
    for (const std::size_t each : {kNumbers, std::size_t{kArchive}, table}) {
      bytes_ += PlistBuilder::bigEndian(each, 8);
    }
    return OVData::dataWithText(bytes_);
  }

 private:
  void add(unsigned char number, const std::string& object) {
    offsets_.at(number) = bytes_.size();
    bytes_ += object;
  }

  void addArchive(std::size_t depth) {
    std::string objects;
    for (std::size_t i = 0; i < depth; ++i) objects += static_cast<char>(kFirstObject + i);
    add(kArchive, "\xD4\x81\x82\x83\x84\x85\x86\x87\x88");
    add(kArchive + 1, "\x58$version");
    add(kArchive + 2, "\x59$archiver");
    add(kArchive + 3, "\x54$top");
    add(kArchive + 4, "\x58$objects");
    add(kArchive + 5, std::string("\x12\x00\x01\x86\xA0", 5));
    add(kArchive + 6, PlistBuilder::head(0x50, 15) + "NSKeyedArchiver");
    add(kArchive + 7, "\xD1\x89\x60");
    add(kArchive + 8, PlistBuilder::head(0xA0, depth + 2) + "\x8A\x8B" + objects);
    add(kArchive + 9, "\x54root");
    add(kArchive + 10, "\x55$null");
    add(kArchive + 11, "\xD1\x8C\x8D");
    add(kArchive + 12, "\x5A$classname");
    add(kArchive + 13, PlistBuilder::head(0x50, 20) + "OVMutableSingleValue");
    for (std::size_t i = 0; i < depth; ++i) {
      const auto number = static_cast<unsigned char>(kFirstObject + i);
      add(static_cast<unsigned char>(kFirstUid + i), {'\x80', uidOf(number)});
    }
  }

  /// All keys end at one place, where the values begin.
  void addDictionaries(std::size_t count, std::size_t depth) {
    const std::size_t first = bytes_.size();
    const std::size_t values = first + kHead + count;
    bytes_.resize(values + count, '\0');
    const std::size_t classKey = values - 1;
    bytes_[classKey] = static_cast<char>(kClassKey);
    for (std::size_t i = 0; i < depth; ++i) {
      const std::size_t begin = first + i * kStride;
      const std::size_t keys = begin + kHead;
      offsets_.at(kFirstObject + i) = begin;
      bytes_.replace(begin, kHead, "\xDF\x12" + PlistBuilder::bigEndian(values - keys, 4));
      // The first of its own kind in this dictionary, and at a place of its own.
      bytes_[keys + i] = static_cast<char>(kValueKey);
      if (i + 1 < depth) bytes_[values + i] = static_cast<char>(kFirstUid + i + 1);
      bytes_[values + (classKey - keys)] = static_cast<char>(kClass);
    }
  }

  std::string bytes_ = "bplist00";
  std::array<std::size_t, kNumbers> offsets_{};
};

}  // namespace

OVRef<OVData> overlappingObjects(std::size_t keys, std::size_t depth) {
  return Block(keys, depth).block();
}
