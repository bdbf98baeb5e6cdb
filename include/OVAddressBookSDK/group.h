#pragma once

#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/text.h>

class IOVPerson;
class OVGroupGeneral;

/// A group of persons in a host's book: all that the library asks of it.
class OV_EXPORT IOVGroup : public OVObject {
 public:
  ~IOVGroup() override;

  /// The group's identifier in its book. A group without one (null) cannot enter a general book.
  [[nodiscard]] virtual OVString ID() const = 0;
  /// The name shown to the user; may be null.
  [[nodiscard]] virtual OVString displayName() const = 0;
  /// The groups directly inside this one, in order; null counts as none.
  [[nodiscard]] virtual OVList<IOVGroup> subGroups() const = 0;
  /// The members, in order; null counts as none.
  [[nodiscard]] virtual OVList<IOVPerson> persons() const = 0;

  /// The empty record that a snapshot fills with what the group says, for hosts that have a class
  /// of their own for it. Null counts as `OVGroupGeneral::init`, which is what this gives.
  [[nodiscard]] virtual OVRef<OVGroupGeneral> emptyGeneralGroup() const;

  /// For programs that change groups of any book. The library calls none of these; what a host's
  /// groups do not support does nothing and gives false.
  /// @{

  /// Null counts as "".
  virtual void setDisplayName(const OVString& name);
  /// False, changing nothing, for null, a person of another book and one who is a member already.
  virtual bool addPerson(const OVRef<IOVPerson>& person);
  /// False when the person is no member. The person stays in the book.
  virtual bool removePerson(const OVRef<IOVPerson>& person);
  /// False, changing nothing, for null, a group of another book, a sub-group already there, and one
  /// that would come to stand inside itself.
  virtual bool addSubGroup(const OVRef<IOVGroup>& group);
  /// False when it is no sub-group of this one. The group stays in the book.
  virtual bool removeSubGroup(const OVRef<IOVGroup>& group);
  /// @}
};
