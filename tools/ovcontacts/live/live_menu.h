#pragma once

#include <QtWidgets/QMenu>

#include <memory>

#include "live/live_sources.h"

namespace ovcontacts {

class Mailbox;

/// The live books of the desktop as a menu. They are looked for in the background each time that it
/// opens.
class LiveMenu final : public QMenu {
  Q_OBJECT

 public:
  explicit LiveMenu(QWidget* parent = nullptr);
  ~LiveMenu() override;

  /// Null for none, which hides the menu.
  void setSources(std::shared_ptr<LiveSources> sources);

 signals:
  void chosen(const std::shared_ptr<ovcontacts::BookSource>& source);

 private:
  void look();
  void show(const LiveSources::Sources& found, const QString& wrong);
  void say(const QString& text);

  std::shared_ptr<LiveSources> sources_;
  std::shared_ptr<Mailbox> mailbox_;
};

}  // namespace ovcontacts
