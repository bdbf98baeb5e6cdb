#include <OVAddressBookQt/qt_book.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QThread>
#include <QtGui/QUndoCommand>

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

#include <OVAddressBookSDK/notification_center.h>
#include <OVAddressBookSDK/notification_names.h>
#include <OVAddressBookSDK/tag_manager.h>

#include "book_steps.h"

using ov::qt::BookSteps;
using ov::qt::IDs;

namespace {

/// A change as two calls.
class Command final : public QUndoCommand {
 public:
  Command(const QString& text, std::function<void()> redo, std::function<void()> undo)
      : QUndoCommand(text), redo_(std::move(redo)), undo_(std::move(undo)) {}

  void redo() override { redo_(); }
  void undo() override { undo_(); }

 private:
  std::function<void()> redo_;
  std::function<void()> undo_;
};

/// What another thread reported, to be told on ours.
class Report final : public QEvent {
 public:
  explicit Report(std::function<void()> tell) : QEvent(User), tell_(std::move(tell)) {}
  void tell() const { tell_(); }

 private:
  std::function<void()> tell_;
};

IDs idsOf(const OVQtBook::Persons& persons) {
  IDs ids;
  for (const auto& person : persons) {
    if (person != nullptr) ids.push_back(person->ID());
  }
  return ids;
}

}  // namespace

struct OVQtBook::Inner {
  explicit Inner(BookSteps itsSteps) : steps(std::move(itsSteps)) {}

  BookSteps steps;
  QUndoStack stack;
  std::vector<OVNotificationObserver> observers;
  bool isReporting = false;

  void push(const QString& text, std::function<void()> redo, std::function<void()> undo) {
    stack.push(new Command(text, std::move(redo), std::move(undo)));  // the stack's from now on
  }
};

OVQtBook::OVQtBook(OVRef<OVAddressBook> book, QObject* parent)
    : QObject(parent), inner_(std::make_unique<Inner>(BookSteps{*this, std::move(book), {}})) {
  const auto center = OVNotificationCenter::defaultCenter();
  const auto hear = [&](const OVString& name, auto tell) {
    const auto onOurThread = [this, tell](const OVNotification& notification) {
      if (inner_->isReporting) return;
      if (notification.object != nullptr && notification.object != inner_->steps.book) return;
      const auto person =
          ov::cast<IOVPerson>(notification.userInfo[OVChangeNameNotification_PersonKey]);
      if (QThread::currentThread() == thread()) return tell(person);
      QMetaObject::invokeMethod(
          this, [tell, person] { tell(person); }, Qt::QueuedConnection);
    };
    inner_->observers.push_back(center->addObserver(name, onOurThread));
  };
  const auto change = [this](const OVString& property) {
    return [this, property](const OVRef<IOVPerson>& person) {
      person == nullptr ? emit personsReset() : emit personChanged(person, property);
    };
  };
  hear(OVPersonChangeNameNotification, change(OVProPertyName));
  hear(OVPersonChangePhoneNotification, change(OVProPertyPhone));
  hear(OVPersonChangeEmailNotification, change(OVProPertyEmail));
  hear(OVPersonChangeAllPersonNotification, [this](const OVRef<IOVPerson>&) {
    emit personsReset();
    emit groupsChanged();
    emit tagsChanged();
  });
  hear(OV_LastNmaeFrontChange_notification,
       [this](const OVRef<IOVPerson>&) { emit nameOrderChanged(); });
  connect(this, &OVQtBook::personChanged, this,
          [this](const OVRef<IOVPerson>& person, const OVString& property) {
            const OVString name = ov::qt::notificationFor(property);
            if (name.isNull() || person == nullptr || inner_->isReporting) return;
            const auto about = OVDictionary<OVObject>::dictionary();
            about.set(OVChangeNameNotification_PersonKey, person);
            inner_->isReporting = true;
            OVNotificationCenter::defaultCenter()->postNotificationName(name, inner_->steps.book,
                                                                        about);
            inner_->isReporting = false;
          });
}

OVQtBook::~OVQtBook() {
  inner_->observers.clear();
  inner_->stack.blockSignals(true);  // its end is no change of the book
}

bool OVQtBook::event(QEvent* event) {
  const auto* const report = dynamic_cast<const Report*>(event);
  if (report == nullptr) return QObject::event(event);
  report->tell();
  return true;
}

const OVRef<OVAddressBook>& OVQtBook::book() const { return inner_->steps.book; }

bool OVQtBook::canChange() const { return book()->canOprate(); }

bool OVQtBook::hasTags() const { return book()->tagManager() != nullptr; }

OVRef<IOVPerson> OVQtBook::personWithID(const OVString& ID) const {
  return ID.isNull() ? nullptr : inner_->steps.person(ID);
}

QUndoStack& OVQtBook::undoStack() { return inner_->stack; }

bool OVQtBook::setValue(const OVRef<IOVPerson>& person, const OVString& property,
                        const OVRef<OVValue>& value) {
  if (person == nullptr || !canChange()) return false;
  const auto before = person->valueByPropertyName(property);
  if (before == value) return false;
  BookSteps& steps = inner_->steps;
  const OVString id = person->ID();
  inner_->push(
      tr("Edit"), [=, &steps] { steps.setValue(id, property, value); },
      [=, &steps] { steps.setValue(id, property, before); });
  return person->valueByPropertyName(property) == value;
}

OVRef<IOVPerson> OVQtBook::addPerson() {
  const auto came = addCopies({nullptr});
  return came.empty() ? nullptr : came.front();
}

OVQtBook::Persons OVQtBook::addCopies(const Persons& persons) {
  if (!canChange() || persons.empty()) return {};
  struct Arrivals {
    Persons first;
    std::vector<ov::qt::RemovedPerson> removed;
    bool wereHere = false;
  };
  const auto arrivals = std::make_shared<Arrivals>();
  BookSteps& steps = inner_->steps;
  inner_->push(
      tr("New Contact"),
      [=, &steps] {
        if (arrivals->wereHere) {
          for (const auto& removed : arrivals->removed) steps.bringBack(removed);
          return;
        }
        for (const auto& person : persons) {
          if (const auto came = steps.bring(person)) arrivals->first.push_back(came);
        }
        arrivals->wereHere = true;
      },
      [=, &steps] {
        arrivals->removed.clear();
        for (const auto& came : arrivals->first) {
          arrivals->removed.push_back(steps.remove(came->ID()));
        }
      });
  return arrivals->first;
}

bool OVQtBook::removePersons(const Persons& persons) {
  if (!canChange() || persons.empty()) return false;
  const auto removed = std::make_shared<std::vector<ov::qt::RemovedPerson>>();
  BookSteps& steps = inner_->steps;
  inner_->push(
      tr("Remove Contacts"),
      [this, removed, &steps, ids = idsOf(persons)] {
        removed->clear();
        for (const OVString& id : ids) removed->push_back(steps.remove(id));
        emit groupsChanged();
        emit tagsChanged();
      },
      [this, removed, &steps] {
        for (const auto& each : *removed) steps.bringBack(each);
        emit groupsChanged();
        emit tagsChanged();
      });
  return true;
}

OVRef<IOVGroup> OVQtBook::addGroup(const OVString& name, const OVRef<IOVGroup>& parent) {
  if (!canChange() || name.isNull()) return nullptr;
  BookSteps& steps = inner_->steps;
  const auto made = std::make_shared<ov::qt::RemovedGroup>();
  OVRef<IOVGroup> group = book()->addGroupByName(name);
  if (group == nullptr) return nullptr;
  if (parent != nullptr && !parent->addSubGroup(group)) {
    book()->removeGroup(group);
    return nullptr;
  }
  inner_->push(
      tr("New Group"),
      [this, made, &steps] { made->id.isNull() ? emit groupsChanged() : steps.bringBack(*made); },
      [=, &steps, id = group->ID()] { *made = steps.removeGroup(id); });
  return group;
}

bool OVQtBook::renameGroup(const OVRef<IOVGroup>& group, const OVString& name) {
  if (group == nullptr || !canChange() || name == group->displayName()) return false;
  BookSteps& steps = inner_->steps;
  inner_->push(
      tr("Rename Group"), [=, &steps, id = group->ID()] { steps.rename(id, name); },
      [&steps, id = group->ID(), before = group->displayName()] { steps.rename(id, before); });
  return group->displayName() == name;
}

bool OVQtBook::removeGroup(const OVRef<IOVGroup>& group) {
  if (group == nullptr || !canChange()) return false;
  const auto removed = std::make_shared<ov::qt::RemovedGroup>();
  BookSteps& steps = inner_->steps;
  inner_->push(
      tr("Remove Group"), [=, &steps, id = group->ID()] { *removed = steps.removeGroup(id); },
      [=, &steps] { steps.bringBack(*removed); });
  return !removed->id.isNull();
}

bool OVQtBook::addToGroup(const OVRef<IOVGroup>& group, const Persons& persons) {
  if (group == nullptr || !canChange()) return false;
  const auto members = group->persons();
  Persons joining;
  std::copy_if(persons.begin(), persons.end(), std::back_inserter(joining),
               [&](const auto& person) { return person != nullptr && !members.contains(person); });
  if (joining.empty()) return false;
  BookSteps& steps = inner_->steps;
  inner_->push(
      tr("Add to Group"), [&steps, id = group->ID(), ids = idsOf(joining)] { steps.join(id, ids); },
      [&steps, id = group->ID(), ids = idsOf(joining)] { steps.leave(id, ids); });
  return true;
}

bool OVQtBook::removeFromGroup(const OVRef<IOVGroup>& group, const Persons& persons) {
  if (group == nullptr || !canChange() || persons.empty()) return false;
  BookSteps& steps = inner_->steps;
  inner_->push(
      tr("Remove from Group"),
      [&steps, id = group->ID(), ids = idsOf(persons)] { steps.leave(id, ids); },
      [&steps, id = group->ID(), ids = idsOf(persons)] { steps.join(id, ids); });
  return true;
}

namespace {

IDs with(IDs tags, const OVString& tag) {
  if (std::find(tags.begin(), tags.end(), tag) == tags.end()) tags.push_back(tag);
  return tags;
}

IDs without(IDs tags, const OVString& tag) {
  tags.erase(std::remove(tags.begin(), tags.end(), tag), tags.end());
  return tags;
}

}  // namespace

/// Gives everybody whose tags `changed` changes the others, as one step.
bool OVQtBook::changeTags(const QString& text, const std::vector<OVString>& personIDs,
                          const std::function<IDs(const IDs&)>& changed) {
  if (!canChange() || !hasTags()) return false;
  BookSteps& steps = inner_->steps;
  std::vector<std::pair<OVString, IDs>> before;
  std::vector<std::pair<OVString, IDs>> after;
  for (const OVString& id : personIDs) {
    const IDs tags = steps.tagsOf(id);
    IDs others = changed(tags);
    if (others == tags) continue;
    before.emplace_back(id, tags);
    after.emplace_back(id, std::move(others));
  }
  if (after.empty()) return false;
  const auto setAll = [&steps](const auto& all) {
    for (const auto& [id, tags] : all) steps.setTags(id, tags);
  };
  inner_->push(
      text, [setAll, after] { setAll(after); }, [setAll, before] { setAll(before); });
  return true;
}

std::vector<OVString> OVQtBook::carriersOf(const OVString& tag) const {
  const auto manager = book()->tagManager();
  const auto carriers = manager == nullptr ? nullptr : manager->personIDsByTag(tag);
  return {carriers.begin(), carriers.end()};
}

bool OVQtBook::addTag(const OVString& tag, const Persons& persons) {
  if (tag.empty()) return false;
  return changeTags(tr("Add Tag"), idsOf(persons),
                    [&](const IDs& tags) { return with(tags, tag); });
}

bool OVQtBook::removeTag(const OVString& tag, const Persons& persons) {
  return changeTags(tr("Remove Tag"), idsOf(persons),
                    [&](const IDs& tags) { return without(tags, tag); });
}

bool OVQtBook::renameTag(const OVString& tag, const OVString& name) {
  if (name.empty()) return false;
  return changeTags(tr("Rename Tag"), carriersOf(tag), [&](IDs tags) {
    if (std::find(tags.begin(), tags.end(), name) != tags.end()) return without(tags, tag);
    std::replace(tags.begin(), tags.end(), tag, name);
    return tags;
  });
}

bool OVQtBook::dropTag(const OVString& tag) {
  return changeTags(tr("Remove Tag"), carriersOf(tag),
                    [&](const IDs& tags) { return without(tags, tag); });
}
