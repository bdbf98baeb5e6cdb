#include "application.h"

#include <QtCore/QLibraryInfo>
#include <QtCore/QLocale>
#include <QtCore/QTranslator>
#include <QtGui/QIcon>
#include <QtWidgets/QApplication>

#include <OVAddressBookSDK/user_defaults.h>

namespace ovcontacts {

namespace {

/// The application's translator; the one before it goes.
void install(QApplication& application, const char* name, const QLocale& locale,
             const QString& file, const QString& folder) {
  auto* const before = application.findChild<QTranslator*>(QLatin1String(name));
  if (before != nullptr) {
    QCoreApplication::removeTranslator(before);
    delete before;
  }
  auto* const translator = new QTranslator(&application);
  translator->setObjectName(QLatin1String(name));
  // English has its plurals in a file, too, for whoever has no other language here.
  if (translator->load(locale, file, QStringLiteral("_"), folder) ||
      translator->load(file + QStringLiteral("_en"), folder)) {
    QCoreApplication::installTranslator(translator);
  }
}

}  // namespace

void speak(QApplication& application, const QLocale& locale) {
  install(application, "qt", locale, QStringLiteral("qtbase"),
          QLibraryInfo::path(QLibraryInfo::TranslationsPath));
  install(application, "own", locale, QStringLiteral("ovcontacts"), QStringLiteral(":/i18n"));
  QGuiApplication::setLayoutDirection(locale.textDirection());
}

void setUp(QApplication& application) {
  QApplication::setApplicationName(QStringLiteral("ovcontacts"));
  QApplication::setApplicationDisplayName(QCoreApplication::translate("Application", "Contacts"));
  QGuiApplication::setDesktopFileName(QStringLiteral("ovcontacts"));
  QGuiApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("ovcontacts")));
  OVUserDefaults::setApplicationIdentifier("ovcontacts");
  speak(application, QLocale());
}

}  // namespace ovcontacts
