#include "platform/archive/foundation_forms.h"

#include <optional>

#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/list.h>

#include "platform/archive/archive_keys.h"
#include "platform/archive/class_table.h"
#include "platform/maker.h"

namespace ov::detail {

using Kind = PlistItem::Kind;

namespace {

/// Whether objects of the class have that form, mutable ones included.
bool hasForm(const ArchivedClass& record, const OVClass& form) {
  return record.form == &form || (record.form != nullptr && record.form->superclass == &form);
}

}  // namespace

bool FoundationForms::isList(const ArchivedClass& record) { return hasForm(record, kArrayClass); }

OVRef<OVObject> FoundationForms::make(const ArchivedClass& record, const ArchiveFields& fields) {
  if (record.form == &kDateClass) return kDateClass.make();
  if (isList(record)) {
    if (!fields_.find(fields, archive::kArrayObjects, Kind::array)) return nullptr;
    return Maker::restore<ListObject>(record.form == &kArrayClass);
  }
  if (hasForm(record, kDictionaryClass)) {
    const auto keys = fields_.find(fields, archive::kDictionaryKeys, Kind::array);
    const auto values = fields_.find(fields, archive::kArrayObjects, Kind::array);
    if (!keys || !values || !areTexts(*keys)) return nullptr;
    return Maker::restore<DictionaryObject>(record.form == &kDictionaryClass);
  }
  std::optional<PlistItem> found;
  if (makesLeaves_ && hasForm(record, kTextClass)) {
    found = fields_.find(fields, archive::kStringText, Kind::ascii);
  } else if (makesLeaves_ && hasForm(record, kDataClass)) {
    found = fields_.find(fields, archive::kDataBytes, Kind::data);
  }
  return found ? leaves_.leaf(*found) : nullptr;
}

/// True when every element refers to a text.
bool FoundationForms::areTexts(const PlistItem& array) {
  plist_.charge(4 * array.count);
  for (std::uint64_t i = 0; i < array.count; ++i) {
    if (!isText(objects_.uidOf(plist_.reference(array, i)))) return false;
  }
  return true;
}

/// Whether there is a text, directly or as an object. Builds nothing, so that keys which are
/// dictionaries with keys of their own lead no deeper.
bool FoundationForms::isText(std::uint64_t uid) {
  const PlistItem item = objects_.item(uid);
  if (item.kind != Kind::dictionary) return uid != 0 && PlistReader::isText(item);
  if (!makesLeaves_) return false;
  ArchiveFields fields = fields_.open(item);
  fields.learnKeys();
  return hasForm(fields_.classOf(fields), kTextClass) &&
         fields_.find(fields, archive::kStringText, Kind::ascii).has_value();
}

}  // namespace ov::detail
