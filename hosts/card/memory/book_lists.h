#pragma once

#include <cstdint>

#include <OVAddressBookSDK/group.h>
#include <OVAddressBookSDK/list.h>
#include <OVAddressBookSDK/person.h>
#include <OVAddressBookSDK/property.h>

#include "store.h"

namespace ov::card {

/// What a book over cards shows of its store. All lists are new ones.
/// @{
[[nodiscard]] OVList<IOVPerson> allPersons(const Store& store);
/// In the order of the IDs; unknown ones are passed over. Empty for null.
[[nodiscard]] OVList<IOVPerson> personsForIDs(const Store& store, const OVList<OVString>& ids);
/// Those that are inside no other.
[[nodiscard]] OVList<IOVGroup> rootGroups(const Store& store);
[[nodiscard]] std::uint64_t rootGroupsCount(const Store& store);
/// Null when there is none.
[[nodiscard]] OVRef<IOVGroup> groupByID(const Store& store, const OVString& id);
/// Those of the list that are in the store.
[[nodiscard]] std::unordered_set<const Person*> personsIn(const Store& store,
                                                          const OVList<IOVPerson>& persons);
/// @}

/// Makes room for so many persons more. A count from outside costs little memory at most.
void makeRoom(Store& store, std::int64_t count);

/// What most cards fill.
[[nodiscard]] OVList<OVProperty> commonProperties();

}  // namespace ov::card
