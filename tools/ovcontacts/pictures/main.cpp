#include <QtCore/QTextStream>
#include <QtWidgets/QApplication>

#include <OVAddressBookSDK/user_defaults.h>

#include "pictures/pictures.h"

/// Draws the pictures of the documentation: CONTACTS FOLDER.
int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  OVUserDefaults::setStandardUserDefaults(OVUserDefaults::inMemory());
  const QStringList arguments = QApplication::arguments();
  QTextStream err(stderr);
  if (arguments.size() != 3) {
    err << "usage: ovcontacts_pictures CONTACTS FOLDER\n";
    return 2;
  }
  bool isGood = true;
  for (const auto& picture : ovcontacts::drawPictures(application, arguments[1])) {
    const QString path = arguments[2] + QLatin1Char('/') + picture.name + QStringLiteral(".png");
    isGood = picture.image.save(path) && picture.faults.isEmpty() && isGood;
    for (const QString& fault : picture.faults) err << path << ": " << fault << "\n";
  }
  return isGood ? 0 : 1;
}
