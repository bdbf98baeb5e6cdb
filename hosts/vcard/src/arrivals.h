#pragma once

#include <cstddef>
#include <vector>

#include "book_content.h"

namespace ov::vcard {

/// What comes into a book while it lives. Taken back at the end, without needing memory, unless it
/// has been kept.
class Arrivals {
 public:
  explicit Arrivals(BookContent& book);
  Arrivals(const Arrivals&) = delete;
  Arrivals& operator=(const Arrivals&) = delete;
  ~Arrivals();

  /// Where the book has a tag manager, that has the tags of the new persons from now on.
  void keep();

 private:
  void forgetTags() noexcept;

  BookContent& book_;
  std::size_t personCount_;
  std::size_t problemCount_;
  std::vector<GroupRecord> groups_;  // as they were
  bool isKept_ = false;
};

}  // namespace ov::vcard
