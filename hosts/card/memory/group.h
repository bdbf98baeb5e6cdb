#pragma once

#include <cstdint>
#include <memory>
#include <unordered_set>
#include <vector>

#include <OVAddressBookSDK/group.h>

#include "mapping/group_card.h"
#include "person.h"

namespace ov::card {

/// A group of a book over cards. Sub-groups live as long as their book has them.
struct Group {
  /// A line of what was read; null and 0 for what was not.
  struct Place {
    OVString origin;
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
  std::vector<std::weak_ptr<Group>> subGroups;
  std::size_t parents = 0;
  std::vector<MissingMember> missing;
  /// The sub-groups that the card names and that would make the group contain itself.
  std::vector<OVString> inRings;
  /// What the card says besides name and members, except for members without an object; null for
  /// nothing.
  OVString oddLines;
  CardSource source;
  OVString sourceID;
  std::weak_ptr<Store> book;
  /// What programs see of the group.
  std::weak_ptr<IOVGroup> object;
  /// The place among the cards of the book.
  std::uint64_t order = 0;

  [[nodiscard]] OVList<IOVGroup> subGroupObjects() const;
  [[nodiscard]] OVList<IOVPerson> personObjects() const;
  bool addPerson(const OVRef<IOVPerson>& person);
  bool removePerson(const OVRef<IOVPerson>& person);
  /// `group` is null where it is not a group of a book of this kind.
  bool addSubGroup(const std::shared_ptr<Group>& group);
  bool removeSubGroup(const std::shared_ptr<Group>& group);

  /// What the group says, members that are not members here included.
  [[nodiscard]] GroupContent content() const;
  /// `oddLines` and the members that are not members here; null for nothing.
  [[nodiscard]] OVString allOddLines() const;
  /// Forgets the members, and who they were.
  void forgetMembers();
  /// Appends the group as a card: the one that it came from as far as that still holds.
  void write(std::string& out) const;
};

}  // namespace ov::card
