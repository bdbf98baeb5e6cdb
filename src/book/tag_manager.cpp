// Two dictionaries of lists, tag to persons and person to tags, kept in step: each step of a change
// is undone when a later one fails. Every change saves, unless a batch is open.

#include <OVAddressBookSDK/tag_manager.h>

#include <exception>
#include <string_view>
#include <utility>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>
#include <OVAddressBookSDK/log.h>
#include <OVAddressBookSDK/user_defaults.h>

#include "book/tag_addition.h"
#include "platform/maker.h"
#include "platform/owned.h"

namespace {

constexpr std::string_view kTagsKey = "TagsKey";
constexpr std::string_view kTagKeyDicKey = "TagsDicKey";
constexpr std::string_view kPersonIDDicKey = "PersonDicKey";

using ov::detail::TagAddition;
using ov::detail::TagIndex;
using Texts = OVList<OVString>;
using TextsByText = OVDictionary<Texts>;

void removeKey(const OVString& key, const TextsByText& dictionary) {
  if (dictionary != nullptr) dictionary.erase(key);
}

// True when a list without this text is left.
bool removeFromList(const OVString& text, const OVString& key, const TextsByText& dictionary,
                    TagIndex& index) {
  const auto list = dictionary[key];
  index.remove(list, text);
  if (list != nullptr && !list.empty()) return true;
  removeKey(key, dictionary);
  return false;
}

void logUnsaved(const OVString& tagID, const char* why) noexcept {
  try {
    OVLog::sharedLog()->log("Tags \"" + tagID.str() + "\" were not saved: " + why);
  } catch (...) {  // NOLINT(bugprone-empty-catch): there is no way to report it
  }
}

OVRef<OVObject> objectIn(const OVRef<OVObject>& stored, const OVString& tagID) {
  const auto data = ov::cast<OVData>(stored);
  if (data == nullptr)
    throw OVInvalidArchive("The user defaults hold no data block under \"" + tagID.str() + "\"");
  try {
    return OVKeyedUnarchiver::unarchiveObjectWithData(data);
  } catch (const OVInvalidArchive& error) {
    throw OVInvalidArchive("The tag store \"" + tagID.str() + "\" is damaged: " + error.what());
  }
}

}  // namespace

OVRef<OVTagManager> OVTagManager::tagManagerWithID(const OVString& tagID) {
  if (tagID.isNull()) return nullptr;
  OVRef<OVTagManager> manager;
  if (const auto stored = OVUserDefaults::standardUserDefaults()->objectForKey(tagID)) {
    const auto root = objectIn(stored, tagID);
    manager = ov::cast<OVTagManager>(root);
    if (manager == nullptr && root != nullptr) {
      throw OVInvalidArchive("The archive under \"" + tagID.str() +
                             "\" holds something other than tags");
    }
  }
  if (manager == nullptr) manager = init();
  manager->makeMutable();
  manager->setTagID(tagID);
  return manager;
}

OVRef<OVTagManager> OVTagManager::init() { return ov::detail::Maker::make<OVTagManager>(); }

OVTagManager::OVTagManager()
    : tags_(Texts::list()),
      tagKeyDic_(TextsByText::dictionary()),
      personIDDic_(TextsByText::dictionary()),
      index_(std::make_shared<TagIndex>()) {}

void OVTagManager::save() {
  if (batches_ != 0) {
    isSaveDue_ = true;
    return;
  }
  const OVString key = tagID();
  if (key.isNull()) return;
  OVUserDefaults::standardUserDefaults()->setObjectForKey(
      OVKeyedArchiver::archivedDataWithRootObject(ov::detail::owned(*this, "OVTagManager")), key);
}

OVTagManager::Batch::Batch(OVRef<OVTagManager> manager) : manager_(std::move(manager)) {
  if (manager_ != nullptr) ++manager_->batches_;
}

OVTagManager::Batch::~Batch() {
  const OVString tagID = manager_ == nullptr ? OVString() : manager_->tagID();
  try {
    end();
  } catch (const std::exception& error) {
    logUnsaved(tagID, error.what());
  } catch (...) {
    logUnsaved(tagID, "the user defaults threw something that is not a std::exception");
  }
}

void OVTagManager::Batch::end() {
  const auto manager = std::exchange(manager_, nullptr);
  if (manager == nullptr || --manager->batches_ != 0) return;
  if (std::exchange(manager->isSaveDue_, false)) manager->save();
}

std::uint64_t OVTagManager::count() const { return tags().size(); }

OVString OVTagManager::tagAtIndex(std::uint64_t index) const {
  return index < count() ? tags()[static_cast<std::size_t>(index)] : OVString();
}

Texts OVTagManager::personIDsByTag(const OVStringView& tag) const { return tagKeyDic()[tag]; }

Texts OVTagManager::tagsByPersonID(const OVStringView& personID) const {
  return personIDDic()[personID];
}

void OVTagManager::addPersonIDForTag(const OVString& personID, const OVString& tag) {
  if (personID.isNull() || tag.isNull()) return;
  {
    // All three or none, also when memory runs out.
    TagAddition toTags(tag, tags(), *index_);
    TagAddition toPersonIDs(personID, tag, tagKeyDic(), *index_);
    TagAddition toTagsOfPerson(tag, personID, personIDDic(), *index_);
    for (TagAddition* each : {&toTags, &toPersonIDs, &toTagsOfPerson}) each->keep();
  }
  save();
}

void OVTagManager::removePersonIDFromTag(const OVString& personID, const OVString& tag) {
  if (personID.isNull() || tag.isNull()) return;
  if (!removeFromList(personID, tag, tagKeyDic(), *index_)) index_->remove(tags(), tag);
  removeFromList(tag, personID, personIDDic(), *index_);
  save();
}

void OVTagManager::removeForPersonID(const OVString& personID) {
  if (personID.isNull()) return;
  // The removals change the person's list, so they walk a copy.
  if (const auto list = tagsByPersonID(personID)) {
    const auto tags = list.copy();
    for (const OVString& tag : tags) removePersonIDFromTag(personID, tag);
  }
  save();
}

void OVTagManager::removeTag(const OVString& tag) {
  if (!tag.isNull()) {
    index_->remove(tags(), tag);
    if (const auto list = personIDsByTag(tag)) {
      const auto personIDs = list.copy();
      for (const OVString& personID : personIDs) index_->remove(tagsByPersonID(personID), tag);
    }
    removeKey(tag, tagKeyDic());
  }
  // A null tag writes the store all the same.
  save();
}

void OVTagManager::setTagsForPersonID(const Texts& tags, const OVString& personID) {
  if (tags == nullptr || personID.isNull()) return;
  removeForPersonID(personID);
  // The caller's list may be one of ours, which the additions change.
  const auto added = tags.copy();
  for (const OVString& tag : added) addPersonIDForTag(personID, tag);
  save();
}

// Other programs must be able to change what they read, even where an immutable list got in.
void OVTagManager::makeMutable() {
  const auto markMutable = [](const OVRef<OVObject>& object) {
    if (auto* list = dynamic_cast<ov::detail::ListObject*>(object.get())) list->immutable = false;
    if (auto* dictionary = dynamic_cast<ov::detail::DictionaryObject*>(object.get())) {
      dictionary->immutable = false;
    }
  };
  markMutable(tags());
  for (const auto& dictionary : {tagKeyDic(), personIDDic()}) {
    markMutable(dictionary);
    for (const auto& [key, list] : dictionary) markMutable(list);
  }
}

const OVClass& OVTagManager::archivedClass() {
  static constexpr OVClass record{"OVTagManager", nullptr, &ov::detail::Maker::empty<OVTagManager>};
  return record;
}

const OVClass* OVTagManager::classForCoder() const { return &archivedClass(); }

void OVTagManager::encodeWithCoder(OVKeyedArchiver& coder) const {
  coder.encodeObjectForKey(tags_, kTagsKey);
  coder.encodeObjectForKey(tagKeyDic_, kTagKeyDicKey);
  coder.encodeObjectForKey(personIDDic_, kPersonIDDicKey);
}

void OVTagManager::initWithCoder(OVKeyedUnarchiver& coder) {
  tags_ = coder.decodeObjectForKey(kTagsKey);
  tagKeyDic_ = coder.decodeObjectForKey(kTagKeyDicKey);
  personIDDic_ = coder.decodeObjectForKey(kPersonIDDicKey);
}
