#pragma once

#include <string>
#include <vector>

#include <OVAddressBookSDK/data.h>

/// The property list in `block` as a text, for tests that show a layout. Dictionaries are
/// `{key: value}`, arrays `[]`, sets `()`, UIDs `#1`, data `<00ff>`, dates `@0`; truth values are
/// `true` and `false`, texts are quoted, and reals always have a point.
std::string plistText(const OVRef<OVData>& block);

/// The entries of "$objects" of a keyed archive, each as such a text.
std::vector<std::string> archivedObjects(const OVRef<OVData>& block);
