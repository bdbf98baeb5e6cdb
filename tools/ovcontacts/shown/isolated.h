#pragma once

#include <QtCore/QString>

namespace ovcontacts {

/// The text in its own direction of writing, whatever that of the window: the "+" of a number stays
/// in front.
[[nodiscard]] inline QString isolated(const QString& text) {
  constexpr QChar kFirstStrong(0x2068);
  constexpr QChar kEnd(0x2069);
  return kFirstStrong + text + kEnd;
}

}  // namespace ovcontacts
