#pragma once

#include <OVAddressBookSDK/data.h>
#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/person_general.h>

namespace ov {

/// The persons of the general book in a data block, by their IDs, with no more than lists of
/// persons show and search: what `headingOf`, `OVPersonSorter` and `OVPersonMatcher` read. Takes
/// less time than restoring the book.
///
/// They are to be looked at. Archiving one throws `std::invalid_argument`, since the rest of the
/// person would be lost; a copy in another book has no more than they. A host's own classes are
/// read whole.
///
/// Null when the block's root is not a book, or the book has no persons. Throws `OVInvalidArchive`
/// for a block that is not an archive, and for null; damage in what is not read stays unnoticed.
///
/// \code
/// auto book = OVAddressBookGeneral::init();
/// auto mira = OVPersonGeneral::initWithID("mira-1");
/// mira->setValueByPropertyName(ov::labelled(OVString("Halonen Ltd"), "work", OVValueTypeString),
///                              OVProPertyCompany);
/// book->addPerson(mira);
/// for (const auto& [ID, person] : ov::personsToList(book->saveToData()))
///   std::cout << ov::headingOf(*person).main << "\n";  // Halonen Ltd
/// \endcode
[[nodiscard]] OV_EXPORT OVDictionary<const OVPersonGeneral> personsToList(
    const OVRef<OVData>& data);

}  // namespace ov
