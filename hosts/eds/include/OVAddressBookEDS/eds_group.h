#pragma once

#include <memory>

#include <OVAddressBookSDK/group.h>

namespace ov::card {
struct Group;
}
namespace ov::eds {
struct GroupObjects;
}

/// A group of an `OVEDSBook`: a contact list, or a card of kind "group" that another program has
/// put on a server. One thread at a time, as its book.
class OVEDSGroup final : public IOVGroup {
 public:
  ~OVEDSGroup() override;

  [[nodiscard]] OVString ID() const override;
  [[nodiscard]] OVString displayName() const override;
  /// Null counts as "".
  void setDisplayName(const OVString& name) override;

  /// New lists, in the order of the card. Addresses in a list that are not persons of the book are
  /// not among the members; saving keeps them.
  [[nodiscard]] OVList<IOVGroup> subGroups() const override;
  [[nodiscard]] OVList<IOVPerson> persons() const override;

  /// A record that also holds what the group's card says beside name and members.
  [[nodiscard]] OVRef<OVGroupGeneral> emptyGeneralGroup() const override;

  /// False, changing nothing, when the person is null, belongs to another book or is a member
  /// already.
  bool addPerson(const OVRef<IOVPerson>& person) override;
  /// False when the person is not a member.
  bool removePerson(const OVRef<IOVPerson>& person) override;

 private:
  friend struct ov::eds::GroupObjects;
  explicit OVEDSGroup(std::shared_ptr<ov::card::Group> record);

  std::shared_ptr<ov::card::Group> record_;
};
