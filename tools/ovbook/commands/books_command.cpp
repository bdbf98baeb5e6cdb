#include "commands/commands.h"
#include "live_books.h"
#include "parser.h"
#include "session.h"

namespace ovbook {

void addBooksCommand(const Command& ovbook, Session& session) {
  const Command command = ovbook.addCommand("books", "List the desktop's address books");
  command.setFooter(
      "One line per book: UID, name, kind (local, carddav or other), and rw, or ro when it is\n"
      "read-only. The default book is marked with a star; with --tsv the mark is a field of its\n"
      "own, \"*\" or empty. Needs the package ovbook-live.");
  const Argument tsv = command.addFlag("--tsv", "Separate fields by tabs, for programs");
  command.setAction([=, &session] { session.live().list(tsv.isGiven(), session); });
}

}  // namespace ovbook
