#pragma once

#include <cstddef>
#include <iterator>
#include <string_view>
#include <utility>

#include "platform/utf8.h"

namespace ov::detail {

/// The UTF-16 code units of well-formed UTF-8, in order, for range-for and range algorithms.
class Utf16Units {
 public:
  /// `text` must outlive the iterators.
  explicit Utf16Units(std::string_view text) : text_(text) {}

  class Iterator {
   public:
    using iterator_concept = std::forward_iterator_tag;
    using iterator_category = std::input_iterator_tag;
    using value_type = char16_t;
    using difference_type = std::ptrdiff_t;
    using reference = char16_t;

    Iterator() = default;
    explicit Iterator(std::string_view rest) : rest_(rest) { read(); }

    char16_t operator*() const { return unit_; }
    Iterator& operator++() {
      if (low_ != 0) {
        unit_ = std::exchange(low_, u'\0');
      } else {
        rest_.remove_prefix(length_);
        read();
      }
      return *this;
    }
    Iterator operator++(int) {
      const Iterator before = *this;
      ++*this;
      return before;
    }
    friend bool operator==(const Iterator& a, const Iterator& b) {
      return a.rest_.size() == b.rest_.size() && a.low_ == b.low_;
    }

   private:
    void read() {
      if (rest_.empty()) return;
      const auto [codePoint, length] = firstCodePoint(rest_);
      length_ = length;
      if (codePoint < 0x10000) {
        unit_ = static_cast<char16_t>(codePoint);
      } else {
        unit_ = static_cast<char16_t>(0xD7C0 + (codePoint >> 10));
        low_ = static_cast<char16_t>(0xDC00 | (codePoint & 0x3FF));
      }
    }

    std::string_view rest_;   // begins with the code point that is being read
    std::size_t length_ = 0;  // its bytes
    char16_t unit_ = 0;
    char16_t low_ = 0;  // the second half of a surrogate pair that is still to come, or 0
  };

  [[nodiscard]] Iterator begin() const { return Iterator(text_); }
  [[nodiscard]] Iterator end() const { return Iterator(text_.substr(text_.size())); }

 private:
  std::string_view text_;
};

}  // namespace ov::detail
