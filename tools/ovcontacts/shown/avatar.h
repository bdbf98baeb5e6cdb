#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QRect>
#include <QtCore/QString>
#include <QtGui/QImage>

class QPainter;

namespace ovcontacts {

/// Draws a person's picture as a disc; without a picture, the first letters of the name on a colour
/// that goes with the name. Sharp at every scale of the screen.
void drawAvatar(QPainter& painter, const QRect& place, const QByteArray& picture,
                const QString& name);

/// The picture that is encoded in the bytes, no larger than a window needs; null for none and for a
/// picture that cannot be read. Pictures drawn lately are kept.
[[nodiscard]] QImage decoded(const QByteArray& picture);

/// The first letters of the first and the last word.
[[nodiscard]] QString initials(const QString& name);

}  // namespace ovcontacts
