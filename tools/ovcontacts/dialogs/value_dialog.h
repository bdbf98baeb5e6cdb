#pragma once

#include <QtCore/QVariant>
#include <QtWidgets/QDialog>

#include <OVAddressBookSDK/value_type.h>

class QCheckBox;
class QComboBox;

namespace ovcontacts {

class ValueEditor;

/// Asks for a value of a person: what it is, its label, and whether it is the main one.
class ValueDialog final : public QDialog {
  Q_OBJECT

 public:
  /// `property` is the property's name; only one that may have several values has labels.
  ValueDialog(const QString& property, OVValueType type, bool maySeveral, QWidget* parent);

  void setValue(const QVariant& value);
  void setLabel(const QString& label);
  void setMain(bool isMain);

  [[nodiscard]] QVariant value() const;
  /// In the library's words, or the user's own; "" for none.
  [[nodiscard]] QString label() const;
  [[nodiscard]] bool isMain() const;

 private:
  ValueEditor* editor_;
  QComboBox* label_;
  QCheckBox* main_;
};

}  // namespace ovcontacts
