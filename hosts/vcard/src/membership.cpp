#include "membership.h"

#include <algorithm>

#include "card_id.h"

namespace ov::vcard {

namespace {

using Group = OVRef<OVVCardGroup>;

/// What the IDs that members are named by stand for.
class Directory {
 public:
  explicit Directory(const BookContent& book) {
    for (const OVRef<Person>& person : book.persons) persons_.emplace(key(person->ID()), person);
    for (const Group& group : book.groups) groups_.emplace(key(group->ID()), group);
  }

  [[nodiscard]] OVRef<Person> person(const OVString& id) const { return find(persons_, id); }
  [[nodiscard]] Group group(const OVString& id) const { return find(groups_, id); }

 private:
  static std::string key(const OVString& id) { return referenceKey(id); }

  template <class T>
  static T find(const std::unordered_map<std::string, T>& map, const OVString& id) {
    const auto at = map.find(key(id));
    return at == map.end() ? nullptr : at->second;
  }

  std::unordered_map<std::string, OVRef<Person>> persons_;
  std::unordered_map<std::string, Group> groups_;
};

void joinMembersOf(GroupRecord& record, const Directory& directory) {
  std::unordered_set<const OVVCardGroup*> known;
  for (const auto& weak : record.subGroups) known.insert(weak.lock().get());
  std::erase_if(record.missing, [&](const GroupRecord::MissingMember& member) {
    if (const auto person = directory.person(member.id)) {
      if (record.personSet.insert(person.get()).second) record.persons.push_back(person);
      return true;
    }
    if (const auto group = directory.group(member.id)) {
      if (known.insert(group.get()).second) {
        record.subGroups.push_back(group);
        ++BookContent::recordOf(*group).parents;
      }
      return true;
    }
    return false;
  });
}

/// Walks the groups from above and cuts every way that leads back to where it came from.
class CycleCutter {
 public:
  explicit CycleCutter(BookContent& book) : book_(book) {}

  void cut() {
    for (const Group& group : book_.groups) {
      if (enter(group)) walk();
    }
  }

 private:
  struct Step {
    Group group;
    std::size_t next = 0;
  };

  bool enter(const Group& group) {
    if (!seen_.insert(group.get()).second) return false;
    above_.insert(group.get());
    path_.push_back({group, 0});
    return true;
  }

  void walk() {
    while (!path_.empty()) {
      Step& step = path_.back();
      auto& subGroups = BookContent::recordOf(*step.group).subGroups;
      if (step.next == subGroups.size()) {
        above_.erase(step.group.get());
        path_.pop_back();
        continue;
      }
      const Group sub = subGroups[step.next].lock();
      if (above_.contains(sub.get())) {
        subGroups.erase(subGroups.begin() + static_cast<std::ptrdiff_t>(step.next));
        --BookContent::recordOf(*sub).parents;
        report(*sub);
      } else {
        ++step.next;
        enter(sub);
      }
    }
  }

  void report(const OVVCardGroup& group) {
    const GroupRecord::Place& place = BookContent::recordOf(group).place;
    book_.problems.push_back({OVVCardSeverity::Warning, place.file, place.line,
                              "this group stands inside itself; one membership was left out"});
  }

  BookContent& book_;
  std::unordered_set<const OVVCardGroup*> seen_;
  std::unordered_set<const OVVCardGroup*> above_;
  std::vector<Step> path_;
};

}  // namespace

void joinMembers(BookContent& book) {
  const bool isComplete = std::all_of(book.groups.begin(), book.groups.end(), [](const Group& g) {
    return BookContent::recordOf(*g).missing.empty();
  });
  if (isComplete) return;
  const Directory directory(book);
  for (const Group& group : book.groups) joinMembersOf(BookContent::recordOf(*group), directory);
  CycleCutter(book).cut();
}

}  // namespace ov::vcard
