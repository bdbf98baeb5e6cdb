#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <OVAddressBookSDK/address_book.h>

/// The book as it is exported from the block of its snapshot.
std::string throughBlock(const OVAddressBook& book);

/// The unfolded lines of a text of cards, without those that frame a card.
std::vector<std::string> linesIn(std::string text);

/// The lines of the only card in a book, after the way through a block. What is exported a second
/// time must be the same.
std::vector<std::string> linesAfterBlock(const std::string& lines,
                                         std::string_view version = "4.0");
