#pragma once

#include <string>
#include <vector>

#include <OVAddressBookSDK/data.h>

/// The property list in `block` as a text, which shows its layout to people and loses no value.
/// Dictionaries are `{key: value}`, arrays `[]`, sets `()`, UIDs `#1`, data `<00ff>`, dates `@0.0`;
/// truth values are `true` and `false`, reals always have a point or an exponent. Texts are quoted
/// as in JSON, keys where they are more than letters, digits, `$`, `_` and `.`; before the quotes
/// is a `?` when lone surrogates were replaced.
///
/// Throws `OVInvalidArchive` for a list that is damaged, holds itself, or would take very long to
/// write down.
std::string plistText(const OVRef<OVData>& block);

/// The entries of "$objects" of a keyed archive, each as such a text.
std::vector<std::string> archivedObjects(const OVRef<OVData>& block);
