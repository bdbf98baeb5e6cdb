#include "live_window.h"

namespace {

class LiveBooks : public LiveWindow {};

}  // namespace

TEST_F(LiveBooks, AreListedInTheBackground) {
  window_->setLiveSources(nullptr);
  EXPECT_FALSE(menu().menuAction()->isVisible());
  window_->setLiveSources(sources);
  menu().clear();
  sources->hold();
  emit menu().aboutToShow();
  EXPECT_EQ(listed(), QStringList{"Looking for books\u2026"});
  EXPECT_FALSE(menu().actions().front()->isEnabled());
  sources->answer();
  until([&] { return listed() == QStringList{"Study && Sea"}; });
}

TEST_F(LiveBooks, AreAskedForNewsWhenTheyAreOpened) {
  EXPECT_EQ(shownPersons().size(), 3);
  EXPECT_EQ(store->refreshes, 1);
}

TEST_F(LiveBooks, ASaveThatTakesLongBlocksNothing) {
  change();
  store->hold();
  save();
  until([&] { return store->isAsked() && window_->findChild<QProgressBar*>()->isVisible(); });
  QTest::keyClicks(window_->persons().search(), "ann");
  EXPECT_EQ(shownPersons(), QStringList{"Ann Zorn"});
  EXPECT_EQ(shownValues().front(), "Ann Zorn");
  EXPECT_FALSE(action("New Contact").isEnabled());
  EXPECT_FALSE(action("Undo").isEnabled());
  EXPECT_TRUE(window_->isWindowModified());
  store->answer();
  until([&] { return !window_->isWindowModified(); });
  settle();
  EXPECT_TRUE(action("New Contact").isEnabled());
  EXPECT_FALSE(window_->findChild<QProgressBar*>()->isVisible());
  EXPECT_EQ(store->saves, 1);
}

TEST_F(LiveBooks, ASaveIsCancelledAndTheChangesStayUnsaved) {
  change();
  store->hold();
  save();
  until([&] { return store->isAsked() && window_->findChild<QProgressBar*>()->isVisible(); });
  QTest::mouseClick(&button("Cancel"), Qt::LeftButton);
  EXPECT_EQ(message(), "The contacts were not saved. It was cancelled.");
  EXPECT_TRUE(window_->isWindowModified());
}

TEST_F(LiveBooks, ARefreshThatTakesLongLetsTheBookBeChangedAndSaved) {
  store->hold();
  window_->document().keeper()->refresh();
  until([&] { return store->isAsked(); });
  EXPECT_TRUE(action("New Contact").isEnabled());
  change();
  EXPECT_TRUE(shownValues().contains("Bobby"));
  save();
  store->answer();
  until([&] { return !window_->isWindowModified(); });
  EXPECT_EQ(store->saves, 1);
}

TEST_F(LiveBooks, AFailedSaveIsToldAndAskedAboutWhenTheWindowCloses) {
  change();
  store->wrong = "The server cannot be reached.";
  save();
  EXPECT_EQ(message(), "The contacts were not saved. The server cannot be reached.");
  EXPECT_TRUE(window_->isWindowModified());
  whenAsked([](QDialog& dialog) { press(dialog, "Cancel"); });
  EXPECT_FALSE(window_->close());
}

TEST_F(LiveBooks, AWindowClosesOnceItsBookIsSaved) {
  change();
  store->hold();
  whenAsked([](QDialog& dialog) { press(dialog, "Save"); });
  EXPECT_FALSE(window_->close());
  until([&] { return store->isAsked(); });
  EXPECT_TRUE(window_->isVisible());
  store->answer();
  until([&] { return !window_->isVisible(); });
  EXPECT_EQ(store->saves, 1);
}

TEST_F(LiveBooks, AWindowMayGoWhileTheStoreIsAsked) {
  store->hold();
  window_->document().keeper()->refresh();
  until([&] { return store->isAsked(); });
  window_.reset();
  until([&] { return !store->isAsked(); });
}
