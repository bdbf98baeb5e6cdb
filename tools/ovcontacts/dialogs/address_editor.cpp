#include "dialogs/address_editor.h"

#include <QtWidgets/QComboBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLineEdit>

#include <algorithm>

#include <OVAddressBookQt/qt_text.h>
#include <OVAddressBookQt/values.h>
#include <OVAddressBookSDK/address.h>
#include <OVAddressBookSDK/address_formater.h>
#include <OVAddressBookSDK/country.h>

#include "shown/words.h"

namespace ovcontacts {

using ov::qt::qString;

AddressEditor::AddressEditor(QWidget* parent)
    : ValueEditor(parent), country_(new QComboBox), form_(new QFormLayout(this)) {
  form_->setContentsMargins(0, 0, 0, 0);
  country_->addItem(tr("(not known)"), QString());
  for (const auto& country : OVCountry::allCountry()) {
    country_->addItem(qString(country->name()), qString(country->code()));
  }
  country_->setCurrentIndex(std::max(0, country_->findData(qString(ov::qt::userCountryCode()))));
  form_->addRow(tr("&Layout of:"), country_);
  showFields();
  connect(country_, &QComboBox::currentIndexChanged, this, &AddressEditor::showFields);
}

void AddressEditor::showFields() {
  while (form_->rowCount() > 1) form_->removeRow(1);
  const QString chosen = country_->currentData().toString();
  const OVString code = chosen.isEmpty() ? ov::qt::userCountryCode() : ov::qt::ovString(chosen);
  for (const auto& field : OVAddressFormater::fieldArrayByCountryCode(code)) {
    const QString name = qString(OVObjectAddress::standFieldName(field->name()));
    auto* const text = new QLineEdit(texts_.value(name).toString());
    form_->addRow(translated(qString(field->displayName())) + QLatin1Char(':'), text);
    connect(text, &QLineEdit::textChanged, this,
            [this, name](const QString& now) { texts_.insert(name, now); });
    if (focusProxy() == nullptr || form_->rowCount() == 2) setFocusProxy(text);
  }
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
