#include "live/notice_bar.h"

#include <QtGui/QAccessible>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include <utility>

namespace ovcontacts {

NoticeBar::NoticeBar(QWidget* parent)
    : QFrame(parent), label_(new QLabel(this)), button_(new QPushButton(this)) {
  setObjectName(QStringLiteral("notice"));
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::AlternateBase);
  label_->setWordWrap(true);
  label_->setTextFormat(Qt::PlainText);
  button_->setObjectName(QStringLiteral("noticeButton"));
  auto* const layout = new QHBoxLayout(this);
  layout->setContentsMargins(12, 6, 12, 6);
  layout->addWidget(label_, 1);
  layout->addWidget(button_);
  connect(button_, &QPushButton::clicked, this, [this] {
    // What is done may say something else.
    const auto run = run_;
    if (run) run();
  });
  hide();
}

void NoticeBar::say(const QString& text, const QString& button, std::function<void()> run) {
  const bool isNew = text != label_->text() && !text.isEmpty();
  label_->setText(text);
  button_->setText(button);
  button_->setVisible(!button.isEmpty());
  run_ = std::move(run);
  setVisible(!text.isEmpty());
  if (!isNew) return;
  setAccessibleName(text);
  QAccessibleEvent alert(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

QString NoticeBar::text() const { return label_->text(); }

}  // namespace ovcontacts
