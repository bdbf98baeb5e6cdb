#pragma once

#include <OVAddressBookSDK/object.h>

#include "platform/services/sqlite.h"

namespace ov {

/// True for an object of a class that the user defaults can hold.
[[nodiscard]] bool isStorable(const OVObject& object);

/// Binds a storable object: its kind to one parameter, its value to the next. The object must live
/// until the statement has been stepped.
void bindStored(sqlite::Statement& statement, int parameter, const OVRef<OVObject>& object);

/// The object of the kind in one column and the value in the next; null for a kind that is not
/// known here.
[[nodiscard]] OVRef<OVObject> storedAt(const sqlite::Statement& row, int column);

}  // namespace ov
