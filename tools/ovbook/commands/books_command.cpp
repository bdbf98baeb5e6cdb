#include "commands/commands.h"
#include "live_books.h"
#include "parser.h"
#include "session.h"

namespace ovbook {

void addBooksCommand(const Command& ovbook, Session& session) {
  const Command command = ovbook.addCommand("books", "List the address books of the desktop");
  command.setFooter(
      "One line a book: UID, name, kind (local, carddav or other), and rw where it may be changed\n"
      "or ro. The default book is marked with a star; with --tsv that is a field of its own, "
      "\"*\"\n"
      "or empty. Needs the package ovbook-live.");
  const Argument tsv = command.addFlag("--tsv", "Fields apart by one tab, for programs");
  command.setAction([=, &session] { session.live().list(tsv.isGiven(), session); });
}

}  // namespace ovbook
