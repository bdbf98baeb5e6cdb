#include "dialogs/value_dialog.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

#include <OVAddressBookQt/qt_text.h>
#include <OVAddressBookSDK/property.h>

#include "dialogs/value_editor.h"
#include "shown/words.h"

namespace ovcontacts {

ValueDialog::ValueDialog(const QString& property, OVValueType type, bool maySeveral,
                         QWidget* parent)
    : QDialog(parent),
      editor_(ValueEditor::make(type, this)),
      label_(new QComboBox(this)),
      main_(new QCheckBox(tr("This is the &main one"), this)) {
  const auto known = OVProperty::propertyWithName(ov::qt::ovString(property));
  setWindowTitle(translated(known == nullptr ? property : ov::qt::qString(known->displayName())));
  label_->setEditable(true);
  label_->setObjectName(QStringLiteral("label"));
  for (const QString& label : labelsFor(property)) label_->addItem(translated(label), label);

  auto* const layout = new QVBoxLayout(this);
  // A service is what tells accounts apart.
  const bool hasLabel = maySeveral && type != OVValueTypeInstantMessage;
  if (hasLabel) editor_->form()->insertRow(0, tr("L&abel:"), label_);
  layout->addWidget(editor_);
  layout->addWidget(main_);
  label_->setVisible(hasLabel);
  main_->setVisible(maySeveral);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  layout->addStretch();
  layout->addWidget(buttons);
  setMinimumWidth(420);
  editor_->setFocus();
}

void ValueDialog::setValue(const QVariant& value) { editor_->setValue(value); }

void ValueDialog::setLabel(const QString& label) { label_->setEditText(translated(label)); }

void ValueDialog::setMain(bool isMain) {
  main_->setChecked(isMain);
  // There is always one; another one is chosen instead.
  main_->setEnabled(!isMain);
}

QVariant ValueDialog::value() const { return editor_->value(); }

QString ValueDialog::label() const {
  if (label_->isHidden()) return {};
  const QString text = label_->currentText().trimmed();
  const int known = label_->findText(text);
  return known < 0 ? text : label_->itemData(known).toString();
}

bool ValueDialog::isMain() const { return main_->isChecked(); }

}  // namespace ovcontacts
