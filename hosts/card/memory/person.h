#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include <OVAddressBookSDK/person.h>
#include <OVAddressBookSDK/tag_manager.h>

#include "mapping/values.h"

namespace ov::card {

struct Store;

/// The card that a person or group came from, as text that many share; empty for none.
struct CardSource {
  std::shared_ptr<const std::string> text;
  std::string_view card;
};

/// A person of a book over cards.
///
/// A null value clears the property. "Tags" and the tag operations use the same tags, which the
/// book's tag manager shares once somebody has asked for it.
class Person final : public IOVPerson {
 public:
  Person(OVString id, ValueTable values, OVList<OVString> tags, std::weak_ptr<Store> book);
  /// What the card says is read when somebody first asks; `sourceID` is the UID in it, or null.
  Person(OVString id, CardSource source, OVString sourceID, std::weak_ptr<Store> book);

  [[nodiscard]] OVString ID() const override { return id_; }
  /// The same; lives as long as the person.
  [[nodiscard]] std::string_view key() const { return id_.view(); }
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
  /// Null clears the thumbnail.
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

  /// The tags that count while the book has no tag manager; null for none.
  [[nodiscard]] const OVList<OVString>& ownTags() const {
    readCard();
    return tags_;
  }
  /// Keeps the card, in which `id` is the UID, or null.
  void setSource(CardSource source, OVString id);
  [[nodiscard]] const CardSource& source() const { return source_; }
  /// Says what another card says, in place of everything that was.
  void become(ValueTable values, OVList<OVString> tags, CardSource source, OVString id);
  /// False when values or tags have been set, or handed out, so that they may be others by now.
  [[nodiscard]] bool isAsItCame() const;

  /// Appends the person as a card: the one that it came from as far as that still holds.
  void write(std::string& out) const;

  /// The person belongs to no book any more.
  void leaveBook() { book_.reset(); }

  /// The place among the cards of the book.
  std::uint64_t order = 0;

 private:
  void readCard() const;
  [[nodiscard]] OVRef<OVValue> find(const OVStringView& name) const;
  [[nodiscard]] OVString text(const OVString& property) const;
  [[nodiscard]] OVRef<OVObject> mainDatum(const OVString& property) const;
  [[nodiscard]] OVRef<OVTagManager> tagManager() const;
  [[nodiscard]] OVString idToWrite() const;
  void forgetFormattedName();

  OVString id_;
  // What follows from the card is there once `readCard` has been called.
  mutable ValueTable values_;
  mutable OVList<OVString> tags_;  // while the book has no tag manager
  std::weak_ptr<Store> book_;
  CardSource source_;
  OVString sourceID_;
  mutable OVRef<OVImage> sourcePhoto_;
  mutable bool isUnread_ = false;
  // Whether values have been handed out or set, so that they may be others by now.
  mutable bool isHandedOut_ = false;
};

}  // namespace ov::card
