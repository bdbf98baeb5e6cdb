#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include "loading/cancellation.h"

class QImage;

namespace ovcontacts {

/// The picture in a file, encoded as it is there, or smaller where it is large. Waits for a pipe
/// for as long as it takes, unless it is cancelled. Throws `OpeningError` for what is not a
/// picture.
[[nodiscard]] QByteArray pictureInFile(const QString& path, const Cancellation& cancellation);

/// The picture as a PNG, no larger than a contact needs.
[[nodiscard]] QByteArray encoded(const QImage& picture);

/// Whether a file of that name is a picture, as far as the name tells.
[[nodiscard]] bool isPictureName(const QString& path);

}  // namespace ovcontacts
