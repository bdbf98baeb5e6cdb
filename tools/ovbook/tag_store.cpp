#include "tag_store.h"

#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "session.h"

namespace ovbook {

OVRef<OVTagManager> openTagStore(const std::string& store) {
  try {
    return OVTagManager::tagManagerWithID(store);
  } catch (const OVInvalidArchive& damage) {
    throw Failure("tag store " + store, damage.what());
  }
}

OVList<OVString> tagsOf(const OVTagManager& tags, const OVString& personID) {
  const auto found = tags.tagsByPersonID(personID);
  return found == nullptr ? OVList<OVString>::list() : found;
}

}  // namespace ovbook
