#pragma once

#include <OVAddressBookSDK/email.h>
#include <OVAddressBookSDK/group.h>
#include <OVAddressBookSDK/image.h>
#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/phone.h>
#include <OVAddressBookSDK/property.h>
#include <OVAddressBookSDK/text.h>
#include <OVAddressBookSDK/text_view.h>
#include <OVAddressBookSDK/value.h>

/// The interface of every person: a bag of values, one per property name. Hosts derive from it.
///
/// The library itself calls `ID` and `valueByProperty` of a host's person, nothing else.
class OV_EXPORT IOVPerson : public OVObject {
 public:
  ~IOVPerson() override;

  /// The person's identifier. A person without one (null) cannot be added to a general book.
  [[nodiscard]] virtual OVString ID() const = 0;
  /// The identifier of the book that the person is in.
  [[nodiscard]] virtual OVString addressBookID() const = 0;
  /// The person's name in lists.
  [[nodiscard]] virtual OVString displayName() const = 0;

  /// The value itself, shared, not a copy; null when there is none.
  [[nodiscard]] virtual OVRef<OVValue> valueByProperty(const OVRef<OVProperty>& property) const = 0;
  /// The same by the property's name, which may be one that the catalogue does not have.
  [[nodiscard]] virtual OVRef<OVValue> valueByPropertyName(const OVStringView& name) const = 0;
  /// Sets the value of a property.
  virtual void setValueByProperty(const OVRef<OVValue>& value,
                                  const OVRef<OVProperty>& property) = 0;
  /// The same by the property's name.
  virtual void setValueByPropertyName(const OVRef<OVValue>& value, const OVString& name) = 0;

  /// May be null.
  [[nodiscard]] virtual OVRef<OVImage> thumbnail() const = 0;
  /// Sets the small picture.
  virtual void setThumbnail(const OVRef<OVImage>& image) = 0;

  /// The datum of the main phone entry; may be null.
  [[nodiscard]] virtual OVRef<OVObjectPhone> mainPhone() const = 0;
  /// The datum of the main e-mail entry; may be null.
  [[nodiscard]] virtual OVRef<OVObjectEmail> mainEmail() const = 0;

  /// The groups that the person is known to be in.
  [[nodiscard]] virtual OVList<IOVGroup> groups() const = 0;
  /// The properties that the person has a value for.
  [[nodiscard]] virtual OVList<OVProperty> notNullValueProperty() const = 0;

  /// The tags that the person has.
  [[nodiscard]] virtual OVList<OVString> tagArray() const = 0;
  /// Adds a tag.
  virtual void addTag(const OVString& tag) = 0;
  /// Removes a tag.
  virtual void removeTag(const OVString& tag) = 0;
  /// Sets the tags.
  virtual void setTags(const OVList<OVString>& tags) = 0;

  /// Sets whether the person is an organisation.
  virtual void setIsOrganization(bool isOrganization) = 0;
  /// Whether the person is an organisation.
  [[nodiscard]] virtual bool isOrganization() const = 0;
  /// The name to show, of the person or the organisation.
  [[nodiscard]] virtual OVString showName() const = 0;
  /// The organisation that the person belongs to.
  [[nodiscard]] virtual OVString companyName() const = 0;
  /// The person's job there.
  [[nodiscard]] virtual OVString jobTitle() const = 0;

  /// Optional: null unless a host's class overrides it.
  [[nodiscard]] virtual OVString nameChineesPinyin() const;
  /// Optional: null unless a host's class overrides it.
  [[nodiscard]] virtual OVString showNameChineesPinyin() const;
};

namespace ov {

/// Removes the value of a property from a person of any class: from a general person with
/// `removeValueByPropertyName`, from others by setting null. False when the person's class kept the
/// value.
OV_EXPORT bool removeValue(IOVPerson& person, const OVString& name);

}  // namespace ov
