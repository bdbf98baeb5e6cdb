#include "dialogs/password_dialog.h"

#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>

#include "live/live_sources.h"

namespace ovcontacts {

PasswordDialog::PasswordDialog(QWidget* parent)
    : QDialog(parent),
      question_(new QLabel(this)),
      user_(new QLineEdit(this)),
      password_(new QLineEdit(this)) {
  setWindowTitle(tr("Password"));
  question_->setWordWrap(true);
  question_->setTextFormat(Qt::PlainText);
  password_->setEchoMode(QLineEdit::Password);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* const layout = new QFormLayout(this);
  layout->addRow(question_);
  layout->addRow(tr("&User:"), user_);
  layout->addRow(tr("&Password:"), password_);
  layout->addRow(buttons);
}

void PasswordDialog::show(const PasswordRequest& request) {
  const QString question =
      request.wasRejected
          ? tr("The server of \u201c%1\u201d rejected the password. Please enter it again.")
          : tr("The server of \u201c%1\u201d asks for a password.");
  question_->setText(question.arg(request.bookName));
  if (user_->text().isEmpty()) user_->setText(request.user);
  password_->clear();
  (user_->text().isEmpty() ? user_ : password_)->setFocus();
  open();
}

QString PasswordDialog::user() const { return user_->text(); }

QString PasswordDialog::password() const { return password_->text(); }

}  // namespace ovcontacts
