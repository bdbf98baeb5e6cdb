#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <system_error>
#include <vector>

#include <OVAddressBookEDS/eds_call.h>
#include <OVAddressBookEDS/eds_changes.h>
#include <OVAddressBookEDS/eds_error.h>
#include <OVAddressBookSDK/address_book.h>

namespace ov::eds {

struct BookContent;
struct BookMaker;

/// Told how many cards of a book have been read or written, and how many there are.
using Progress = std::function<void(std::uint64_t done, std::uint64_t all)>;

}  // namespace ov::eds

/// An address book of the desktop: a local one, or one that lives on a server and is kept here.
///
/// Cards become persons as `OVVCardBook` reads them. A contact list is a group. The card of a
/// person whom nobody changed is never written; a changed one keeps every line that the change does
/// not touch, those of the service and of other programs included. New persons are written as
/// vCards 3.0, which is what the service keeps.
///
/// The book belongs to one thread at a time. What others change does not show until that thread
/// calls `applyChanges`; a callback says that there is something. Changes of this program wait in
/// the book until `save`.
///
/// When the service's process for books dies, the next call starts it again and goes on; what it
/// had acknowledged is there.
class OVEDSBook final : public OVAddressBook, public std::enable_shared_from_this<OVEDSBook> {
 public:
  /// On the session's thread; it must return soon, and must not call the session or its books.
  using WaitingCallback = std::function<void()>;

  ~OVEDSBook() override;

  /// Fetches all cards; to be called once. What a card says is read when somebody first asks its
  /// person. The cards of a server are those that are kept here until `refresh` has asked it. An
  /// error leaves the book empty.
  [[nodiscard]] std::error_code load(const ov::eds::Progress& progress = {},
                                     const ov::eds::Call& call = {});
  /// Has the service ask the server for news, sends what it kept for it, and waits for the end.
  /// Nothing to do for a local book. The news are changes that wait.
  [[nodiscard]] std::error_code refresh(const ov::eds::Call& call = {});

  /// Any thread may ask.
  [[nodiscard]] OVEDSState state() const;
  /// Whether the service may keep changes of ours that it could not yet send to the server; a
  /// refresh that succeeds has sent them. Any thread may ask.
  [[nodiscard]] bool waitsForServer() const;

  /// Whether others have changed something that has not been applied, or the service has to be
  /// asked again. Any thread may ask.
  [[nodiscard]] bool hasChangesWaiting() const;
  /// Called each time that something begins to wait, at once for what waits already, and when the
  /// state changes; empty for none. The one before is no longer called once this has returned.
  void setWaitingCallback(WaitingCallback callback);
  /// Shows what others have changed, and returns what it was, without the program's own changes. A
  /// person whom both sides have changed becomes a conflict.
  ///
  /// For each person whose name, main phone or main e-mail address is another now, the notification
  /// of that name is posted, with the book as object and the person and the new value as user
  /// information; one `OVPersonChangeAllPersonNotification` when persons came or went.
  [[nodiscard]] OVEDSChanges applyChanges(std::error_code& error, const ov::eds::Call& call = {});

  /// What is to be decided, the oldest first.
  [[nodiscard]] std::vector<OVEDSConflict> conflicts() const;
  /// Decides the conflict of that person or group. False when there is none.
  bool resolve(const OVString& conflictID, OVEDSResolution resolution);
  /// What the last save could not do, and which cards could not be read verbatim.
  [[nodiscard]] std::vector<OVEDSProblem> problems() const;

  /// Writes what was changed: new, changed and removed persons and groups, in lots. What cannot be
  /// written stays changed in the book and goes with the next save; `saveError` and `problems`
  /// tell.
  std::error_code saveWithin(const ov::eds::Call& call, const ov::eds::Progress& progress = {});
  void save() override;
  /// The same, then calls `block` unless it is empty.
  void saveDataBlock(const std::function<void()>& block) override;
  /// How the last save went; no error before the first.
  [[nodiscard]] std::error_code saveError() const;

  /// The UID by which the service knows the book.
  [[nodiscard]] OVString ID() const override;
  [[nodiscard]] OVString name() const override;
  /// Whether the book may be changed and its store keeps lists.
  [[nodiscard]] bool canCreateGroup() const override;
  /// Always false; groups inside groups are read.
  [[nodiscard]] bool canCreateSubGroup() const override { return false; }
  /// Whether the service lets the book be changed. Any thread may ask.
  [[nodiscard]] bool canOprate() const override;

  /// The whole standard catalogue.
  [[nodiscard]] OVList<OVProperty> supportProperty() const override;
  /// What most cards fill.
  [[nodiscard]] OVList<OVProperty> commonProperty() const override;

  [[nodiscard]] std::uint64_t allPersonsCount() const override;
  /// A new list, in the order in which the persons came in.
  [[nodiscard]] OVList<IOVPerson> allPersons() const override;
  /// The persons with these IDs, in the order of the IDs; unknown ones are passed over. Empty for
  /// null.
  [[nodiscard]] OVList<IOVPerson> personsForIDs(const OVList<OVString>& personIDs) const override;

  /// Root groups are those that are inside no other; objects are of class `OVEDSGroup`.
  [[nodiscard]] std::uint64_t rootGroupsCount() const override;
  [[nodiscard]] OVList<IOVGroup> rootGroups() const override;
  [[nodiscard]] OVRef<IOVGroup> groupByID(const OVString& groupID) const override;
  /// A new, empty root group with a random UUID; null for a null name and where `canCreateGroup` is
  /// false.
  OVRef<IOVGroup> addGroupByName(const OVString& name) override;
  /// Takes the group out of the book; its members stay. False, changing nothing, when it is not in
  /// the book or the book may only be read.
  bool removeGroup(const OVRef<IOVGroup>& group) override;

  /// A new person in this book, without values, with a random UUID. Null where `canOprate` is
  /// false, as the next.
  OVRef<IOVPerson> newPerson() override;
  /// A new person in this book with copies of the values that `person` has for the properties of
  /// the standard catalogue (labels and data are shared), with its tags, and with its ID where that
  /// is still free, else a random UUID. Null for null.
  OVRef<IOVPerson> addOneFromOtherPerson(const OVRef<IOVPerson>& person) override;
  /// Makes room for `count` persons.
  void addBatchPersonStart(std::int64_t count) override;
  /// The same as `addOneFromOtherPerson`.
  OVRef<IOVPerson> addBatchPersonForOther(const OVRef<IOVPerson>& person) override;
  /// Saves, in lots.
  void addBatchPersonEnd() override;
  /// Takes the persons out of the book and of its groups and tags. Persons that are not in the book
  /// are passed over; null, and any list where `canOprate` is false, does nothing.
  void removePersons(const OVList<IOVPerson>& persons) override;

  /// The tags of the book's persons, which are the categories of their cards: the same object on
  /// every call. What it holds and what the persons return agree at all times.
  [[nodiscard]] OVRef<OVTagManager> tagManager() const override;

 private:
  friend struct ov::eds::BookMaker;
  explicit OVEDSBook(std::shared_ptr<ov::eds::BookContent> content);

  std::shared_ptr<ov::eds::BookContent> content_;
};
