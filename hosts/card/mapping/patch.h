#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "codec/card.h"

namespace ov::card {

/// Changes of some lines of a card; everything else is kept byte for byte.
class Patch {
 public:
  explicit Patch(const Card& card) : card_(card), isKept_(card.lines.size(), true) {}

  void drop(std::size_t line) { isKept_[line] = false; }
  [[nodiscard]] bool keeps(std::size_t line) const { return isKept_[line]; }
  /// Lines before that one, or after the last.
  void insert(std::size_t line, std::string_view text) { inserted_[line] += text; }
  [[nodiscard]] std::size_t end() const { return isKept_.size(); }
  [[nodiscard]] bool isEmpty() const;

  void write(std::string& out) const;

 private:
  const Card& card_;
  std::vector<bool> isKept_;
  std::map<std::size_t, std::string> inserted_;
};

}  // namespace ov::card
