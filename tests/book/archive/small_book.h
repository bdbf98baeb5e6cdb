#pragma once

#include <OVAddressBookSDK/address_book_general.h>

/// A book with a value of every type, a shared label, a shared person, an object of an unknown
/// class, null fields and a group. Small enough to damage in every way.
OVRef<OVAddressBookGeneral> smallBook();

/// The book read back from the block; null when it holds none.
OVRef<OVAddressBookGeneral> bookIn(const OVRef<OVData>& block);

/// The datum of the person's value under the name.
OVRef<OVObject> datumOf(const OVRef<OVPersonGeneral>& person, const OVString& name);
