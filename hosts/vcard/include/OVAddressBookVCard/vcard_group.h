#pragma once

#include <memory>

#include <OVAddressBookSDK/group.h>

namespace ov::card {
struct Group;
}
namespace ov::vcard {
struct GroupObjects;
}

/// A group of an `OVVCardBook`. One thread at a time, as its book.
class OVVCardGroup final : public IOVGroup {
 public:
  ~OVVCardGroup() override;

  [[nodiscard]] OVString ID() const override;
  [[nodiscard]] OVString displayName() const override;
  /// Null counts as "".
  void setDisplayName(const OVString& name) override;

  /// New lists, in the order in which the members were added.
  [[nodiscard]] OVList<IOVGroup> subGroups() const override;
  [[nodiscard]] OVList<IOVPerson> persons() const override;

  /// A record that also holds what the group's card says besides name and members.
  [[nodiscard]] OVRef<OVGroupGeneral> emptyGeneralGroup() const override;

  /// False, without any change, for null, a person of another book, and an existing member.
  bool addPerson(const OVRef<IOVPerson>& person) override;
  /// False when the person is not a member.
  bool removePerson(const OVRef<IOVPerson>& person) override;
  /// False, without any change, for null, a group of another book, an existing sub-group, and one
  /// that would then contain itself.
  bool addSubGroup(const OVRef<IOVGroup>& group) override;
  /// The group stays in the book. False when it is not a sub-group of this one.
  bool removeSubGroup(const OVRef<IOVGroup>& group) override;

 private:
  friend struct ov::vcard::GroupObjects;
  explicit OVVCardGroup(std::shared_ptr<ov::card::Group> record);

  std::shared_ptr<ov::card::Group> record_;
};
