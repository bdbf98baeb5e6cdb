#pragma once

#include <QtWidgets/QDialog>

#include "live/live_book.h"

class QHBoxLayout;

namespace ovcontacts {

/// Shows a contact as we and as others have made it, side by side, and asks which is to stay.
class ConflictDialog final : public QDialog {
  Q_OBJECT

 public:
  explicit ConflictDialog(const LiveConflict& conflict, QWidget* parent = nullptr);

  /// Once it was accepted.
  [[nodiscard]] LiveChoice choice() const { return choice_; }

 private:
  void addSide(QHBoxLayout& sides, const QString& title, const OVString& card);

  LiveChoice choice_ = LiveChoice::Theirs;
};

}  // namespace ovcontacts
