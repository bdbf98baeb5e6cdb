#pragma once

#include <QtCore/QMimeData>
#include <QtCore/QObject>
#include <QtCore/QUrl>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>
#include <QtWidgets/QToolButton>

#include <functional>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include <OVAddressBookQt/qt_text.h>

#include "support/fakes/fake_platform.h"
#include "support/processes/temporary_folder.h"
#include "window/main_window.h"

inline std::ostream& operator<<(std::ostream& out, const QString& text) {
  return out << text.toStdString();
}

/// The URLs that the program hands to the desktop.
class OpenedURLs : public QObject {
  Q_OBJECT

 public:
  OpenedURLs();
  ~OpenedURLs() override;
  std::vector<QUrl> urls;

 public slots:
  void take(const QUrl& url) { urls.push_back(url); }
};

/// A window of the program with three contacts, a group and a tag, and somebody who uses it.
class UsedWindow : public testing::Test {
 public:
  /// Lets the program run until it is so; fails when it does not become so.
  static void until(const std::function<bool()>& isSo);

 protected:
  UsedWindow();
  ~UsedWindow() override;

  /// Answers the next dialog, which the program waits for.
  void whenAsked(const std::function<void(QDialog&)>& answer);
  /// Once the dialog is gone, keys are the window's again.
  void comeBack();
  static void type(QDialog& dialog, const char* text);
  static void press(QDialog& dialog, const QString& button);

  QAction& action(const QString& text);
  QToolButton& button(const QString& text);
  /// The text of the message that the window shows, which is then closed.
  QString message();
  /// Drops what is dragged, from outside the window.
  static void drop(QWidget& on, const QMimeData& data, const QPoint& at);

  void openFile(const std::string& path);
  void saveAs(const std::string& path);
  std::string file(const char* name, const std::string& content) const;
  [[nodiscard]] std::string content(const std::string& path) const;

  [[nodiscard]] QStringList shownPersons();
  [[nodiscard]] QStringList shownValues();
  void lookAt(const char* id);
  /// The row of a value in the sheet, and where a person would click on it.
  QModelIndex valueRow(const QString& text);
  QPoint pointOn(const QModelIndex& value);

  const FakePlatform platform_;
  const TemporaryFolder folder_;
  OpenedURLs opened_;
  std::string path_;
  std::unique_ptr<ovcontacts::MainWindow> window_;
};
