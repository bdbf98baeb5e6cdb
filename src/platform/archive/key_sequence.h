#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace ov::detail {

/// Numbers given to the keys of a class's fields, in the order in which its objects use them.
///
/// One object uses the keys of the one before, except for some left out: the next key is guessed
/// from the last one, and the address of its text says whether the guess is right. Only for keys
/// whose texts live, unchanged, for as long as this does.
class KeySequence {
 public:
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;
  static constexpr std::size_t kMemoryPerKey = 72;  // while the sequence grows

  /// Walks through the sequence for one object; without one, finds and learns nothing.
  class Walk {
   public:
    explicit Walk(KeySequence* sequence = nullptr) : sequence_(sequence) {}

    [[nodiscard]] bool isLearning() const { return sequence_ != nullptr; }

    /// The number of the key, kNone when the sequence doesn't have it from here on.
    [[nodiscard]] std::uint32_t next(std::string_view key) {
      if (sequence_ == nullptr) return kNone;
      for (std::size_t at = next_; at < sequence_->keys_.size(); ++at) {
        const Key& known = sequence_->keys_[at];
        if (known.address == key.data() && known.size == key.size()) {
          next_ = at + 1;
          return known.number;
        }
      }
      return kNone;
    }
    /// Adds a key that was not found.
    void add(std::string_view key, std::uint32_t number) {
      if (sequence_ == nullptr || sequence_->keys_.size() == kMaxKeys) return;
      const auto place = sequence_->keys_.begin() + static_cast<std::ptrdiff_t>(next_);
      sequence_->keys_.insert(place, {key.data(), key.size(), number});
      ++next_;
    }

   private:
    KeySequence* sequence_;
    std::size_t next_ = 0;
  };

 private:
  static constexpr std::size_t kMaxKeys = 64;

  struct Key {
    const char* address;
    std::size_t size;
    std::uint32_t number;
  };

  std::vector<Key> keys_;
};

}  // namespace ov::detail
