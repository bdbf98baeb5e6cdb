#include <QtCore/QCommandLineParser>
#include <QtWidgets/QApplication>

#include "application.h"
#include "live/live_sources.h"
#include "window/main_window.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  ovcontacts::setUp(application);
  QApplication::setApplicationVersion(QStringLiteral(OV_VERSION));
  QCommandLineParser parser;
  parser.setApplicationDescription(
      QCoreApplication::translate("Application", "Shows and changes address books."));
  parser.addHelpOption();
  parser.addVersionOption();
  parser.addPositionalArgument(
      QStringLiteral("file"),
      QCoreApplication::translate("Application", "A data block, or a file of vCards."),
      QStringLiteral("[file]"));
  parser.process(application);

  ovcontacts::MainWindow window;
  window.setLiveSources(ovcontacts::liveSources());
  window.show();
  const QStringList files = parser.positionalArguments();
  if (!files.isEmpty()) window.openFile(files.front());
  return QApplication::exec();
}
