#pragma once

#include <QtWidgets/QLineEdit>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>

#include "live/notice_bar.h"
#include "slow_store.h"
#include "used_window.h"

/// A window with a live book that holds the three contacts.
class LiveWindow : public UsedWindow {
 protected:
  LiveWindow() {
    cards->loadWithData(OVData::dataWithText(content(path_)));
    window_->setLiveSources(sources);
    open();
  }
  ~LiveWindow() override {
    store->answer();
    sources->answer();
  }

  QMenu& menu() { return *window_->findChild<ovcontacts::LiveMenu*>(); }
  QStringList listed() {
    QStringList names;
    for (const QAction* const each : menu().actions()) names += each->text();
    return names;
  }
  void open() {
    emit menu().aboutToShow();
    until([&] { return listed() == QStringList{"Study && Sea"}; });
    menu().actions().front()->trigger();
    until([&] { return window_->document().keeper() != nullptr; });
    settle();
  }
  void settle() {
    until([&] { return !window_->document().keeper()->isBusy(); });
  }
  void change() {
    lookAt("b");
    window_->sheet().sheet()->addValue("Nickname", "", "Bobby");
  }
  void save() { QTest::keyClick(window_.get(), Qt::Key_S, Qt::ControlModifier); }
  QString notice() { return window_->notice().text(); }
  void pressNotice() { QTest::mouseClick(window_->notice().button(), Qt::LeftButton); }
  const OVRef<OVVCardBook> cards = OVVCardBook::init();
  const std::shared_ptr<SlowStore> store = std::make_shared<SlowStore>(cards);
  const std::shared_ptr<SlowSources> sources = std::make_shared<SlowSources>(store);
};
