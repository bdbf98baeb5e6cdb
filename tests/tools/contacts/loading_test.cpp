#include <sys/stat.h>

#include <QtWidgets/QLineEdit>
#include <QtWidgets/QProgressBar>

#include <condition_variable>
#include <fstream>
#include <mutex>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/label.h>
#include <OVAddressBookVCard/vcard_book.h>

#include "loading/book_source.h"
#include "used_window.h"

namespace {

class Loading : public UsedWindow {
 protected:
  std::string pipe() {
    const std::string path = folder_.at("pipe");
    EXPECT_EQ(mkfifo(path.c_str(), 0600), 0);
    return path;
  }
};

/// A book that answers when it is allowed to.
class LateSource final : public ovcontacts::BookSource {
 public:
  void answer() {
    const std::lock_guard lock(mutex_);
    mayAnswer_ = true;
    changed_.notify_all();
  }

 private:
  QString name() const override { return QStringLiteral("late"); }
  ovcontacts::OpenedBook open(const Progress& progress, const ovcontacts::Cancellation&) override {
    progress(1, 2);
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return mayAnswer_; });
    auto book = OVVCardBook::init();
    book->newPerson();
    return {book, ovcontacts::Format::Live, {}, {}, nullptr};
  }

  std::mutex mutex_;
  std::condition_variable changed_;
  bool mayAnswer_ = false;
};

}  // namespace

TEST_F(Loading, APipeThatNeverEndsBlocksNothing) {
  const std::string path = pipe();
  window_->openFile(QString::fromStdString(path));
  std::ofstream writer(path);  // waits for a reader
  writer << "BEGIN:VCARD\r\n" << std::flush;
  EXPECT_TRUE(window_->findChild<QProgressBar*>()->isVisible());
  QTest::keyClicks(window_->persons().search(), "jur");
  EXPECT_EQ(shownPersons(), QStringList{"J\u00fcrgen"});
  EXPECT_TRUE(window_->loader().isLoading());
  QTest::mouseClick(&button("Cancel"), Qt::LeftButton);
  EXPECT_FALSE(window_->loader().isLoading());
  EXPECT_FALSE(window_->findChild<QProgressBar*>()->isVisible());
  EXPECT_EQ(shownPersons(), QStringList{"J\u00fcrgen"});
}

TEST_F(Loading, AWindowClosesWhileItReadsAPipe) {
  window_->openFile(QString::fromStdString(pipe()));
  EXPECT_TRUE(window_->close());
  window_.reset();
}

TEST_F(Loading, APipeThatEndsIsRead) {
  const std::string path = pipe();
  window_->openFile(QString::fromStdString(path));
  std::ofstream(path) << "BEGIN:VCARD\r\nVERSION:4.0\r\nN:;Piper;;;\r\nFN:Piper\r\nEND:VCARD\r\n";
  until([&] { return shownPersons() == QStringList{"Piper"}; });
  EXPECT_EQ(window_->document().path(), "");
}

TEST_F(Loading, ABookThatAnswersLateBlocksNothing) {
  const auto source = std::make_shared<LateSource>();
  window_->open(source);
  until([&] { return window_->findChild<QProgressBar*>()->value() == 500; });
  QTest::keyClicks(window_->persons().search(), "ann");
  EXPECT_EQ(shownPersons(), QStringList{"Ann Zorn"});
  source->answer();
  until([&] { return shownPersons() == QStringList{""}; });
  EXPECT_EQ(window_->document().format(), ovcontacts::Format::Live);
}

TEST_F(Loading, ABookThatAnswersTooLateIsDropped) {
  const auto source = std::make_shared<LateSource>();
  window_->open(source);
  window_->loader().cancel();
  openFile(path_);
  source->answer();
  EXPECT_EQ(shownPersons().size(), 3);
}

TEST_F(Loading, FilesThatAreNoContactsAreToldInWords) {
  openFile(file("notes.txt", "not a book"));
  EXPECT_EQ(message(),
            "\u201cnotes.txt\u201d could not be opened. "
            "The file holds neither a data block nor vCards.");
  openFile(folder_.at("none"));
  EXPECT_EQ(message(), "\u201cnone\u201d could not be opened. No such file or directory");
  EXPECT_EQ(shownPersons().size(), 3);
}

TEST_F(Loading, ADamagedBlockIsToldInWords) {
  const std::string path = folder_.at("whole.ovbook");
  saveAs(path);
  const std::string whole = content(path);
  openFile(file("cut.ovbook", whole.substr(0, whole.size() / 2)));
  EXPECT_TRUE(message().contains("The data block is damaged"));
  const auto label = OVKeyedArchiver::archivedDataWithRootObject(OVLabel::init());
  openFile(file("label.ovbook", std::string(label->text())));
  EXPECT_TRUE(message().contains("something other than contacts"));
}

TEST_F(Loading, WhatDidNotGoInIsTold) {
  openFile(file("odd.vcf", "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:Odd\r\nno line\r\nEND:VCARD\r\n"));
  EXPECT_TRUE(message().contains("Not everything in"));
}

TEST_F(Loading, AnEmptyFileIsAnEmptyBook) {
  openFile(file("empty.vcf", ""));
  EXPECT_TRUE(shownPersons().isEmpty());
}
