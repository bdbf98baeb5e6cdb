#pragma once

#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/text.h>

class IOVPerson;
class OVGroupGeneral;

/// A group of persons in a host's book: all that the library needs of one.
class OV_EXPORT IOVGroup : public OVObject {
 public:
  ~IOVGroup() override;

  /// The group's identifier in its book. A group without one (null) cannot be added to a general
  /// book.
  [[nodiscard]] virtual OVString ID() const = 0;
  /// The name shown to the user; may be null.
  [[nodiscard]] virtual OVString displayName() const = 0;
  /// The groups directly inside this one, in order; null counts as none.
  [[nodiscard]] virtual OVList<IOVGroup> subGroups() const = 0;
  /// The members, in order; null counts as none.
  [[nodiscard]] virtual OVList<IOVPerson> persons() const = 0;

  /// The empty record that a snapshot fills with the group's content, for hosts with a class of
  /// their own for it. The default, also used for null, is `OVGroupGeneral::init()`.
  [[nodiscard]] virtual OVRef<OVGroupGeneral> emptyGeneralGroup() const;

  /// For programs that change groups of any book. The library calls none of these; operations that
  /// a host's groups do not support do nothing and return false.
  /// @{

  /// Null counts as "".
  virtual void setDisplayName(const OVString& name);
  /// False, without any change, for null, a person of another book, and an existing member.
  virtual bool addPerson(const OVRef<IOVPerson>& person);
  /// False when the person is not a member. The person stays in the book.
  virtual bool removePerson(const OVRef<IOVPerson>& person);
  /// False, without any change, for null, a group of another book, an existing sub-group, and one
  /// that would then contain itself.
  virtual bool addSubGroup(const OVRef<IOVGroup>& group);
  /// False when it is not a sub-group of this one. The group stays in the book.
  virtual bool removeSubGroup(const OVRef<IOVGroup>& group);
  /// @}
};
