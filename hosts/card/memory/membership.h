#pragma once

#include <memory>
#include <string>
#include <vector>

#include "import_transaction.h"

namespace ov::card {

/// Finds the persons and groups that groups name as their members. Everything is as before unless
/// it has been committed.
class Membership {
 public:
  explicit Membership(ImportTransaction& transaction)
      : transaction_(transaction), book_(transaction.book_) {}
  Membership(const Membership&) = delete;
  Membership& operator=(const Membership&) = delete;
  ~Membership();

  void join();
  void commit() noexcept { before_.clear(); }

 private:
  /// What a group was before.
  struct Before {
    std::shared_ptr<Group> group;
    std::vector<OVRef<Person>> persons;
    std::unordered_set<const Person*> personSet;
    std::vector<std::weak_ptr<Group>> subGroups;
    std::size_t parents;
    std::vector<Group::MissingMember> missing;
    std::vector<OVString> inRings;
  };

  [[nodiscard]] std::vector<std::shared_ptr<Group>> groupsThatWait() const;
  [[nodiscard]] const Store::Entry* resolve(const OVString& member);
  void indexReferences();
  void joinMembersOf(const std::shared_ptr<Group>& group);
  void save(const std::shared_ptr<Group>& group);
  void cutCycles();
  void waitFor(const std::shared_ptr<Group>& group);

  ImportTransaction& transaction_;
  Store& book_;
  std::vector<Before> before_;
  std::unordered_set<const Group*> saved_;
  Store::References arrived_;
  bool isIndexed_ = false;
  bool hasNewSubGroups_ = false;
};

}  // namespace ov::card
