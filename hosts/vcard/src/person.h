#pragma once

#include <memory>

#include <OVAddressBookSDK/person.h>
#include <OVAddressBookSDK/tag_manager.h>

#include "person_draft.h"

namespace ov::vcard {

struct BookContent;

/// A person of an `OVVCardBook`.
///
/// A null value takes a property away. "Tags" and the tag operations speak of the same tags, which
/// the book's tag manager shares once somebody has asked for it.
class Person final : public IOVPerson {
 public:
  Person(OVString id, Values values, OVList<OVString> tags, std::weak_ptr<BookContent> book);

  [[nodiscard]] OVString ID() const override { return id_; }
  /// "" when the person has been taken out of its book.
  [[nodiscard]] OVString addressBookID() const override;
  /// The name's `displayString`; "" without a name.
  [[nodiscard]] OVString displayName() const override;

  [[nodiscard]] OVRef<OVValue> valueByProperty(const OVRef<OVProperty>& property) const override;
  [[nodiscard]] OVRef<OVValue> valueByPropertyName(const OVStringView& name) const override;
  void setValueByProperty(const OVRef<OVValue>& value, const OVRef<OVProperty>& property) override;
  /// Does nothing for a null name. A new name takes the old formatted name out of "Other".
  void setValueByPropertyName(const OVRef<OVValue>& value, const OVString& name) override;

  [[nodiscard]] OVRef<OVImage> thumbnail() const override;
  /// Null takes the thumbnail away.
  void setThumbnail(const OVRef<OVImage>& image) override;

  [[nodiscard]] OVRef<OVObjectPhone> mainPhone() const override;
  [[nodiscard]] OVRef<OVObjectEmail> mainEmail() const override;

  /// The groups of the book that hold this person.
  [[nodiscard]] OVList<IOVGroup> groups() const override;
  /// In the order of the catalogue.
  [[nodiscard]] OVList<OVProperty> notNullValueProperty() const override;

  /// A new list.
  [[nodiscard]] OVList<OVString> tagArray() const override;
  /// Appends a tag that the person does not have yet. Null and "" do nothing.
  void addTag(const OVString& tag) override;
  void removeTag(const OVString& tag) override;
  /// These tags in place of all others; none for null.
  void setTags(const OVList<OVString>& tags) override;

  void setIsOrganization(bool isOrganization) override;
  [[nodiscard]] bool isOrganization() const override;
  /// The display name, the company of an organisation, or whatever else tells the person apart.
  [[nodiscard]] OVString showName() const override;
  /// Null when there is none, as the next.
  [[nodiscard]] OVString companyName() const override;
  [[nodiscard]] OVString jobTitle() const override;

  /// The tags that count while the book has no tag manager.
  [[nodiscard]] const OVList<OVString>& ownTags() const { return tags_; }

  /// The person belongs to no book any more.
  void leaveBook() { book_.reset(); }

 private:
  [[nodiscard]] OVString text(const OVString& property) const;
  [[nodiscard]] OVRef<OVObject> mainDatum(const OVString& property) const;
  [[nodiscard]] OVRef<OVTagManager> tagManager() const;
  void forgetFormattedName();

  OVString id_;
  Values values_;
  OVList<OVString> tags_;  // while the book has no tag manager
  std::weak_ptr<BookContent> book_;
};

}  // namespace ov::vcard
