#pragma once

#include <QtCore/QString>

#include <functional>
#include <unordered_map>
#include <utility>
#include <vector>

#include <OVAddressBookQt/qt_book.h>
#include <OVAddressBookSDK/tag_manager.h>

namespace ov::qt {

using Persons = OVQtBook::Persons;
using IDs = std::vector<OVString>;

/// What a person who was taken out of the book leaves behind.
struct RemovedPerson {
  OVRef<IOVPerson> person;
  IDs tags;
  IDs groups;
};

/// What a group that was taken out of the book leaves behind.
struct RemovedGroup {
  OVString id;
  OVString name;
  IDs persons;
  IDs subGroups;
  IDs parents;
};

/// The single steps that changes of a book are made of. Each changes the book, and reports it.
struct BookSteps {
  OVQtBook& shown;
  OVRef<OVAddressBook> book;
  /// The IDs that persons and groups got when they came back.
  std::unordered_map<OVString, OVString> laterIDs;

  [[nodiscard]] OVString currentID(OVString id) const;
  [[nodiscard]] OVRef<IOVPerson> person(const OVString& id) const;
  [[nodiscard]] OVRef<IOVGroup> group(const OVString& id) const;
  [[nodiscard]] std::vector<OVRef<IOVGroup>> allGroups() const;

  void setValue(const OVString& id, const OVString& property, const OVRef<OVValue>& value);
  /// This and the next two leave it to the caller to report groups and tags that change with the
  /// persons. Returns the persons that came; fewer when the book takes none.
  Persons bring(const Persons& persons);
  std::vector<RemovedPerson> remove(const IDs& ids);
  void bringBack(const std::vector<RemovedPerson>& removed);

  RemovedGroup removeGroup(const OVString& id);
  void bringBack(const RemovedGroup& removed);
  void rename(const OVString& id, const OVString& name);
  void join(const OVString& groupID, const IDs& persons);
  void leave(const OVString& groupID, const IDs& persons);

  [[nodiscard]] IDs tagsOf(const OVString& id) const;
  /// The tags of persons, by ID.
  using TagsOf = std::vector<std::pair<OVString, IDs>>;
  void setTags(const TagsOf& all);

 private:
  OVRef<IOVPerson> bringOne(const OVRef<IOVPerson>& person);
  void setTags(const OVString& id, const IDs& tags);
  /// One by one, or all at once where they are many.
  template <class Tell>
  void tellOf(const Persons& persons, Tell tell);
};

/// Keeps reports of our own from coming back.
[[nodiscard]] OVString notificationFor(const OVString& property);

}  // namespace ov::qt
