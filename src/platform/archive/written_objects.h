#pragma once

#include <cstdint>

#include "platform/archive/archive_keys.h"
#include "platform/archive/growing_array.h"
#include "platform/archive/plist_writer.h"
#include "platform/archive/recent_leaves.h"

namespace ov::detail {

/// The objects of an archive by their UIDs. An object is referred to by a UID in the property list;
/// there is one of each.
class WrittenObjects {
 public:
  using Number = PlistWriter::Number;

  explicit WrittenObjects(PlistWriter& plist)
      : plist_(plist), recent_(plist), null_(add(plist.text(archive::kNull))) {}

  /// The reference to null.
  [[nodiscard]] Number null() const { return null_; }
  /// The UID that the next object gets.
  [[nodiscard]] std::uint32_t nextUid() const { return static_cast<std::uint32_t>(byUid_.size()); }

  /// The reference to an object, which may still have to be written.
  Number add(Number object = 0) {
    const std::uint32_t uid = nextUid();
    byUid_.push_back(object);
    return plist_.uid(uid);
  }
  void place(std::uint32_t uid, Number object) { byUid_[uid] = object; }

  /// The reference to the text, number or data block that was written last; where it was written
  /// lately, it is one with that.
  Number addLeaf(Number last) {
    const RecentLeaves::Result leaf = recent_.add(last);
    return leaf.isNew ? add(leaf.object) : leaf.object + 1;  // the reference follows its leaf
  }

  /// All of them; there are no more after that.
  Number array() {
    const Number array = plist_.array(byUid_.span());
    byUid_.release();
    return array;
  }

 private:
  PlistWriter& plist_;
  RecentLeaves recent_;
  GrowingArray<Number> byUid_;  // 0 while not written
  Number null_;
};

}  // namespace ov::detail
