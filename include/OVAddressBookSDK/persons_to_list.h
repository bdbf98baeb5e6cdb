#pragma once

#include <OVAddressBookSDK/data.h>
#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/person_general.h>

namespace ov {

/// The persons of the general book in a data block, by their IDs and in the book's order, with no
/// more than lists of persons show and search: their IDs, and the values that `headingOf`,
/// `OVPersonSorter` and `OVPersonMatcher` look at. Takes less time than restoring the book. The
/// block is not needed afterwards.
///
/// They are to be looked at: archiving one, or adding it to a general book, throws
/// `std::invalid_argument`, since the rest of the person would be lost. An ID may lead to null,
/// where the block has something else than a person. Objects of a host's own classes are read
/// whole.
///
/// Null when the block's root is not a book, or the book has no dictionary of persons. Throws
/// `OVInvalidArchive` for a block that is not an archive, or is damaged in what is read of it, and
/// for null; other damage stays unnoticed. Any thread may call it.
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
