// How values are changed: a changed copy of the property's value takes its place, so that undoing
// can bring the old one back. A row is read-only where the copy would lose something.

#include <OVAddressBookQt/person_sheet.h>

#include <algorithm>

#include <OVAddressBookQt/qt_text.h>
#include <OVAddressBookQt/values.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_general.h>

using ov::qt::ovString;

namespace {

OVRef<OVLabel> labelNamed(const QString& text) {
  if (text.isEmpty()) return nullptr;
  auto label = OVLabel::init();
  const OVString shown = ovString(text);
  label->setName(shown);
  label->setDisplayName(shown);
  return label;
}

/// A copy that has everything; null where something would be lost.
OVRef<OVMutableMultipleValue> wholeCopy(const OVRef<OVValue>& value) {
  const auto several = ov::cast<OVMultipleValue>(value);
  if (several == nullptr) return nullptr;
  auto copy = several->mutableCopy();
  return copy->count() == several->count() ? copy : nullptr;
}

OVValueType typeOf(const OVProperty& property) {
  return property.valueType() == OVValueTypeMultiple ? property.subValueType()
                                                     : property.valueType();
}

}  // namespace

bool OVPersonSheet::canChange(const Row& row) const {
  if (book_ == nullptr || !book_->canChange() || row.property->name() == OVProPertyTags) {
    return false;
  }
  const auto value = person_->valueByProperty(row.property);
  const bool isWhole = ov::cast<OVMultipleValue>(value) == nullptr || wholeCopy(value) != nullptr;
  return isWhole && ov::qt::editedFormOf(row.entry->value()).isValid();
}

bool OVPersonSheet::replace(const Row& row, const OVRef<OVSingleValue>& entry) {
  const auto value = person_->valueByProperty(row.property);
  const auto several = ov::cast<OVMultipleValue>(value);
  if (several == nullptr) return book_->setValue(person_, row.property->name(), entry);
  const auto copy = wholeCopy(value);
  if (copy == nullptr) return false;
  const std::uint64_t at = several->indexOfValue(row.entry);
  entry == nullptr ? copy->removeValueAtIndex(at) : copy->replaceValueForIndex(entry, at);
  return book_->setValue(person_, row.property->name(), copy->count() == 0 ? nullptr : copy);
}

bool OVPersonSheet::makeMain(const Row& row) {
  const auto value = person_->valueByProperty(row.property);
  const auto copy = wholeCopy(value);
  if (copy == nullptr) return false;
  const auto several = ov::cast<OVMultipleValue>(value);
  copy->setMainValue(copy->valueAtIndex(several->indexOfValue(row.entry)));
  return book_->setValue(person_, row.property->name(), copy);
}

bool OVPersonSheet::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return false;
  const Row row = rows_[static_cast<std::size_t>(index.row())];
  if (!canChange(row)) return false;
  const auto entry = row.entry->mutableCopy();
  switch (role) {
    case Qt::EditRole: {
      const auto datum = ov::qt::datumOf(value, typeOf(*row.property));
      if (datum == nullptr) return replace(row, nullptr);
      if (ov::qt::editedFormOf(datum) == ov::qt::editedFormOf(entry->value())) return true;
      entry->setValue(datum);
      return replace(row, entry);
    }
    case LabelRole:
      if (row.property->valueType() != OVValueTypeMultiple) return false;
      if (value.toString() == labelOf(row)) return true;
      entry->setLabel(labelNamed(value.toString().trimmed()));
      return replace(row, entry);
    case MainRole:
      return value.toBool() && (isMain(row) || makeMain(row));
    default:
      return false;
  }
}

bool OVPersonSheet::removeRows(int row, int count, const QModelIndex& parent) {
  if (parent.isValid() || row < 0 || count < 1 || row + count > rowCount()) return false;
  const std::vector<Row> leaving(rows_.begin() + row, rows_.begin() + row + count);
  const bool canAll = std::all_of(leaving.begin(), leaving.end(),
                                  [this](const Row& each) { return canChange(each); });
  return canAll && std::all_of(leaving.begin(), leaving.end(),
                               [this](const Row& each) { return replace(each, nullptr); });
}

int OVPersonSheet::addValue(const QString& property, const QString& label, const QVariant& edited) {
  const auto known = OVProperty::propertyWithName(ovString(property));
  if (known == nullptr || person_ == nullptr || book_ == nullptr) return -1;
  const auto datum = ov::qt::datumOf(edited, typeOf(*known));
  const bool maySeveral = known->valueType() == OVValueTypeMultiple;
  OVRef<OVSingleValue> entry;
  if (maySeveral) {
    const auto shown = label.isEmpty() ? ov::qt::qString(known->displayName()) : label;
    entry =
        OVPersonGeneral::singleValueByMacValueLabelType(datum, labelNamed(shown), typeOf(*known));
  } else {
    entry = OVPersonGeneral::singleValueByMacValueProperty(datum, known);
  }
  if (entry == nullptr) return -1;
  OVRef<OVValue> value = entry;
  if (maySeveral) {
    const auto before = person_->valueByProperty(known);
    const auto several = before == nullptr ? OVMutableMultipleValue::init() : wholeCopy(before);
    if (several == nullptr) return -1;
    several->addValue(entry);
    value = several;
  }
  if (!book_->setValue(person_, known->name(), value)) return -1;
  const auto at = std::find_if(rows_.rbegin(), rows_.rend(),
                               [&](const Row& row) { return row.entry == entry; });
  return static_cast<int>(rows_.rend() - at) - 1;
}
