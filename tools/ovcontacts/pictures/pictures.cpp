// The real windows are drawn, with style, font, palette and language set here, so that the pictures
// do not depend on anybody's desktop. A dialog is drawn by itself and put on top of the window.

#include "pictures/pictures.h"

#include <QtCore/QLocale>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QStyleFactory>

#include <OVAddressBookQt/qt_text.h>
#include <OVAddressBookSDK/address.h>
#include <OVAddressBookSDK/country.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_name.h>

#include "application.h"
#include "dialogs/value_dialog.h"
#include "loading/file_source.h"
#include "pictures/faults.h"
#include "window/main_window.h"

namespace ovcontacts {

namespace {

constexpr QSize kSize(1080, 680);

QPalette darkPalette() {
  QPalette palette;
  const QColor window(43, 45, 49);
  const QColor base(33, 35, 38);
  const QColor text(228, 230, 234);
  palette.setColor(QPalette::Window, window);
  palette.setColor(QPalette::WindowText, text);
  palette.setColor(QPalette::Base, base);
  palette.setColor(QPalette::AlternateBase, window);
  palette.setColor(QPalette::Text, text);
  palette.setColor(QPalette::Button, window);
  palette.setColor(QPalette::ButtonText, text);
  palette.setColor(QPalette::PlaceholderText, QColor(150, 154, 162));
  palette.setColor(QPalette::Highlight, QColor(52, 108, 184));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, QColor(116, 172, 240));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, QColor(120, 124, 130));
  }
  return palette;
}

QPalette lightPalette() {
  QPalette palette = QStyleFactory::create(QStringLiteral("Fusion"))->standardPalette();
  palette.setColor(QPalette::Highlight, QColor(45, 105, 190));
  palette.setColor(QPalette::Link, QColor(28, 92, 178));
  return palette;
}

/// A window with the contacts, and what is drawn of it.
class Stage {
 public:
  explicit Stage(const QString& contacts) {
    const Cancellation cancellation;
    FileSource source(contacts);
    window_.document().show(source.open([](std::uint64_t, std::uint64_t) {}, cancellation));
    window_.resize(kSize);
    window_.show();
    window_.persons().list()->setFocus();
  }

  MainWindow& window() { return window_; }
  void look(const char* id) {
    window_.persons().reveal(window_.document().book()->personWithID(id));
    settle();
  }
  static void settle() {
    for (int i = 0; i < 5; ++i) QApplication::processEvents();
  }
  Picture draw(const char* name, QWidget* above = nullptr) {
    settle();
    Picture picture{QLatin1String(name), window_.grab().toImage(), faultsOf(window_)};
    if (above != nullptr) {
      const QImage dialog = above->grab().toImage();
      const QRect place(QPoint((kSize.width() - dialog.width()) / 2, 150), dialog.size());
      QPainter painter(&picture.image);
      painter.fillRect(picture.image.rect(), QColor(0, 0, 0, 60));
      painter.fillRect(place.adjusted(-1, -1, 1, 1), above->palette().mid());
      painter.drawImage(place, dialog);
      picture.faults += faultsOf(*above);
    }
    picture.faults += faultsOf(picture.image);
    return picture;
  }

 private:
  MainWindow window_;
};

/// A person with an address of each of several countries.
void addOffices(MainWindow& window) {
  OVQtBook& book = *window.document().book();
  auto addresses = OVMutableMultipleValue::init();
  QStringList met;
  for (const auto& person : book.book()->allPersons()) {
    const auto theirs = ov::cast<OVMultipleValue>(person->valueByPropertyName(OVProPertyAddress));
    for (const auto& each : theirs) {
      const auto address = ov::cast<OVObjectAddress>(each->value());
      const QString code = address == nullptr ? QString() : ov::qt::qString(address->countryCode());
      static const QStringList kShown{QStringLiteral("de"), QStringLiteral("gb"),
                                      QStringLiteral("jp"), QStringLiteral("us"),
                                      QStringLiteral("hu"), QStringLiteral("br")};
      if (!kShown.contains(code) || met.contains(code)) continue;
      met.append(code);
      addresses->addValue(ov::labelled(
          address, OVCountry::countryNameByCode(address->countryCode()), OVValueTypeAddress));
    }
  }
  const auto offices = book.addPerson();
  book.setValue(
      offices, OVProPertyName,
      ov::labelled(OVObjectPersonName::initWithFirstMiddleLast("Harbour", nullptr, "Offices"),
                   "Name", OVValueTypePersonName));
  book.setValue(offices, OVProPertyAddress, addresses);
  window.persons().reveal(offices);
}

}  // namespace

std::vector<Picture> drawPictures(QApplication& application, const QString& contacts) {
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QApplication::setFont(QFont(QStringLiteral("Noto Sans"), 10));
  QApplication::setPalette(lightPalette());
  QLocale::setDefault(QLocale(QStringLiteral("en_GB")));
  speak(application, QLocale());
  std::vector<Picture> pictures;
  Stage stage(contacts);
  stage.look("groessling-1");
  pictures.push_back(stage.draw("main-light"));
  QApplication::setPalette(darkPalette());
  pictures.push_back(stage.draw("main-dark"));
  QApplication::setPalette(lightPalette());
  {
    OVPersonSheet& sheet = *stage.window().sheet().sheet();
    const QModelIndexList found =
        sheet.match(sheet.index(0), OVPersonSheet::PropertyNameRole, QStringLiteral("Address"));
    ValueDialog dialog(QStringLiteral("Address"), OVValueTypeAddress, true, nullptr);
    dialog.setValue(found.value(0).data(Qt::EditRole));
    dialog.setLabel(found.value(0).data(OVPersonSheet::LabelRole).toString());
    dialog.setMain(true);
    dialog.show();
    pictures.push_back(stage.draw("edit", &dialog));
  }
  stage.window().persons().search()->setText(QStringLiteral("lind"));
  pictures.push_back(stage.draw("search"));
  stage.window().persons().search()->clear();
  addOffices(stage.window());
  pictures.push_back(stage.draw("addresses"));
  QLocale::setDefault(QLocale(QStringLiteral("ar_EG")));
  speak(application, QLocale());
  Stage mirrored(contacts);
  mirrored.window().persons().search()->setText(QStringLiteral("\u0639\u0628\u062f"));
  mirrored.window().persons().search()->clear();
  pictures.push_back(mirrored.draw("right-to-left"));
  QLocale::setDefault(QLocale(QStringLiteral("en_GB")));
  speak(application, QLocale());
  return pictures;
}

}  // namespace ovcontacts
