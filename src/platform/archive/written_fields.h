#pragma once

#include <algorithm>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/archive/archive_keys.h"
#include "platform/archive/key_sequence.h"
#include "platform/archive/written_values.h"

namespace ov::detail {

/// The fields of the object that is being written.
class WrittenFields {
 public:
  using Number = PlistWriter::Number;
  using Entry = PlistWriter::Entry;

  explicit WrittenFields(WrittenValues& values) : values_(values) {}

  /// Begins an object. `keys`: those of its class, where each is constant and written once; null
  /// where nobody knows that.
  void begin(KeySequence* keys) {
    entries_.clear();
    nextKey_ = KeySequence::Walk(keys);
  }

  /// A field of the class's own. The first of two with one key counts.
  void add(std::string_view key, Number value) {
    const Number number = nextKey_.next(key);
    if (number == KeySequence::kNone) {
      addNew(key, value);
    } else {
      entries_.push_back({number, value});
    }
  }
  /// A field whose key has been written verbatim.
  void addRaw(Number key, Number value) { entries_.push_back({key, value}); }

  [[nodiscard]] std::span<const Entry> entries() const { return entries_; }

 private:
  [[gnu::cold]] void addNew(std::string_view key, Number value) {
    const bool isReserved = key.starts_with(archive::kReserved);
    const Number number =
        isReserved ? values_.key(archive::kReserved + std::string(key)) : values_.key(key);
    if (nextKey_.isLearning()) {
      nextKey_.add(key, number);
    } else if (std::ranges::find(entries(), number, &Entry::key) != entries().end()) {
      return;
    }
    entries_.push_back({number, value});
  }

  WrittenValues& values_;
  std::vector<Entry> entries_;
  KeySequence::Walk nextKey_;
};

}  // namespace ov::detail
