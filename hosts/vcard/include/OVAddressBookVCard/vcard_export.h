#pragma once

#include <system_error>

#include <OVAddressBookSDK/address_book.h>
#include <OVAddressBookSDK/data.h>
#include <OVAddressBookSDK/text.h>

namespace ov::vcard {

/// The persons and groups of any book as vCards 4.0 in UTF-8: the persons in the book's order, then
/// the groups from the roots down, each once. Null for null.
///
/// Of a general book the content of its dictionaries is written, of any other book `allPersons` and
/// everything below `rootGroups`. Reading the cards again gives the same IDs, properties, labels,
/// data and main values. What a card cannot say is left out: values under names outside the
/// standard catalogue, data of another class than their property's, dates outside the years 1 to
/// 9999 and fractions of seconds, kinds of line break, which of the lines kept in "Other" is the
/// main one. "Is Organization" comes back as "true" or not at all.
[[nodiscard]] OVRef<OVData> exportBook(const OVRef<OVAddressBook>& book);

/// Lets blocks that are read from now on bring back all lines of group cards, so that `exportBook`
/// writes them. Every `OVVCardBook` does so; a program that only exports blocks calls this before
/// it reads one. May be called repeatedly, and from any thread.
void registerClasses();

/// Writes the bytes to the file at `path`, whole or not at all: to a temporary file beside it,
/// which is flushed to the disk and then renamed. An existing file keeps its mode; a symbolic link
/// is kept, and its target replaced. Null data writes an empty file.
[[nodiscard]] std::error_code writeFile(const OVString& path, const OVRef<OVData>& data);

}  // namespace ov::vcard
