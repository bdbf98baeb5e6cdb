#pragma once

#include <QtCore/QVariant>
#include <QtWidgets/QWidget>

#include <OVAddressBookSDK/value_type.h>

class QFormLayout;

namespace ovcontacts {

/// Edits one datum in the form of `ov::qt::editedFormOf`.
class ValueEditor : public QWidget {
  Q_OBJECT

 public:
  explicit ValueEditor(QWidget* parent);

  /// One for data of the type, the parent's.
  [[nodiscard]] static ValueEditor* make(OVValueType type, QWidget* parent);

  [[nodiscard]] virtual QVariant value() const = 0;
  virtual void setValue(const QVariant& value) = 0;

  /// Where the fields are, for others to be put beside them.
  [[nodiscard]] QFormLayout* form() const { return form_; }

 private:
  QFormLayout* form_;
};

}  // namespace ovcontacts
