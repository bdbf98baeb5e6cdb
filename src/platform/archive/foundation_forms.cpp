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

bool isTextClass(std::string_view name) {
  return name == kTextClass.name || name == "NSMutableString";
}

}  // namespace

bool FoundationForms::isList(std::string_view className) {
  return className == kMutableArrayClass.name || className == kArrayClass.name;
}

OVRef<OVObject> FoundationForms::make(std::string_view className, const ArchiveFields& fields) {
  if (className == kDateClass.name) return kDateClass.make();
  if (isList(className)) {
    if (!fields_.find(fields, archive::kArrayObjects, Kind::array)) return nullptr;
    return Maker::restore<ListObject>(className == kArrayClass.name);
  }
  const bool isImmutable = className == kDictionaryClass.name;
  if (isImmutable || className == kMutableDictionaryClass.name) {
    const auto keys = fields_.find(fields, archive::kDictionaryKeys, Kind::array);
    const auto values = fields_.find(fields, archive::kArrayObjects, Kind::array);
    if (!keys || !values || !areTexts(*keys)) return nullptr;
    return Maker::restore<DictionaryObject>(isImmutable);
  }
  return makesLeaves_ ? makeLeaf(className, fields) : nullptr;
}

OVRef<OVObject> FoundationForms::makeLeaf(std::string_view className, const ArchiveFields& fields) {
  std::optional<PlistItem> found;
  if (isTextClass(className)) {
    found = fields_.find(fields, archive::kStringText, Kind::ascii);
  } else if (className == kDataClass.name || className == "NSMutableData") {
    found = fields_.find(fields, archive::kDataBytes, Kind::data);
  }
  return found ? leaves_.leaf(*found) : nullptr;
}

/// True when every element refers to a text.
bool FoundationForms::areTexts(const PlistItem& array) {
  plist_.charge(array.count);
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
  return isTextClass(fields_.classOf(fields).name) &&
         fields_.find(fields, archive::kStringText, Kind::ascii).has_value();
}

}  // namespace ov::detail
