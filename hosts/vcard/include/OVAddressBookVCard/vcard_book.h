#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <system_error>
#include <vector>

#include <OVAddressBookSDK/address_book.h>
#include <OVAddressBookVCard/vcard_problem.h>

namespace ov::vcard {

struct BookContent;

/// Gets the number of bytes of a file that have been read, and their total.
using Progress = std::function<void(std::uint64_t read, std::uint64_t size)>;

}  // namespace ov::vcard

/// An address book over vCard files of the versions 2.1, 3.0 and 4.0.
///
/// Every line of a card becomes part of its person, so that nothing is lost on the way in and out:
///
/// - A property of the standard catalogue takes the lines about it. One that holds a single value
///   takes the first such line.
/// - TYPE parameters and X-ABLabel lines become labels ("home", "work fax", "mobile"; a line
///   without either gets the property's display name). The preferred entry is the main value; of
///   equally preferred ones it is the first.
/// - "Is Organization" holds "true" for the card of an organisation.
/// - Day and month without a year are a day of the leap year 1604.
/// - An address has the five standard fields; post-office box and extension are on lines of their
///   own before the street. Its country code comes from a CC parameter, an X-ABADR line, or the
///   country's code or name in the address, in English, its own or a widely spoken language; it is
///   null when none of them is known.
/// - "Tags" holds the categories: a list of texts, of type `OVValueTypeTags`.
/// - Everything else is an entry of "Other": the label's name is the property's name with its
///   parameters (`X-SHOE-SIZE;TYPE=eu`), the label's display name is the property's name or its
///   X-ABLabel, the datum is the value as a vCard 4.0 spells it.
/// - What values do not say about their lines (parameters such as PID, groups, unusual spellings)
///   is kept as a small vCard in one more entry of "Other", so that it comes back on export. See
///   `ov::vcard::readableOther`.
///
/// Saving loses nothing. The card of a person or group that nobody changed is written byte for
/// byte, in its own version of vCard; text in other character sets becomes UTF-8. A changed card
/// keeps every line that the change does not touch, where it is. New persons and groups are written
/// as vCards 4.0.
///
/// The UID is the ID. A card without one gets an ID made from its content: the same card always
/// gets the same. When an ID comes a second time, a card with the same content is left out, and any
/// other card gets "-2" (or "-3", ...) after its ID; `problems` reports both.
///
/// One thread at a time.
class OVVCardBook final : public OVAddressBook {
 public:
  /// A new, empty book without a file: `save` does nothing.
  [[nodiscard]] static OVRef<OVVCardBook> init();
  /// A book in the file at `path`: empty until `load`, and `save` writes there. Null for null
  /// and "".
  [[nodiscard]] static OVRef<OVVCardBook> initWithPath(const OVString& path);
  ~OVVCardBook() override;

  /// Adds the cards of the book's own file. An error says that the file could not be read, and
  /// changes nothing; the content of a readable file is never an error (see `problems`). Nothing
  /// changes either when `progress` throws or memory runs out (`std::bad_alloc`).
  [[nodiscard]] std::error_code load(const ov::vcard::Progress& progress = {});
  /// The same for any file. Anything but a regular file must end within 512 MiB, else it is an
  /// error.
  [[nodiscard]] std::error_code addFile(const OVString& path,
                                        const ov::vcard::Progress& progress = {});

  /// What was not imported verbatim, in the order of the files, then the members of groups that no
  /// file has so far.
  [[nodiscard]] std::vector<OVVCardProblem> problems() const;

  /// The absolute path of the book's file; a random UUID for a book without one.
  [[nodiscard]] OVString ID() const override;
  /// The file's name without its extension; "" for a book without a file.
  [[nodiscard]] OVString name() const override;
  /// Always true, like the next two.
  [[nodiscard]] bool canCreateGroup() const override { return true; }
  [[nodiscard]] bool canCreateSubGroup() const override { return true; }
  [[nodiscard]] bool canOprate() const override { return true; }

  /// Adds the vCards in `data`. Null adds nothing.
  void loadWithData(const OVRef<OVData>& data) override;
  /// Calls `progressBlock`, unless it is empty, from time to time while reading, and once at the
  /// end.
  void loadWithDataProgressBlock(const OVRef<OVData>& data,
                                 const std::function<void()>& progressBlock) override;
  /// All cards, those of groups included, in the order in which they were added.
  [[nodiscard]] OVRef<OVData> saveData() override;

  /// Writes `saveData` to the book's file, whole or not at all. `saveError` has the result.
  void save() override;
  /// The same, then calls `block` unless it is empty.
  void saveDataBlock(const std::function<void()>& block) override;
  /// The result of the last save; no error before the first.
  [[nodiscard]] std::error_code saveError() const;

  /// The whole standard catalogue.
  [[nodiscard]] OVList<OVProperty> supportProperty() const override;
  /// The properties that most cards have.
  [[nodiscard]] OVList<OVProperty> commonProperty() const override;

  [[nodiscard]] std::uint64_t allPersonsCount() const override;
  /// A new list, in the order in which the persons were added.
  [[nodiscard]] OVList<IOVPerson> allPersons() const override;
  /// The persons with these IDs, in the order of the IDs; unknown ones are skipped. Empty for null.
  [[nodiscard]] OVList<IOVPerson> personsForIDs(const OVList<OVString>& personIDs) const override;

  /// Root groups are those that no other contains; objects are of class `OVVCardGroup`.
  [[nodiscard]] std::uint64_t rootGroupsCount() const override;
  [[nodiscard]] OVList<IOVGroup> rootGroups() const override;
  [[nodiscard]] OVRef<IOVGroup> groupByID(const OVString& groupID) const override;
  /// A new, empty root group with a random UUID; null for a null name.
  OVRef<IOVGroup> addGroupByName(const OVString& name) override;
  /// Removes the group from the book; its sub-groups and members stay. False, without any change,
  /// when it is not in the book.
  bool removeGroup(const OVRef<IOVGroup>& group) override;

  /// A new person in this book, without values, with a random UUID.
  OVRef<IOVPerson> newPerson() override;
  /// Removes the persons from the book, its groups and tags. Persons that are not in the book are
  /// skipped; null does nothing.
  void removePersons(const OVList<IOVPerson>& persons) override;
  /// A new person in this book with copies of the values that `person` has for the properties of
  /// the standard catalogue (labels and data are shared), with its tags, and with its ID if that is
  /// still free, else a random UUID. Null for null.
  OVRef<IOVPerson> addOneFromOtherPerson(const OVRef<IOVPerson>& person) override;
  /// Reserves memory for `count` persons.
  void addBatchPersonStart(std::int64_t count) override;
  /// The same as `addOneFromOtherPerson`.
  OVRef<IOVPerson> addBatchPersonForOther(const OVRef<IOVPerson>& person) override;

  /// The tags of the book's persons: the same object on every call. It is kept in the book's file
  /// instead of the user defaults (it has no ID). It always agrees with the tags that the persons
  /// return.
  [[nodiscard]] OVRef<OVTagManager> tagManager() const override;

 private:
  explicit OVVCardBook(const OVString& path);

  std::shared_ptr<ov::vcard::BookContent> content_;
};
