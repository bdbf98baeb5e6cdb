#include "dialogs/address_editor.h"

#include <QtWidgets/QComboBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>

#include <algorithm>

#include <OVAddressBookQt/qt_text.h>
#include <OVAddressBookQt/values.h>
#include <OVAddressBookSDK/address.h>
#include <OVAddressBookSDK/address_formater.h>
#include <OVAddressBookSDK/country.h>

#include "shown/words.h"

namespace ovcontacts {

using ov::qt::qString;

AddressEditor::AddressEditor(QWidget* parent) : ValueEditor(parent), country_(new QComboBox) {
  country_->addItem(tr("(not known)"), QString());
  for (const auto& country : OVCountry::allCountry()) {
    country_->addItem(qString(country->name()), qString(country->code()));
  }
  country_->setCurrentIndex(std::max(0, country_->findData(qString(ov::qt::userCountryCode()))));
  form()->addRow(tr("&Layout of:"), country_);
  showFields();
  connect(country_, &QComboBox::currentIndexChanged, this, &AddressEditor::showFields);
}

void AddressEditor::showFields() {
  int row = 0;
  QFormLayout::ItemRole role = QFormLayout::FieldRole;
  form()->getWidgetPosition(country_, &row, &role);
  while (form()->rowCount() > row + 1) form()->removeRow(row + 1);
  const QString chosen = country_->currentData().toString();
  const OVString code = chosen.isEmpty() ? ov::qt::userCountryCode() : ov::qt::ovString(chosen);
  for (const auto& field : OVAddressFormater::fieldArrayByCountryCode(code)) {
    const QString name = qString(OVObjectAddress::standFieldName(field->name()));
    QWidget* const text = editorOf(name);
    form()->addRow(translated(qString(field->displayName())) + QLatin1Char(':'), text);
    if (form()->rowCount() == row + 2) setFocusProxy(text);
  }
}

/// A street may have several lines.
QWidget* AddressEditor::editorOf(const QString& field) {
  const QString now = texts_.value(field).toString();
  if (field != qString(OVAddressFieldStreet)) {
    auto* const text = new QLineEdit(now);
    connect(text, &QLineEdit::textChanged, this,
            [this, field](const QString& typed) { texts_.insert(field, typed); });
    return text;
  }
  auto* const text = new QPlainTextEdit(now);
  constexpr int kLines = 3;
  text->setTabChangesFocus(true);
  text->setFixedHeight(text->fontMetrics().lineSpacing() * kLines + 12);
  connect(text, &QPlainTextEdit::textChanged, this,
          [this, field, text] { texts_.insert(field, text->toPlainText()); });
  return text;
}

QVariant AddressEditor::value() const {
  QVariantMap value = texts_;
  value.insert(QStringLiteral("countryCode"), country_->currentData());
  return value;
}

void AddressEditor::setValue(const QVariant& value) {
  texts_ = value.toMap();
  const QString code = texts_.take(QStringLiteral("countryCode")).toString();
  if (country_->findData(code) < 0) country_->addItem(code, code);
  country_->setCurrentIndex(country_->findData(code));
  showFields();
}

}  // namespace ovcontacts
