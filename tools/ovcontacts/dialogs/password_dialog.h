#pragma once

#include <QtWidgets/QDialog>

class QLabel;
class QLineEdit;

namespace ovcontacts {

struct PasswordRequest;

/// Asks for what a server wants to know.
class PasswordDialog final : public QDialog {
  Q_OBJECT

 public:
  explicit PasswordDialog(QWidget* parent = nullptr);

  void show(const PasswordRequest& request);
  [[nodiscard]] QString user() const;
  [[nodiscard]] QString password() const;

 private:
  QLabel* question_;
  QLineEdit* user_;
  QLineEdit* password_;
};

}  // namespace ovcontacts
