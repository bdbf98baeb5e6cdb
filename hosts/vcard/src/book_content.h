#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <system_error>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include <OVAddressBookSDK/tag_manager.h>
#include <OVAddressBookVCard/vcard_group.h>
#include <OVAddressBookVCard/vcard_problem.h>

#include "others.h"
#include "person.h"

namespace ov::vcard {

/// What a group holds. Sub-groups live as long as their book has them.
struct GroupRecord {
  /// A place in a file; null and 0 for what came from none.
  struct Place {
    OVString file;
    std::size_t line = 0;
  };
  /// A member that no card has been found for.
  struct MissingMember {
    OVString id;
    Place place;
  };

  OVString id;
  OVString name;
  Place place;
  std::vector<OVRef<Person>> persons;
  std::unordered_set<const Person*> personSet;
  std::vector<std::weak_ptr<OVVCardGroup>> subGroups;
  std::size_t parents = 0;
  std::vector<MissingMember> missing;
  std::vector<KeptLine> others;
  std::weak_ptr<BookContent> book;
};

/// The persons and groups of a book, and where they came from. Persons and groups share one space
/// of IDs, since members are named by ID alone.
struct BookContent : std::enable_shared_from_this<BookContent> {
  OVString id;
  OVString path;
  std::vector<OVRef<Person>> persons;
  std::unordered_map<OVString, OVRef<Person>> personsByID;
  std::vector<OVRef<OVVCardGroup>> groups;
  std::unordered_map<OVString, OVRef<OVVCardGroup>> groupsByID;
  /// What the cards that were read became, by their contents.
  std::unordered_map<std::string, OVString> idsByContent;
  /// How many cards wanted an ID that was taken.
  std::unordered_map<OVString, std::size_t> wantedAgain;
  OVRef<OVTagManager> tags;  // null until somebody asks for it
  std::vector<OVVCardProblem> problems;
  std::error_code saveError;

  [[nodiscard]] bool has(const OVString& anyID) const {
    return personsByID.contains(anyID) || groupsByID.contains(anyID);
  }

  OVRef<Person> addPerson(const OVString& personID, Values values, OVList<OVString> tagList);
  void removePersons(const std::unordered_set<const Person*>& leaving);
  /// Null when it is not in this book.
  [[nodiscard]] OVRef<Person> personOf(const OVRef<IOVPerson>& person) const;
  [[nodiscard]] OVList<IOVGroup> groupsOf(const Person& person) const;

  OVRef<OVVCardGroup> addGroup(const OVString& groupID, const OVString& name);
  void removeGroup(const OVRef<OVVCardGroup>& group);
  /// Null when it is not in this book.
  [[nodiscard]] OVRef<OVVCardGroup> groupOf(const OVRef<IOVGroup>& group) const;
  [[nodiscard]] static GroupRecord& recordOf(const OVVCardGroup& group) { return *group.record_; }

  /// Makes the tag manager of the tags that the persons have.
  void makeTagManager();
};

/// Appends the card of a group.
void writeGroup(const GroupRecord& group, std::string& out);

}  // namespace ov::vcard
