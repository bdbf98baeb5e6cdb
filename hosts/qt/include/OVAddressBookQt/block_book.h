#pragma once

#include <memory>

#include <OVAddressBookSDK/address_book_general.h>

namespace ov::qt {
struct BlockContent;
}

/// What a general book holds, to be read and changed as any book is: the book behind a data block.
///
/// Persons are the general book's own objects; its groups are shown as groups of persons, and a
/// change of either is a change of the general book. Tags are the texts under "Tags" of the
/// persons. What the library does not know stays in the block.
///
/// One thread at a time.
class OVBlockBook final : public OVAddressBook {
 public:
  /// A new, empty book.
  [[nodiscard]] static OVRef<OVBlockBook> init();
  /// A book that keeps and changes the one given; null for null. Its persons and groups are
  /// changed here only from now on.
  [[nodiscard]] static OVRef<OVBlockBook> initWithBook(const OVRef<OVAddressBookGeneral>& book);
  ~OVBlockBook() override;

  /// The general book itself, its persons' "Tags" as the tag manager has them.
  [[nodiscard]] OVRef<OVAddressBookGeneral> generalBook() const;

  /// A random UUID.
  [[nodiscard]] OVString ID() const override;
  /// False for a book from an archive that had no dictionary for persons or groups.
  [[nodiscard]] bool canOprate() const override;

  /// The block of the general book. Throws as `OVAddressBookGeneral::saveToData` does.
  [[nodiscard]] OVRef<OVData> saveData() override;

  /// The whole standard catalogue.
  [[nodiscard]] OVList<OVProperty> supportProperty() const override;
  [[nodiscard]] OVList<OVProperty> commonProperty() const override;

  [[nodiscard]] std::uint64_t allPersonsCount() const override;
  /// A new list, in the book's order. What is not a person in the block is skipped.
  [[nodiscard]] OVList<IOVPerson> allPersons() const override;
  /// The persons with these IDs, in the order of the IDs; unknown ones are passed over. Empty for
  /// null.
  [[nodiscard]] OVList<IOVPerson> personsForIDs(const OVList<OVString>& personIDs) const override;
  /// A new general person with a random UUID; null where the book takes nothing.
  OVRef<IOVPerson> newPerson() override;
  /// Takes the persons out of the book, of its groups and tags.
  void removePersons(const OVList<IOVPerson>& persons) override;
  /// A general person that is in no book is taken itself, any other person is converted; with its
  /// tags, and with its ID where that is still free, else a random UUID.
  OVRef<IOVPerson> addOneFromOtherPerson(const OVRef<IOVPerson>& person) override;
  /// The same as `addOneFromOtherPerson`.
  OVRef<IOVPerson> addBatchPersonForOther(const OVRef<IOVPerson>& person) override;

  /// Groups that no other contains, and of groups inside each other the first.
  [[nodiscard]] std::uint64_t rootGroupsCount() const override;
  [[nodiscard]] OVList<IOVGroup> rootGroups() const override;
  [[nodiscard]] OVRef<IOVGroup> groupByID(const OVString& groupID) const override;
  /// A new, empty root group with a random UUID; null for a null name.
  OVRef<IOVGroup> addGroupByName(const OVString& name) override;
  /// Takes the group out of the book; its sub-groups and members stay.
  bool removeGroup(const OVRef<IOVGroup>& group) override;

  /// The tags of the persons: the same object on every call, made by the first. It has no ID.
  [[nodiscard]] OVRef<OVTagManager> tagManager() const override;

 private:
  explicit OVBlockBook(const OVRef<OVAddressBookGeneral>& book);

  std::shared_ptr<ov::qt::BlockContent> content_;
};
