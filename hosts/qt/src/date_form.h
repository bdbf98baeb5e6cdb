#pragma once

#include <QtCore/QDate>
#include <QtCore/QLocale>
#include <QtCore/QString>

namespace ov::qt {

/// A day with the month's name, in the order and with the words of the locale.
[[nodiscard]] QString dateText(const QDate& date, bool hasYear, const QLocale& locale);

}  // namespace ov::qt
