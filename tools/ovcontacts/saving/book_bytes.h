#pragma once

#include <QtCore/QString>

#include <OVAddressBookSDK/address_book.h>
#include <OVAddressBookSDK/data.h>

#include "loading/book_source.h"

namespace ovcontacts {

/// What the name of a file says: vCards (".vcf", ".vcard"), else a data block.
[[nodiscard]] Format formatOf(const QString& path);

/// The book as the bytes of a file, `Format::Block` or `Format::Cards`. A book over vCards keeps
/// its cards as they are.
[[nodiscard]] OVRef<OVData> bytesOf(const OVRef<OVAddressBook>& book, Format format);

}  // namespace ovcontacts
