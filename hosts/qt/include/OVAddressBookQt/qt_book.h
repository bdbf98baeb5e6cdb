#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtGui/QUndoStack>

#include <functional>
#include <memory>
#include <vector>

#include <OVAddressBookSDK/address_book.h>
#include <OVAddressBookSDK/group.h>
#include <OVAddressBookSDK/person.h>

namespace ov::qt {
struct BookSteps;
}

/// A book as windows share it: what is changed through it can be undone, and all models on it
/// follow.
///
/// It keeps the book. It also follows what others report on the notification centre: a changed
/// name, phone or e-mail address (with the person under `OVChangeNameNotification_PersonKey`), all
/// persons changed, and the name order; a report about another book (its object) is passed over.
/// Reports may come from any thread; they are heard on the thread of this object, which is also the
/// book's.  What it changes itself it reports there as well.
///
/// Changes do nothing, and return false or null, where the book cannot be changed or refuses.
class OVQtBook : public QObject {
  Q_OBJECT

 public:
  using Persons = std::vector<OVRef<IOVPerson>>;

  /// Not for null.
  explicit OVQtBook(OVRef<OVAddressBook> book, QObject* parent = nullptr);
  ~OVQtBook() override;

  [[nodiscard]] const OVRef<OVAddressBook>& book() const;
  [[nodiscard]] bool canChange() const;
  /// Refuses changes for a while, whatever the book says: one that is being saved elsewhere, for
  /// example. Whoever sets it leaves the undo stack alone meanwhile.
  void setReadOnly(bool isReadOnly);
  /// Null when there is none.
  [[nodiscard]] OVRef<IOVPerson> personWithID(const OVString& ID) const;

  /// Every change that was made here, to be undone and redone. Commands find persons and groups by
  /// ID, so that they also hold after a person was removed and came back. Of a group that comes
  /// back only its name, its place and its members do.
  [[nodiscard]] QUndoStack& undoStack();

  /// Sets the person's value of a property; null removes it. Values are replaced, not
  /// changed: the old one is what undoing brings back.
  bool setValue(const OVRef<IOVPerson>& person, const OVString& property,
                const OVRef<OVValue>& value);
  /// A new person without values.
  OVRef<IOVPerson> addPerson();
  /// A copy of each of these persons of other books, as one change.
  Persons addCopies(const Persons& persons);
  bool removePersons(const Persons& persons);

  /// A new group, in another one unless `parent` is null.
  OVRef<IOVGroup> addGroup(const OVString& name, const OVRef<IOVGroup>& parent);
  bool renameGroup(const OVRef<IOVGroup>& group, const OVString& name);
  bool removeGroup(const OVRef<IOVGroup>& group);
  bool addToGroup(const OVRef<IOVGroup>& group, const Persons& persons);
  bool removeFromGroup(const OVRef<IOVGroup>& group, const Persons& persons);

  /// Whether the book has tags at all.
  [[nodiscard]] bool hasTags() const;
  /// A tag is there for as long as somebody carries it.
  bool addTag(const OVString& tag, const Persons& persons);
  bool removeTag(const OVString& tag, const Persons& persons);
  /// Gives the tag another name, for everybody who carries it.
  bool renameTag(const OVString& tag, const OVString& name);
  bool dropTag(const OVString& tag);

 signals:
  void personAdded(const OVRef<IOVPerson>& person);
  void personRemoved(const OVRef<IOVPerson>& person);
  /// A value of the person is another one; null for a property that is not known.
  void personChanged(const OVRef<IOVPerson>& person, const OVString& property);
  /// Any person may be another one.
  void personsReset();
  /// Names are shown in another order.
  void nameOrderChanged();
  /// Groups, their names or their members are others.
  void groupsChanged();
  void tagsChanged();

 protected:
  /// Hears what other threads report.
  bool event(QEvent* event) override;

 private:
  friend struct ov::qt::BookSteps;
  struct Inner;

  bool changeTags(
      const QString& text, const std::vector<OVString>& personIDs,
      const std::function<std::vector<OVString>(const std::vector<OVString>&)>& changed);
  [[nodiscard]] std::vector<OVString> carriersOf(const OVString& tag) const;

  std::unique_ptr<Inner> inner_;
};
