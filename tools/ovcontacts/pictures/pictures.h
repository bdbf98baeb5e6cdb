#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtGui/QImage>

#include <vector>

class QApplication;

namespace ovcontacts {

/// A picture of the running program.
struct Picture {
  QString name;
  QImage image;
  QStringList faults;
};

/// The pictures of the documentation, drawn with the contacts in the file. The application is set
/// up, and shows no window of its own; its style, palette and language change on the way.
[[nodiscard]] std::vector<Picture> drawPictures(QApplication& application, const QString& contacts);

}  // namespace ovcontacts
