#pragma once

#include <QtCore/QVariantMap>

#include "dialogs/value_editor.h"

class QComboBox;

namespace ovcontacts {

/// Edits a postal address: the fields of its country's layout, in the order of that layout.
class AddressEditor final : public ValueEditor {
  Q_OBJECT

 public:
  explicit AddressEditor(QWidget* parent);

  [[nodiscard]] QVariant value() const override;
  void setValue(const QVariant& value) override;

 private:
  void showFields();
  [[nodiscard]] QWidget* editorOf(const QString& field);

  QComboBox* country_;
  QVariantMap texts_;
};

}  // namespace ovcontacts
