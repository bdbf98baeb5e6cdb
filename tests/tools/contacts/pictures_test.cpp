#include <QtCore/QDir>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include "pictures/faults.h"
#include "pictures/pictures.h"
#include "used_window.h"

namespace {

std::string all(const QStringList& texts) { return texts.join(QLatin1Char('\n')).toStdString(); }

class Pictures : public testing::Test {
  const FakePlatform platform_;
};

}  // namespace

TEST_F(Pictures, ShowWholeWindows) {
  auto& application = *static_cast<QApplication*>(QCoreApplication::instance());
  QStringList names;
  for (const auto& picture :
       ovcontacts::drawPictures(application, QStringLiteral(OV_EXAMPLE_CONTACTS))) {
    EXPECT_EQ(all(picture.faults), "") << picture.name;
    names += picture.name + QStringLiteral(".png");
  }
  names.sort();
  EXPECT_EQ(QDir(QStringLiteral(OV_SOURCE_DIR "/docs/pictures")).entryList({"*.png"}), names);
}

TEST_F(Pictures, FollowLightAndDarkAndHighResolution) {
  ovcontacts::MainWindow window;
  window.resize(400, 300);
  window.show();
  const auto drawn = [&](int scale) {
    QApplication::processEvents();
    QImage image(window.size() * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    window.render(&image);
    return image.scaled(200, 150, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  };
  const auto brightness = [](const QImage& image) {
    return image.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).pixelColor(0, 0);
  };
  const QPalette before = QApplication::palette();
  QApplication::setPalette(QPalette(Qt::white, Qt::lightGray));
  EXPECT_GT(brightness(drawn(1)).lightness(), 180);
  QApplication::setPalette(QPalette(Qt::darkGray, Qt::black));
  EXPECT_LT(brightness(drawn(1)).lightness(), 60);
  EXPECT_LT(brightness(drawn(2)).lightness(), 60);
  QApplication::setPalette(before);
}

TEST_F(Pictures, EmptyOnesAreFound) {
  QImage empty(400, 300, QImage::Format_RGB32);
  empty.fill(Qt::white);
  EXPECT_FALSE(ovcontacts::faultsOf(empty).isEmpty());
}

TEST_F(Pictures, TextsThatAreCutOffAreFound) {
  QWidget window;
  window.resize(300, 200);
  auto* const label = new QLabel(QStringLiteral("A text that needs more room"), &window);
  auto* const button = new QPushButton(QStringLiteral("Another text"), &window);
  label->setGeometry(0, 0, 300, 30);
  button->setGeometry(0, 40, 300, 30);
  window.show();
  EXPECT_EQ(all(ovcontacts::faultsOf(window)), "");
  label->resize(40, 30);
  button->resize(20, 30);
  EXPECT_EQ(ovcontacts::faultsOf(window).size(), 2);
  label->setGeometry(250, 0, 300, 30);
  EXPECT_EQ(ovcontacts::faultsOf(window).size(), 2);
}

TEST_F(Pictures, RowsThatAreCutOffAreFound) {
  ovcontacts::MainWindow window;
  const ovcontacts::Cancellation never;
  window.resize(1080, 680);
  window.show();
  window.addCards("BEGIN:VCARD\r\nVERSION:4.0\r\nN:;Ann;;;\r\nFN:Ann\r\nEND:VCARD\r\n");
  QApplication::processEvents();
  UsedWindow::until([&] { return ovcontacts::faultsOf(window).isEmpty(); });
  EXPECT_EQ(all(ovcontacts::faultsOf(window)), "");
  window.addCards(
      "BEGIN:VCARD\r\nVERSION:4.0\r\nN:;A name that is far too long for a list of "
      "persons in a window;;;\r\nEND:VCARD\r\n");
  UsedWindow::until([&] { return !ovcontacts::faultsOf(window).isEmpty(); });
}
