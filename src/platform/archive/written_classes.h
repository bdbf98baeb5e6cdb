#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <typeinfo>
#include <unordered_map>
#include <utility>

#include <OVAddressBookSDK/opaque_object.h>

#include "platform/archive/archive_keys.h"
#include "platform/archive/key_sequence.h"
#include "platform/archive/written_objects.h"
#include "platform/archive/written_values.h"
#include "platform/keyed_hash.h"

namespace ov::detail {

/// The classes whose objects an archive holds, and their records in it.
class WrittenClasses {
 public:
  using Number = PlistWriter::Number;

  /// How an object is written: as a text, as another leaf, with a record of its own, or with that
  /// of its class.
  enum class Kind : std::uint8_t { text, leaf, opaque, other };

  struct Entry {
    const OVClass* objectClass = nullptr;
    Number record = 0;  // 0: not written yet
    Kind kind = Kind::other;
    bool isHosts = false;
    bool isTrusted = false;  // to hold what it encodes, and to encode it once
    /// Exactly the class, where a host may derive one that archives under the same name.
    const std::type_info* type = nullptr;
    KeySequence keys;

    [[nodiscard]] bool isOf(const OVObject& object) const {
      return isTrusted && (type == nullptr || typeid(object) == *type);
    }
  };

  WrittenClasses(PlistWriter& plist, WrittenValues& values, WrittenObjects& objects)
      : plist_(plist), values_(values), objects_(objects) {}

  /// The key of an object's class.
  Number key() { return key_ == 0 ? key_ = values_.key(archive::kClass) : key_; }

  /// Stays where it is.
  Entry& of(const OVClass& objectClass) {
    const auto known = entries_.find(&objectClass);
    return known == entries_.end() ? add(objectClass) : known->second;
  }

  /// The reference to a class's record, of which there is one for each that reads the same.
  Number record(Entry& entry) { return entry.record == 0 ? newRecord(entry) : entry.record; }
  Number record(const OVOpaqueObject& object);

 private:
  [[gnu::cold]] Entry& add(const OVClass& objectClass);
  [[gnu::cold]] Number newRecord(Entry& entry);
  Number record(const OVString& name, std::span<const OVString> names,
                std::span<const OVString> hints);

  PlistWriter& plist_;
  WrittenValues& values_;
  WrittenObjects& objects_;
  Number key_ = 0;  // 0: not written yet
  std::unordered_map<const OVClass*, Entry> entries_;
  std::unordered_map<std::string, Number, KeyedHash> records_;
  /// By the address of the name: each record that was read has one of its own, and the objects of
  /// the class share it.
  std::unordered_map<const char*, std::pair<OVString, Number>> opaque_;
};

}  // namespace ov::detail
