#pragma once

#include <string>
#include <unordered_set>
#include <vector>

#include "arriving.h"
#include "book_content.h"

namespace ov::eds {

/// Shows in a book what others have done to its cards. Where we have changed the same card, theirs
/// is shown and ours becomes a conflict.
class Applier {
 public:
  explicit Applier(BookContent& book) : book_(book) {}
  Applier(const Applier&) = delete;
  Applier& operator=(const Applier&) = delete;
  ~Applier() = default;

  /// The card of that UID is this one now.
  void come(const std::string& uid, const std::string& card);
  /// The same; there is nothing of ours that it could be in conflict with.
  void become(const std::string& uid, const std::string& card);
  /// There is no card of that UID any more.
  void go(const std::string& uid);
  /// To be called last: has them all come and go. `book.applied` and `book.notices` tell.
  void finish();

 private:
  using Entry = ov::card::Store::Entry;

  void leave(const Entry& entry, const std::string& uid);
  void keepAsMissing();

  BookContent& book_;
  std::vector<std::string> newUIDs_;
  std::vector<std::string> newCards_;
  std::vector<GroupRenewal> renewals_;
  std::unordered_set<const ov::card::Person*> leaving_;
  std::vector<std::shared_ptr<ov::card::Group>> leavingGroups_;
};

/// Applies what the service has reported, and what it must be asked for.
[[nodiscard]] std::error_code applyNews(BookContent& book, const Call& call);

/// Posts notifications for observers, with `object` as the sender.
void postNotices(BookContent& book, const OVRef<OVObject>& object);

}  // namespace ov::eds
