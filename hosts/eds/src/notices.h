#pragma once

#include <vector>

#include "book_content.h"

namespace ov::eds {

/// What observers are notified of when it changes.
class PersonBefore {
 public:
  explicit PersonBefore(const ov::card::Person& person);
  /// Adds what is another now.
  void tell(const OVRef<ov::card::Person>& person, std::vector<Notice>& notices) const;

 private:
  OVString name_;
  OVString phone_;
  OVString email_;
};

}  // namespace ov::eds
