#include "date_form.h"

#include <unicode/dtptngen.h>

#include <memory>

namespace ov::qt {

namespace {

/// ICU knows how a locale writes a day without a year, Qt does not. Their patterns agree but for
/// the letter of a month on its own.
QString pattern(const QLocale& locale, bool hasYear) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::Locale its(locale.name().toLatin1().constData());
  const std::unique_ptr<icu::DateTimePatternGenerator> patterns(
      icu::DateTimePatternGenerator::createInstance(its, status));
  if (U_FAILURE(status) || patterns == nullptr) return {};
  const icu::UnicodeString best = patterns->getBestPattern(hasYear ? u"yMMMMd" : u"MMMMd", status);
  if (U_FAILURE(status)) return {};
  QString text = QString::fromUtf16(best.getBuffer(), best.length());
  text.replace(QLatin1Char('L'), QLatin1Char('M'));
  // One letter is ICU's full year, and none of Qt's.
  if (!text.contains(QStringLiteral("yy"))) {
    text.replace(QLatin1Char('y'), QStringLiteral("yyyy"));
  }
  return text;
}

}  // namespace

QString dateText(const QDate& date, bool hasYear, const QLocale& locale) {
  const QString form = pattern(locale, hasYear);
  if (!form.isEmpty()) return locale.toString(date, form);
  return hasYear ? locale.toString(date, QLocale::ShortFormat)
                 : date.toString(QStringLiteral("MM-dd"));
}

}  // namespace ov::qt
