// An editor for each edited form of a datum. The classes here lack Q_OBJECT, so their words are
// looked up as those of `ValueEditor`.

#include "dialogs/value_editor.h"

#include <QtCore/QDate>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDateEdit>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>

#include <array>

#include <OVAddressBookQt/qt_text.h>
#include <OVAddressBookQt/values.h>
#include <OVAddressBookSDK/instant_message.h>

#include "dialogs/address_editor.h"

namespace ovcontacts {

namespace {

class TextEditor final : public ValueEditor {
 public:
  TextEditor(const QString& name, QWidget* parent) : ValueEditor(parent), text_(new QLineEdit) {
    form()->addRow(name, text_);
    setFocusProxy(text_);
  }
  [[nodiscard]] QVariant value() const override { return text_->text(); }
  void setValue(const QVariant& value) override { text_->setText(value.toString()); }

 private:
  QLineEdit* text_;
};

class NoteEditor final : public ValueEditor {
 public:
  explicit NoteEditor(QWidget* parent) : ValueEditor(parent), text_(new QPlainTextEdit) {
    text_->setTabChangesFocus(true);
    form()->addRow(ValueEditor::tr("&Text:"), text_);
    setFocusProxy(text_);
  }
  [[nodiscard]] QVariant value() const override { return text_->toPlainText(); }
  void setValue(const QVariant& value) override { text_->setPlainText(value.toString()); }

 private:
  QPlainTextEdit* text_;
};

class DateEditor final : public ValueEditor {
 public:
  explicit DateEditor(QWidget* parent)
      : ValueEditor(parent),
        date_(new QDateEdit),
        hasYear_(new QCheckBox(ValueEditor::tr("The &year is known"))) {
    date_->setCalendarPopup(true);
    date_->setMinimumDate(QDate(1, 1, 1));
    date_->setDate(QDate(2000, 1, 1));
    hasYear_->setChecked(true);
    form()->addRow(ValueEditor::tr("&Date:"), date_);
    form()->addRow(QString(), hasYear_);
    setFocusProxy(date_);
  }
  [[nodiscard]] QVariant value() const override {
    const QDate date = date_->date();
    return hasYear_->isChecked() ? date : QDate(ov::qt::kNoYear, date.month(), date.day());
  }
  void setValue(const QVariant& value) override {
    const QDate date = value.toDate();
    if (!date.isValid()) return;
    date_->setDate(date);
    hasYear_->setChecked(date.year() != ov::qt::kNoYear);
  }

 private:
  QDateEdit* date_;
  QCheckBox* hasYear_;
};

class NameEditor final : public ValueEditor {
 public:
  explicit NameEditor(QWidget* parent) : ValueEditor(parent) {
    for (QLineEdit*& part : parts_) part = new QLineEdit;
    form()->addRow(ValueEditor::tr("&First name:"), parts_[0]);
    form()->addRow(ValueEditor::tr("&Middle name:"), parts_[1]);
    form()->addRow(ValueEditor::tr("&Last name:"), parts_[2]);
    setFocusProxy(parts_[0]);
  }
  [[nodiscard]] QVariant value() const override {
    return QStringList{parts_[0]->text(), parts_[1]->text(), parts_[2]->text()};
  }
  void setValue(const QVariant& value) override {
    const QStringList texts = value.toStringList();
    for (std::size_t i = 0; i < parts_.size(); ++i) {
      parts_[i]->setText(texts.value(static_cast<qsizetype>(i)));
    }
  }

 private:
  std::array<QLineEdit*, 3> parts_{};
};

class AccountEditor final : public ValueEditor {
 public:
  explicit AccountEditor(QWidget* parent)
      : ValueEditor(parent), user_(new QLineEdit), service_(new QComboBox) {
    for (const auto& each : OVInstantMessageServer::supportServer()) {
      service_->addItem(ov::qt::qString(each->displayName()), ov::qt::qString(each->name()));
    }
    form()->addRow(ValueEditor::tr("&User name:"), user_);
    form()->addRow(ValueEditor::tr("&Service:"), service_);
    setFocusProxy(user_);
  }
  [[nodiscard]] QVariant value() const override {
    return QVariantMap{{QStringLiteral("userName"), user_->text()},
                       {QStringLiteral("service"), service_->currentData()}};
  }
  void setValue(const QVariant& value) override {
    const QVariantMap account = value.toMap();
    user_->setText(account.value(QStringLiteral("userName")).toString());
    const QString service = account.value(QStringLiteral("service")).toString();
    if (service.isEmpty()) return;
    if (service_->findData(service) < 0) service_->addItem(service, service);
    service_->setCurrentIndex(service_->findData(service));
  }

 private:
  QLineEdit* user_;
  QComboBox* service_;
};

}  // namespace

ValueEditor::ValueEditor(QWidget* parent) : QWidget(parent), form_(new QFormLayout(this)) {
  form_->setContentsMargins(0, 0, 0, 0);
}

ValueEditor* ValueEditor::make(OVValueType type, QWidget* parent) {
  switch (type) {
    case OVValueTypeNote:
      return new NoteEditor(parent);
    case OVValueTypeDate:
      return new DateEditor(parent);
    case OVValueTypePersonName:
      return new NameEditor(parent);
    case OVValueTypeAddress:
      return new AddressEditor(parent);
    case OVValueTypeInstantMessage:
      return new AccountEditor(parent);
    case OVValueTypePhone:
      return new TextEditor(ValueEditor::tr("&Number:"), parent);
    case OVValueTypeEmail:
      return new TextEditor(ValueEditor::tr("&Address:"), parent);
    default:
      return new TextEditor(ValueEditor::tr("&Text:"), parent);
  }
}

}  // namespace ovcontacts
