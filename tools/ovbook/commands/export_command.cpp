#include <OVAddressBookSDK/property.h>
#include <OVAddressBookSDK/single_value.h>
#include <OVAddressBookVCard/vcard_export.h>

#include "book_file.h"
#include "commands/commands.h"
#include "files.h"
#include "live_books.h"
#include "parser.h"
#include "session.h"
#include "tag_store.h"

namespace ovbook {

namespace {

/// Gives the persons of `book` the tags that the store has for them, in place of their own; persons
/// that it does not know keep theirs.
void takeTags(const OVAddressBookGeneral& book, const OVTagManager& store) {
  const auto property = OVProperty::propertyWithName(OVProPertyTags);
  const auto persons = personsOf(book);
  for (const auto& [ID, person] : persons) {
    const auto tags = tagsOf(store, ID);
    if (person == nullptr || tags.empty()) continue;
    person->setValueByProperty(OVPersonGeneral::singleValueByMacValueProperty(tags, property),
                               property);
  }
}

}  // namespace

void addExportCommand(const Command& ovbook, Session& session) {
  const Command command =
      ovbook.addCommand("export", "Write a book as vCard 4.0 or into a desktop address book");
  command.setFooter("The file is written whole or not at all. \"-o -\" writes to standard output.");
  const Argument path = command.addArgument("BOOK", "The book to read").required();
  const Argument target =
      command.addOption("-o,--output", "FILE", "The vCard file to write; replaced if there is one");
  const Argument liveBook = command.addOption(
      "--to-book", "UID",
      "Add persons that are not there yet to this desktop address book (see \"ovbook books\")");
  const Argument trial = command.addFlag("--dry-run", "Only show whom --to-book would add");
  const Argument store = command.addOption(
      "--tags", "STORE", "Write the tags of this store as the persons' categories");
  command.setAction([=, &session] {
    if (target.isGiven() == liveBook.isGiven()) {
      throw Failure("either -o or --to-book is required (see ovbook export --help)");
    }
    if (target.isGiven()) checkTarget(target.text(), path.text());
    const auto book = openBook(path.text());
    if (store.isGiven()) takeTags(*book, *openTagStore(store.text()));
    if (liveBook.isGiven())
      return session.live().add(*book, liveBook.text(), trial.isGiven(), session);
    writeFile(target.text(), ov::vcard::exportBook(book), session.out());
  });
}

}  // namespace ovbook
