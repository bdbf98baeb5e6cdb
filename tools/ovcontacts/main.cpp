#include <QtWidgets/QApplication>

#include "application.h"
#include "window/main_window.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  ovcontacts::setUp(application);
  ovcontacts::MainWindow window;
  window.show();
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() > 1) window.openFile(arguments.at(1));
  return QApplication::exec();
}
