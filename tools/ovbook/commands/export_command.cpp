#include <CLI/CLI.hpp>

#include <OVAddressBookSDK/property.h>
#include <OVAddressBookSDK/single_value.h>
#include <OVAddressBookVCard/vcard_export.h>

#include "arguments.h"
#include "book_file.h"
#include "commands/commands.h"
#include "files.h"
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

void addExportCommand(CLI::App& ovbook, Session& /*session*/) {
  CLI::App* command = ovbook.add_subcommand("export", "Write a book as vCards 4.0");
  command->footer("The file is written whole or not at all.");
  const auto* path = addArgument(*command, "BOOK", "The book to read")->required();
  const auto* target = addOption(*command, "-o,--output", "FILE",
                                 "The vCard file to write; replaced if there is one")
                           ->required();
  const auto* store = addOption(*command, "--tags", "STORE",
                                "Write the tags of this store as the persons' categories");
  command->callback([=] {
    checkTarget(textOf(*target), textOf(*path));
    const auto book = openBook(textOf(*path));
    if (store->count() > 0) takeTags(*book, *openTagStore(textOf(*store)));
    writeFile(textOf(*target), ov::vcard::exportBook(book));
  });
}

}  // namespace ovbook
