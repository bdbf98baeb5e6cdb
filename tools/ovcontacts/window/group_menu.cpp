#include <QtWidgets/QInputDialog>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>

#include <OVAddressBookQt/qt_text.h>
#include <OVAddressBookSDK/tag_manager.h>

#include "window/main_window.h"

namespace ovcontacts {

void MainWindow::makeGroupMenu() {
  QMenu& menu = *menuBar()->addMenu(tr("&Group"));
  const auto& book = [this]() -> OVQtBook& { return *document_.book(); };
  const auto hasGroup = [this, book] {
    return book().canChange() && groups_->selectedGroup() != nullptr;
  };
  const auto hasChoice = [this, book, hasGroup] {
    return hasGroup() || (book().canChange() && !groups_->selectedTag().isNull());
  };
  enableWhile(add(menu, groups_, tr("&New Group"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_N),
                  [this] { newGroup(nullptr); }),
              [book] { return book().canChange() && book().book()->canCreateGroup(); });
  enableWhile(add(menu, groups_, tr("New &Group in This One"), QKeySequence(),
                  [this] { newGroup(groups_->selectedGroup()); }),
              [book, hasGroup] { return hasGroup() && book().book()->canCreateSubGroup(); });
  enableWhile(add(menu, groups_, tr("&Rename"), QKeySequence(),
                  [this] { groups_->edit(groups_->currentIndex()); }),
              hasChoice);
  enableWhile(add(menu, groups_, tr("Remove Group or &Tag"), QKeySequence::Delete,
                  [this] { removeGroupOrTag(); }),
              hasChoice);
  menu.addSeparator();
  enableWhile(add(menu, persons_->list(), tr("Remove &from Group or Tag"), QKeySequence(),
                  [this] { removeFromGroupOrTag(); }),
              [this, hasChoice] { return hasChoice() && persons_->currentPerson() != nullptr; });
  enableWhile(add(menu, persons_->list(), tr("&Add Tag\u2026"), QKeySequence(Qt::CTRL | Qt::Key_T),
                  [this] { addTag(); }),
              [this, book] {
                return book().canChange() && book().hasTags() &&
                       persons_->currentPerson() != nullptr;
              });
}

void MainWindow::newGroup(const OVRef<IOVGroup>& parent) {
  groups_->editGroup(document_.book()->addGroup(ov::qt::ovString(tr("New Group")), parent));
}

void MainWindow::removeGroupOrTag() {
  const auto group = groups_->selectedGroup();
  const auto tag = groups_->selectedTag();
  groups_->selectEverybody();
  group != nullptr ? document_.book()->removeGroup(group) : document_.book()->dropTag(tag);
}

void MainWindow::removeFromGroupOrTag() {
  const auto persons = persons_->selectedPersons();
  const auto group = groups_->selectedGroup();
  group != nullptr ? document_.book()->removeFromGroup(group, persons)
                   : document_.book()->removeTag(groups_->selectedTag(), persons);
}

void MainWindow::addTag() {
  QStringList known;
  const auto tags = document_.book()->book()->tagManager();
  for (std::uint64_t i = 0; i < tags->count(); ++i) {
    known.append(ov::qt::qString(tags->tagAtIndex(i)));
  }
  bool isWanted = false;
  const QString tag =
      QInputDialog::getItem(this, tr("Add Tag"), tr("&Tag:"), known, -1, true, &isWanted).trimmed();
  if (isWanted) document_.book()->addTag(ov::qt::ovString(tag), persons_->selectedPersons());
}

}  // namespace ovcontacts
