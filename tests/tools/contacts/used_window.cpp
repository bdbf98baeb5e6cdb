// The program waits in a dialog's own event loop, so the dialog is answered by a timer that was set
// before it opens. URLs come here instead of starting programs of the desktop.

#include "used_window.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QFile>
#include <QtCore/QTimer>
#include <QtGui/QDesktopServices>
#include <QtGui/QDragEnterEvent>
#include <QtGui/QDropEvent>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>

#include "loading/file_source.h"

namespace {

constexpr const char* kContacts =
    "BEGIN:VCARD\r\nVERSION:4.0\r\nUID:a\r\nFN:Ann Zorn\r\nN:Zorn;Ann;;;\r\n"
    "TEL;TYPE=work:+44 (55) "
    "50-23\r\nTEL;TYPE=home;PREF=1:123\r\nCATEGORIES:friends\r\nEND:VCARD\r\n"
    "BEGIN:VCARD\r\nVERSION:4.0\r\nUID:b\r\nFN:Bob Abel\r\nN:Abel;Bob;;;\r\n"
    "EMAIL:bob@ebb.example\r\nORG:Ebb\r\nEND:VCARD\r\n"
    "BEGIN:VCARD\r\nVERSION:4.0\r\nUID:c\r\nFN:J\u00fcrgen\r\nN:;J\u00fcrgen;;;\r\nEND:VCARD\r\n"
    "BEGIN:VCARD\r\nVERSION:4.0\r\nKIND:group\r\nUID:g\r\nFN:Tide\r\nMEMBER:a\r\nEND:VCARD\r\n";

constexpr int kDeadline = 20000;

}  // namespace

OpenedURLs::OpenedURLs() {
  for (const char* const scheme : {"tel", "mailto", "xmpp", "http", "https", "geo"}) {
    QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "take");
  }
}

OpenedURLs::~OpenedURLs() {
  for (const char* const scheme : {"tel", "mailto", "xmpp", "http", "https", "geo"}) {
    QDesktopServices::unsetUrlHandler(QLatin1String(scheme));
  }
}

UsedWindow::UsedWindow() : path_(file("contacts.vcf", kContacts)) {
  window_ = std::make_unique<ovcontacts::MainWindow>();
  window_->show();
  window_->activateWindow();
  until([&] { return window_->isActiveWindow(); });
  openFile(path_);
}

UsedWindow::~UsedWindow() = default;

void UsedWindow::until(const std::function<bool()>& isSo) {
  const QDeadlineTimer deadline(kDeadline);
  bool isReached = isSo();
  while (!isReached && !deadline.hasExpired()) {
    QApplication::processEvents(QEventLoop::AllEvents, 20);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    isReached = isSo();
  }
  EXPECT_TRUE(isReached);
}

void UsedWindow::whenAsked(const std::function<void(QDialog&)>& answer) {
  auto* const timer = new QTimer(window_.get());
  QObject::connect(timer, &QTimer::timeout, timer, [timer, answer] {
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) return;
    timer->stop();
    timer->deleteLater();
    answer(*dialog);
  });
  timer->start(0);
}

void UsedWindow::comeBack() {
  window_->activateWindow();
  until([&] { return window_->isActiveWindow(); });
}

void UsedWindow::type(QDialog& dialog, const char* text) {
  QTest::keyClicks(dialog.focusWidget(), QString::fromUtf8(text));
}

void UsedWindow::press(QDialog& dialog, const QString& button) {
  for (auto* const each : dialog.findChildren<QAbstractButton*>()) {
    if (QString(each->text()).remove(QLatin1Char('&')) != button) continue;
    QTest::mouseClick(each, Qt::LeftButton);
    return;
  }
  ADD_FAILURE() << "no button " << button.toStdString();
  dialog.reject();
}

QAction& UsedWindow::action(const QString& text) {
  for (auto* const each : window_->findChildren<QAction*>()) {
    if (QString(each->text()).remove(QLatin1Char('&')).startsWith(text)) return *each;
  }
  throw std::invalid_argument("no action " + text.toStdString());
}

QToolButton& UsedWindow::button(const QString& text) {
  for (auto* const each : window_->findChildren<QToolButton*>()) {
    if (each->text() == text) return *each;
  }
  throw std::invalid_argument("no button " + text.toStdString());
}

QString UsedWindow::message() {
  QString text;
  until([&] {
    auto* const box = window_->findChild<QMessageBox*>();
    if (box == nullptr || !box->isVisible()) return false;
    text = box->text() + " " + box->informativeText();
    box->close();
    return true;
  });
  return text;
}

void UsedWindow::saveAs(const std::string& path) {
  window_->document().saveAs(QString::fromStdString(path));
  until([&] { return window_->document().saving() == ovcontacts::Saving::Nothing; });
}

void UsedWindow::drop(QWidget& on, const QMimeData& data, const QPoint& at) {
  QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, {});
  enter.ignore();
  QApplication::sendEvent(&on, &enter);
  if (!enter.isAccepted()) return;
  QDragMoveEvent move(at, Qt::CopyAction, &data, Qt::LeftButton, {});
  QApplication::sendEvent(&on, &move);
  QDropEvent dropped(at, Qt::CopyAction, &data, Qt::LeftButton, {});
  QApplication::sendEvent(&on, &dropped);
}

void UsedWindow::openFile(const std::string& path) {
  window_->openFile(QString::fromStdString(path));
  until([&] { return !window_->loader().isLoading(); });
}

std::string UsedWindow::file(const char* name, const std::string& content) const {
  QFile file(QString::fromStdString(folder_.at(name)));
  EXPECT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(QByteArray::fromStdString(content));
  return folder_.at(name);
}

std::string UsedWindow::content(const std::string& path) const {
  QFile file(QString::fromStdString(path));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path;
  return file.readAll().toStdString();
}

QStringList UsedWindow::shownPersons() {
  QStringList names;
  const auto& model = *window_->persons().list()->model();
  for (int row = 0; row < model.rowCount(); ++row) names += model.index(row, 0).data().toString();
  return names;
}

QStringList UsedWindow::shownValues() {
  QStringList texts;
  const auto& sheet = *window_->sheet().sheet();
  for (int row = 0; row < sheet.rowCount(); ++row) texts += sheet.index(row).data().toString();
  return texts;
}

void UsedWindow::lookAt(const char* id) {
  window_->persons().reveal(window_->document().book()->personWithID(id));
}

QModelIndex UsedWindow::valueRow(const QString& text) {
  auto& sheet = *window_->sheet().sheet();
  return sheet.match(sheet.index(0), Qt::DisplayRole, text, 1, Qt::MatchExactly).value(0);
}

QPoint UsedWindow::pointOn(const QModelIndex& value) {
  auto* const list = window_->sheet().list();
  until([&] { return list->visualRect(value).height() > 0; });
  const QRect row = list->visualRect(value);
  return {row.left() + row.width() * 3 / 10 + 40, row.center().y()};
}

// Compiled by itself, it takes as long as the rest.
#include "moc_used_window.cpp"
