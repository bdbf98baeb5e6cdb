#pragma once

#include <QtCore/QVariant>
#include <QtWidgets/QWidget>

#include <OVAddressBookSDK/value_type.h>

namespace ovcontacts {

/// Edits one datum in the form of `ov::qt::editedFormOf`.
class ValueEditor : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;

  /// One for data of the type, the parent's.
  [[nodiscard]] static ValueEditor* make(OVValueType type, QWidget* parent);

  [[nodiscard]] virtual QVariant value() const = 0;
  virtual void setValue(const QVariant& value) = 0;
};

}  // namespace ovcontacts
