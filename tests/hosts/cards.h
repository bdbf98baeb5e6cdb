#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <OVAddressBookSDK/person.h>
#include <OVAddressBookVCard/vcard_book.h>

#include "support/cards/card_text.h"

/// A new book of the cards in `text`.
OVRef<OVVCardBook> bookOf(std::string_view text);

/// The person of a card. The test fails when the card is not read without a problem.
OVRef<IOVPerson> person(std::string_view lines, std::string_view version = "4.0");

/// The only person of the book; null when there is none or are more.
OVRef<IOVPerson> onlyPerson(const OVVCardBook& book);

/// The IDs of persons, in order.
std::vector<std::string> idsOf(const OVList<IOVPerson>& persons);

/// What a property holds: "label name|display name: datum" of each entry, a "*" in front of the
/// main one, or the datum alone of a single value. Of "Other" without the odd lines.
std::vector<std::string> entries(const IOVPerson& person, const OVString& property);
/// The only entry; a note in brackets when there is none or are more.
std::string entry(const IOVPerson& person, const OVString& property);

/// The lines of the card that the person keeps because its values do not tell them, unfolded.
std::vector<std::string> oddLines(const IOVPerson& person);

/// A datum of any class as text.
std::string datumText(const OVRef<OVObject>& datum);

/// ID and all properties of a person, or of a whole book, groups included.
std::string description(const IOVPerson& person);
std::string description(const OVAddressBook& book);

/// The lines of the person's card as a book writes it, unfolded, without BEGIN, VERSION, UID, END.
std::vector<std::string> writtenLines(const OVRef<IOVPerson>& person);

/// "line: reason" of each problem.
std::vector<std::string> problems(const OVVCardBook& book);
