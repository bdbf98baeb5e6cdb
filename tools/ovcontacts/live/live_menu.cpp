#include "live/live_menu.h"

#include <exception>
#include <utility>

#include "loading/mailbox.h"

namespace ovcontacts {

LiveMenu::LiveMenu(QWidget* parent) : QMenu(tr("Open &Live Book"), parent) {
  connect(this, &QMenu::aboutToShow, this, &LiveMenu::look);
  setSources(nullptr);
}

LiveMenu::~LiveMenu() {
  if (mailbox_ != nullptr) mailbox_->close();
}

void LiveMenu::setSources(std::shared_ptr<LiveSources> sources) {
  sources_ = std::move(sources);
  menuAction()->setVisible(sources_ != nullptr);
}

void LiveMenu::look() {
  if (mailbox_ != nullptr || sources_ == nullptr) return;
  if (isEmpty()) say(tr("Looking for books\u2026"));
  mailbox_ = std::make_shared<Mailbox>(this);
  inBackground(mailbox_, [this, sources = sources_]() -> std::function<void()> {
    LiveSources::Sources found;
    QString wrong;
    try {
      found = sources->list();
    } catch (const std::exception& error) {
      wrong = QString::fromUtf8(error.what());
    }
    return [this, found, wrong] {
      std::exchange(mailbox_, nullptr)->close();
      show(found, wrong);
    };
  });
}

void LiveMenu::say(const QString& text) { addAction(text)->setEnabled(false); }

void LiveMenu::show(const LiveSources::Sources& found, const QString& wrong) {
  clear();
  for (const auto& source : found) {
    QString name = source->name();
    name.replace(QLatin1Char('&'), QLatin1String("&&"));
    connect(addAction(name), &QAction::triggered, this, [this, source] { emit chosen(source); });
  }
  if (found.empty()) say(wrong.isEmpty() ? tr("No address books") : wrong);
}

}  // namespace ovcontacts
