#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include <OVAddressBookSDK/tag_manager.h>

#include "group.h"
#include "mapping/keyed_hash.h"
#include "mapping/labels.h"
#include "person.h"

namespace ov::card {

/// The persons and groups of a book over cards. Persons and groups share one space of IDs, since
/// members are named by ID alone.
struct Store : std::enable_shared_from_this<Store> {
  /// Makes what programs see of a group.
  using MakeGroup = std::function<OVRef<IOVGroup>(std::shared_ptr<Group>)>;

  struct GroupPlace {
    std::shared_ptr<Group> group;
    OVRef<IOVGroup> object;
  };
  /// One of the two.
  struct Entry {
    OVRef<Person> person;
    GroupPlace group;
  };
  template <class T>
  using ByText = std::unordered_map<std::string_view, T, KeyedHash>;

  explicit Store(MakeGroup make) : makeGroup(std::move(make)) {}

  MakeGroup makeGroup;
  OVString id;
  std::vector<OVRef<Person>> persons;
  std::vector<GroupPlace> groups;
  /// The keys are those of the persons and groups.
  ByText<Entry> byID;
  OVRef<OVTagManager> tags;  // null until somebody asks for it
  std::uint64_t nextOrder = 0;
  LabelReader labels;  // for persons whose cards are read late

  /// What is known of IDs that more than one card wanted.
  struct WantedID {
    std::size_t lastNumber = 1;
    /// The IDs that cards of this ID got, by their contents.
    std::unordered_map<std::string, OVString, KeyedHash> idsByContent;
  };
  std::unordered_map<std::string, WantedID, KeyedHash, std::equal_to<>> wantedIDs;

  /// The groups that miss a member, by what its ID is likely to be.
  std::unordered_map<std::string, std::vector<std::weak_ptr<Group>>, KeyedHash, std::equal_to<>>
      waiting;
  /// The IDs by `referenceKey`, of so many persons and groups. Made when it is needed.
  using References = std::unordered_map<std::string, OVString, KeyedHash, std::equal_to<>>;
  References references;
  std::size_t referencedPersons = 0;
  std::size_t referencedGroups = 0;

  [[nodiscard]] bool has(const OVString& anyID) const { return byID.contains(anyID.view()); }
  /// Null when there is none.
  [[nodiscard]] const Entry* find(std::string_view anyID) const;

  OVRef<Person> addPerson(const OVString& personID, ValueTable values, OVList<OVString> tagList);
  /// A person with copies of the values of one of any book, with its tags, and with its ID where
  /// that is still free.
  OVRef<Person> addCopyOf(const IOVPerson& person);
  void removePersons(const std::unordered_set<const Person*>& leaving);
  /// Null when it is not in this book.
  [[nodiscard]] OVRef<Person> personOf(const OVRef<IOVPerson>& person) const;
  [[nodiscard]] OVList<IOVGroup> groupsOf(const Person& person) const;

  OVRef<IOVGroup> addGroup(const OVString& groupID, const OVString& name);
  bool removeGroup(const std::shared_ptr<Group>& group);

  void forgetReferences();

  /// Makes the tag manager of the tags that the persons have.
  void makeTagManager();

  /// All cards in the order in which they came.
  void write(std::string& out) const;
};

}  // namespace ov::card
