#pragma once

#include <QtCore/QStringList>

class QImage;
class QWidget;

namespace ovcontacts {

/// What is wrong with a window as it is shown: texts that are cut off, parts that lie outside it.
[[nodiscard]] QStringList faultsOf(const QWidget& window);

/// What is wrong with a picture of one: nothing is on it.
[[nodiscard]] QStringList faultsOf(const QImage& picture);

}  // namespace ovcontacts
