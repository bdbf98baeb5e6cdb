#pragma once

#include <QtWidgets/QFrame>

#include <functional>

class QLabel;
class QPushButton;

namespace ovcontacts {

/// One sentence above the panes, and what can be done about it.
class NoticeBar final : public QFrame {
  Q_OBJECT

 public:
  explicit NoticeBar(QWidget* parent = nullptr);

  /// "" says nothing, and hides the bar; without a text for the button, there is none.
  void say(const QString& text, const QString& button = {}, std::function<void()> run = {});
  [[nodiscard]] QString text() const;
  [[nodiscard]] QPushButton* button() const { return button_; }

 private:
  QLabel* label_;
  QPushButton* button_;
  std::function<void()> run_;
};

}  // namespace ovcontacts
