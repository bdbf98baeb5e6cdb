#include <QtWidgets/QApplication>

#include <gtest/gtest.h>

#include "application.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QLocale::setDefault(QLocale(QStringLiteral("en_GB")));
  QApplication application(argc, argv);
  ovcontacts::setUp(application);
  return RUN_ALL_TESTS();
}
