#include <QtGui/QAccessible>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QTreeView>

#include <regex>

#include "pictures/faults.h"
#include "used_window.h"

namespace {

class Keyboard : public UsedWindow {
 protected:
  ovcontacts::GroupsPane& groups() { return window_->groups(); }
  std::vector<QWidget*> reachedByTab() {
    std::vector<QWidget*> reached;
    QWidget* const start = window_->persons().search();
    start->setFocus();
    do {
      reached.push_back(QApplication::focusWidget());
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    } while (QApplication::focusWidget() != start && reached.size() < 50);
    return reached;
  }
};

}  // namespace

TEST_F(Keyboard, TabLeadsThroughAllPanes) {
  const auto reached = reachedByTab();
  for (const QWidget* const pane :
       std::vector<QWidget*>{window_->persons().search(), window_->persons().list(),
                             window_->sheet().list(), &window_->groups()}) {
    EXPECT_NE(std::find(reached.begin(), reached.end(), pane), reached.end()) << pane->objectName();
  }
}

TEST_F(Keyboard, EverythingThatIsReachedHasANameForThoseWhoCannotSeeIt) {
  for (QWidget* const widget : reachedByTab()) {
    const auto* const seen = QAccessible::queryAccessibleInterface(widget);
    ASSERT_NE(seen, nullptr);
    EXPECT_FALSE(seen->text(QAccessible::Name).isEmpty()) << widget->metaObject()->className();
  }
  const QModelIndex person = window_->persons().list()->currentIndex();
  EXPECT_FALSE(person.data(Qt::AccessibleTextRole).toString().isEmpty());
  const QModelIndex value = window_->sheet().sheet()->index(0);
  EXPECT_FALSE(value.data(Qt::AccessibleTextRole).toString().isEmpty());
}

TEST_F(Keyboard, KeysOfTheManualPageAreThere) {
  const std::string page = content(OV_SOURCE_DIR "/man/ovcontacts.1");
  const std::string keys = page.substr(page.find(".SH KEYS"), page.find(".SH FILES"));
  QList<QKeySequence> known;
  for (const QAction* const each : window_->findChildren<QAction*>()) known += each->shortcuts();
  const std::regex key("\\.BR? ((?:Ctrl|Shift|Return|Delete|F\\d)[^ \\n]*)");
  int count = 0;
  for (std::sregex_iterator at(keys.begin(), keys.end(), key), end; at != end; ++at, ++count) {
    EXPECT_TRUE(known.contains(QKeySequence(QString::fromStdString((*at)[1])))) << (*at)[1];
  }
  EXPECT_EQ(count, 9);
}

TEST_F(Keyboard, EveryMenuHasALetter) {
  for (const QAction* const menu : window_->menuBar()->actions()) {
    EXPECT_TRUE(menu->text().contains('&')) << menu->text();
  }
}

TEST_F(Keyboard, AGroupIsRenamedByKeys) {
  groups().select(OVGroupsModel::Group, "g");
  groups().setFocus();
  QTest::keyClick(&groups(), Qt::Key_F2);
  auto* const name = groups().findChild<QLineEdit*>();
  ASSERT_NE(name, nullptr);
  name->selectAll();
  QTest::keyClicks(name, "Flood");
  QTest::keyClick(name, Qt::Key_Return);
  until([&] { return groups().currentIndex().data() == "Flood"; });
  QTest::keyClick(window_.get(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(groups().currentIndex().data(), "Tide");
}

TEST_F(Keyboard, LargeLettersAreNotCutOff) {
  const QFont before = QApplication::font();
  QFont large = before;
  large.setPointSizeF(before.pointSizeF() * 1.5);
  QApplication::setFont(large);
  window_->resize(1500, 900);
  QApplication::processEvents();
  // On a busy machine some of the layout comes later.
  until([&] { return ovcontacts::faultsOf(*window_).isEmpty(); });
  EXPECT_EQ(ovcontacts::faultsOf(*window_).join('\n'), "");
  QApplication::setFont(before);
}
