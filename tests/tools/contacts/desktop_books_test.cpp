#include <QtCore/QPointer>

#include "hosts/eds/live_test.h"
#include "live/notice_bar.h"
#include "used_window.h"

namespace {

/// A window of the program, and a book that the desktop's service keeps.
class DesktopBooks : public LiveTest {
 protected:
  DesktopBooks() {
    putCard("UID:kim\r\nFN:Kim Shaw\r\nN:Shaw;Kim;;;\r\nNOTE:sings\r\n");
    window_.setLiveSources(ovcontacts::liveSources());
    window_.show();
  }
  ~DesktopBooks() override {
    // The book is released before the session ends.
    window_.document().show({OVAddressBook::init(), ovcontacts::Format::Block, {}, {}, nullptr});
  }

  static void until(const std::function<bool()>& isSo) { UsedWindow::until(isSo); }
  void openStudy() {
    auto& menu = *window_.findChild<ovcontacts::LiveMenu*>();
    emit menu.aboutToShow();
    QPointer<QAction> study;
    until([&] {
      for (QAction* const each : menu.actions()) {
        if (each->text() == "Study") study = each;
      }
      return !study.isNull();
    });
    study->trigger();
    until([&] { return shown() == QStringList{"Kim Shaw"}; });
    until([&] { return !window_.document().keeper()->isBusy(); });
  }
  QStringList shown() {
    QStringList names;
    const auto& model = *window_.persons().list()->model();
    for (int row = 0; row < model.rowCount(); ++row) names += model.index(row, 0).data().toString();
    return names;
  }
  void save() {
    window_.document().save();
    until([&] { return window_.document().saving() == ovcontacts::Saving::Nothing; });
  }
  QString notice() { return window_.notice().text(); }

  const FakePlatform platform_;
  ovcontacts::MainWindow window_;
};

}  // namespace

TEST_F(DesktopBooks, AreOpenedChangedAndSaved) {
  openStudy();
  window_.sheet().sheet()->addValue("Nickname", "", "Kimmy");
  EXPECT_TRUE(window_.isWindowModified());
  save();
  EXPECT_FALSE(window_.isWindowModified());
  EXPECT_THAT(storedCards(), testing::HasSubstr("NICKNAME:Kimmy"));
  EXPECT_THAT(storedCards(), testing::HasSubstr("NOTE:sings"));
}

TEST_F(DesktopBooks, FollowWhatOtherProgramsChange) {
  openStudy();
  putCard("UID:bo\r\nFN:Bo Lund\r\nN:Lund;Bo;;;\r\n");
  until([&] { return shown() == QStringList{"Bo Lund", "Kim Shaw"}; });
  EXPECT_EQ(notice(), "Others have changed 1 entry.");
  putCard("UID:kim\r\nFN:Kim Abel\r\nN:Abel;Kim;;;\r\n");
  until([&] { return shown() == QStringList{"Bo Lund", "Kim Abel"}; });
}

TEST_F(DesktopBooks, LoseNothingWhenTwoChangeTheSameContact) {
  openStudy();
  window_.sheet().sheet()->addValue("Nickname", "", "Kimmy");
  putCard("UID:kim\r\nFN:Kim Shaw\r\nN:Shaw;Kim;;;\r\nNICKNAME:Kay\r\n");
  save();
  until([&] { return notice() == "1 entry was changed here and elsewhere."; });
  const auto conflict = window_.document().keeper()->live().conflicts().front();
  EXPECT_THAT(conflict.ours.str(), testing::HasSubstr("Kimmy"));
  EXPECT_THAT(conflict.theirs.str(), testing::HasSubstr("Kay"));
  window_.document().keeper()->resolve(conflict.ID, ovcontacts::LiveChoice::Both);
  EXPECT_EQ(shown().size(), 2);
  save();
  EXPECT_THAT(storedCards(), testing::HasSubstr("Kimmy"));
  EXPECT_THAT(storedCards(), testing::HasSubstr("Kay"));
}

TEST_F(DesktopBooks, AreShownAsTheyWereWhenTheyAreRemoved) {
  openStudy();
  EXPECT_FALSE(session->removeBook(bookUID));
  until([&] { return notice().startsWith("This book has been removed."); });
  EXPECT_EQ(shown(), QStringList{"Kim Shaw"});
}
