// Any bytes are a book over cards that saves and exports the same again however often it is read,
// also by way of a block.

#include <algorithm>
#include <cstdint>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_general.h>
#include <OVAddressBookSDK/phone.h>
#include <OVAddressBookVCard/vcard_book.h>
#include <OVAddressBookVCard/vcard_export.h>

#include "fuzz/finding.h"
#include "hosts/snapshot.h"
#include "platform/ascii.h"

namespace {

OVRef<OVVCardBook> bookOf(std::string_view cards) {
  auto book = OVVCardBook::init();
  book->loadWithData(OVData::dataWithText(cards));
  return book;
}

std::string saved(OVVCardBook& book) { return std::string(book.saveData()->text()); }

std::string exported(const OVRef<OVAddressBook>& book) {
  return std::string(ov::vcard::exportBook(book)->text());
}

struct Counts {
  std::size_t persons;
  std::size_t groups;
  bool operator==(const Counts&) const = default;
};

Counts countsOf(const OVAddressBookGeneral& book) {
  return {book.personsDic().size(), book.groupsDic().size()};
}

Counts countsOf(const OVAddressBook& book) { return countsOf(*snapshotOf(book)); }

/// Asks for every value, as a program does that shows the persons.
void lookAtEveryone(const OVAddressBook& book) {
  for (const OVRef<IOVPerson> person : book.allPersons()) {
    for (const OVRef<OVProperty> property : OVProperty::StandardPropertyArray()) {
      static_cast<void>(person->valueByProperty(property));
    }
  }
}

void expectSavedAgain(OVVCardBook& book, const Counts& counts) {
  const std::string cards = saved(book);
  lookAtEveryone(book);
  expectThat(saved(book) == cards, "a book that nobody changed is saved otherwise");
  const auto again = bookOf(cards);
  expectThat(countsOf(*again) == counts, "another number of persons or groups was saved");
  expectThat(saved(*again) == cards, "the second save differs");
}

void expectExportedAgain(const OVRef<OVVCardBook>& book, const Counts& counts) {
  const std::string cards = exported(book);
  const auto again = bookOf(cards);
  expectThat(countsOf(*again) == counts, "another number of persons or groups was exported");
  expectThat(exported(again) == cards, "the second export differs");
}

/// The cards of the book by way of a block.
std::string throughBlock(const OVAddressBook& book, const Counts& counts) {
  const auto block = snapshotOf(book)->saveToData();
  const auto restored =
      ov::cast<OVAddressBookGeneral>(OVAddressBookGeneral::addressBookWithData(block));
  expectThat(restored != nullptr, "the block is not restored");
  expectThat(countsOf(*restored) == counts, "another number of persons or groups was restored");
  return exported(restored);
}

void expectSameThroughBlock(const OVAddressBook& book, const Counts& counts) {
  const std::string cards = throughBlock(book, counts);
  const auto again = bookOf(cards);
  expectThat(countsOf(*again) == counts, "another number of persons or groups came from a block");
  expectThat(throughBlock(*again, counts) == cards, "the second export from a block differs");
}

std::string withPhone(OVVCardBook& book, const OVRef<IOVPerson>& person) {
  const auto old = ov::cast<OVMultipleValue>(person->valueByPropertyName(OVProPertyPhone));
  const auto phones = old == nullptr ? OVMutableMultipleValue::init()
                                     : ov::cast<OVMutableMultipleValue>(old->mutableCopy());
  phones->addValue(OVPersonGeneral::singleValueByMacValueLabelType(
      OVObjectPhone::initWithPhoneNumber("+1 555 0100"), nullptr, OVValueTypePhone));
  person->setValueByPropertyName(phones, OVProPertyPhone);
  return saved(book);
}

std::vector<std::string> linesOf(std::string text) {
  std::ranges::replace(text, '\r', '\n');
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(std::move(line));
  return lines;
}

/// A card that says no ID gets one with the first change, in this line if it is there.
bool isEmptyID(std::string_view line) {
  const std::size_t end = line.find(':');
  if (line.find_first_not_of(" \t", end == line.npos ? 0 : end + 1) != line.npos) return false;
  const std::string name = ov::asciiUpper(line.substr(0, line.find_first_of(";:")));
  return name == "UID" || name.ends_with(".UID");
}

/// One phone more leaves every line where it was.
void expectOthersKept(OVVCardBook& book) {
  if (book.allPersonsCount() == 0) return;
  std::vector<std::string> before = linesOf(saved(book));
  std::erase_if(before, isEmptyID);
  auto next = before.begin();
  for (const std::string& line : linesOf(withPhone(book, book.allPersons().front()))) {
    if (next != before.end() && *next == line) ++next;
  }
  expectThat(next == before.end(), "a phone more changes other lines");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto book = bookOf({reinterpret_cast<const char*>(data), size});
  const Counts counts = countsOf(*book);
  expectSavedAgain(*book, counts);
  expectExportedAgain(book, counts);
  expectSameThroughBlock(*book, counts);
  expectOthersKept(*book);
  return 0;
}
