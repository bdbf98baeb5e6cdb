#include <sys/stat.h>

#include <QtGui/QImage>

#include <OVAddressBookSDK/image.h>

#include "used_window.h"

namespace {

class PersonPictures : public UsedWindow {
 protected:
  PersonPictures() { lookAt("b"); }

  QString savedPicture(const char* name, const QSize& size) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    const QString path = QString::fromStdString(folder_.at(name));
    EXPECT_TRUE(image.save(path));
    return path;
  }
  /// The picture of the person who is looked at.
  QImage picture() {
    const auto image = window_->persons().currentPerson()->thumbnail();
    if (image == nullptr || image->data() == nullptr) return {};
    return QImage::fromData(QByteArray::fromStdString(std::string(image->data()->text())));
  }
  void dropOnHeader(const QMimeData& data) { drop(*window_->sheet().header(), data, {40, 40}); }
};

}  // namespace

TEST_F(PersonPictures, AreTakenFromAFile) {
  const QString path = savedPicture("green.png", {60, 40});
  window_->usePicture(path);
  until([&] { return !picture().isNull(); });
  EXPECT_EQ(picture().size(), QSize(60, 40));
  EXPECT_EQ(std::string(window_->persons().currentPerson()->thumbnail()->data()->text()),
            content(path.toStdString()));
  QTest::keyClick(window_.get(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(picture().isNull());
}

TEST_F(PersonPictures, AreMadeSmallerWhereTheyAreLarge) {
  window_->usePicture(savedPicture("large.png", {3000, 1500}));
  until([&] { return !picture().isNull(); });
  EXPECT_EQ(picture().size(), QSize(1024, 512));
}

TEST_F(PersonPictures, AFileThatIsNoneIsToldInWords) {
  window_->usePicture(QString::fromStdString(file("notes.png", "no picture")));
  EXPECT_EQ(
      message(),
      "The picture \u201cnotes.png\u201d cannot be used. It is not a picture that can be read.");
  window_->usePicture(QString::fromStdString(path_ + "/none.png"));
  EXPECT_EQ(message(), "The picture \u201cnone.png\u201d cannot be used. Not a directory");
  EXPECT_FALSE(window_->isWindowModified());
}

TEST_F(PersonPictures, APipeThatNeverEndsBlocksNothing) {
  const std::string path = folder_.at("pipe.png");
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  window_->usePicture(QString::fromStdString(path));
  lookAt("a");
  EXPECT_EQ(shownValues().front(), "Ann Zorn");
}

TEST_F(PersonPictures, AreThePersonsWhoWasLookedAt) {
  window_->usePicture(savedPicture("green.png", {60, 40}));
  lookAt("a");
  until([&] { return window_->isWindowModified(); });
  EXPECT_TRUE(picture().isNull());
  lookAt("b");
  EXPECT_FALSE(picture().isNull());
}

TEST_F(PersonPictures, AreDroppedOnTheHeader) {
  QMimeData image;
  QImage green(50, 50, QImage::Format_RGB32);
  green.fill(Qt::green);
  image.setImageData(green);
  dropOnHeader(image);
  EXPECT_EQ(picture().size(), QSize(50, 50));
  QMimeData files;
  files.setUrls({QUrl::fromLocalFile(savedPicture("green.png", {60, 40}))});
  dropOnHeader(files);
  until([&] { return picture().size() == QSize(60, 40); });
}

TEST_F(PersonPictures, OfBooksThatMayOnlyBeReadStay) {
  QMimeData image;
  image.setImageData(QImage(50, 50, QImage::Format_RGB32));
  window_->document().book()->setReadOnly(true);
  dropOnHeader(image);
  EXPECT_TRUE(picture().isNull());
}
