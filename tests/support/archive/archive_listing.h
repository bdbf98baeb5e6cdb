#pragma once

#include <string>

#include <OVAddressBookSDK/object.h>

/// A graph of objects as plain text, for comparison with what other programs find in its archive.
///
/// Objects are numbered in the order in which they are met, so that sharing shows: `#2.label = #3`.
/// An object's fields are sorted by key; null fields are left out. Texts, numbers and data are
/// where they are referred to. tests/support/archive/keyed_archive_reader.py prints the same of an
/// archive.
std::string archiveListing(const OVRef<OVObject>& root);
