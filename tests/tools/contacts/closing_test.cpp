#include <cstdio>
#include <filesystem>

#include "used_window.h"

namespace {

class Closing : public UsedWindow {
 protected:
  void change() {
    lookAt("b");
    window_->sheet().sheet()->addValue("Nickname", "", "Bobby");
    ASSERT_TRUE(window_->isWindowModified());
  }
  /// Closes the window, and answers what is asked by the button.
  bool close(const char* button) {
    whenAsked([button](QDialog& dialog) { press(dialog, QString::fromLatin1(button)); });
    return window_->close();
  }
};

}  // namespace

TEST_F(Closing, AnUnchangedWindowJustCloses) { EXPECT_TRUE(window_->close()); }

TEST_F(Closing, UnsavedChangesAreAskedAbout) {
  change();
  EXPECT_FALSE(close("Cancel"));
  EXPECT_TRUE(window_->isVisible());
  EXPECT_TRUE(close("Discard"));
  EXPECT_FALSE(content(path_).find("Bobby") != std::string::npos);
}

TEST_F(Closing, SavedChangesAreInTheFile) {
  change();
  EXPECT_FALSE(close("Save"));
  until([&] { return !window_->isVisible(); });
  const std::string saved = content(path_);
  EXPECT_NE(saved.find("NICKNAME:Bobby"), std::string::npos) << saved;
  EXPECT_NE(saved.find("UID:a\r\nFN:Ann Zorn\r\nN:Zorn;Ann;;;\r\nTEL;TYPE=work"),
            std::string::npos);
}

TEST_F(Closing, OpeningAnotherBookAsksToo) {
  change();
  whenAsked([](QDialog& dialog) { press(dialog, "Cancel"); });
  window_->openFile(QString::fromStdString(path_));
  EXPECT_FALSE(window_->loader().isLoading());
  EXPECT_TRUE(window_->isWindowModified());
}

TEST_F(Closing, SavingByKeyMakesTheWindowUnmodified) {
  change();
  QTest::keyClick(window_.get(), Qt::Key_S, Qt::ControlModifier);
  until([&] { return !window_->isWindowModified(); });
  QTest::keyClick(window_.get(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(window_->isWindowModified());
}

TEST_F(Closing, WhatIsChangedWhileAFileIsWrittenIsUnsaved) {
  change();
  window_->document().save();
  window_->sheet().sheet()->addValue("Nickname", "", "Robby");
  until([&] { return window_->document().saving() == ovcontacts::Saving::Nothing; });
  EXPECT_TRUE(window_->isWindowModified());
  EXPECT_NE(content(path_).find("Bobby"), std::string::npos);
  EXPECT_EQ(content(path_).find("Robby"), std::string::npos);
}

TEST_F(Closing, ABookSavedAsABlockIsReadAgain) {
  change();
  const std::string path = folder_.at("contacts.ovbook");
  saveAs(path);
  EXPECT_EQ(window_->windowTitle(), "contacts.ovbook[*]");
  openFile(path);
  EXPECT_EQ(shownPersons(), (QStringList{"Ann Zorn", "Bob Abel", "J\u00fcrgen"}));
  lookAt("b");
  EXPECT_TRUE(shownValues().contains("Bobby"));
  window_->document().exportTo(QString::fromStdString(folder_.at("copy.vcf")));
  until([&] { return window_->document().saving() == ovcontacts::Saving::Nothing; });
  EXPECT_NE(content(folder_.at("copy.vcf")).find("Bobby"), std::string::npos);
}

TEST_F(Closing, AFailedSaveIsToldAndKeepsTheChanges) {
  change();
  window_->document().saveAs(QString::fromStdString(path_ + "/contacts.vcf"));
  EXPECT_EQ(message(), "The contacts were not saved. Not a directory");
  EXPECT_TRUE(window_->isWindowModified());
  EXPECT_EQ(window_->windowTitle(), "contacts.vcf[*]");
  EXPECT_FALSE(close("Cancel"));
  EXPECT_TRUE(window_->isVisible());
}

TEST_F(Closing, AFailedSaveKeepsTheWindowThatWasToClose) {
  openFile(path_);
  change();
  ASSERT_EQ(std::remove(path_.c_str()), 0);
  std::filesystem::create_directory(path_);
  EXPECT_FALSE(close("Save"));
  EXPECT_TRUE(message().startsWith("The contacts were not saved."));
  EXPECT_TRUE(window_->isVisible());
  EXPECT_TRUE(window_->isWindowModified());
}
