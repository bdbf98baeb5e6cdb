// Cards or a desktop book become one block. The snapshot shares the values of the cards' persons,
// so the cards are released before the block is written.

#include <algorithm>
#include <filesystem>
#include <numeric>
#include <optional>
#include <ostream>
#include <utility>
#include <vector>

#include <unistd.h>

#include <OVAddressBookSDK/address_book_general.h>
#include <OVAddressBookVCard/vcard_book.h>

#include "commands/commands.h"
#include "files.h"
#include "live_books.h"
#include "messages.h"
#include "output/escape.h"
#include "output/progress_bar.h"
#include "parser.h"
#include "preferences.h"
#include "session.h"
#include "snapshot.h"
#include "tag_store.h"

namespace ovbook {

namespace {

std::uint64_t sizeOf(const std::string& path) {
  std::error_code unknown;
  const std::uintmax_t size = std::filesystem::file_size(path, unknown);
  return unknown ? 0 : size;
}

std::uint64_t sizeOfAll(const std::vector<std::string>& paths) {
  return std::transform_reduce(paths.begin(), paths.end(), std::uint64_t{0}, std::plus<>(), sizeOf);
}

OVRef<OVVCardBook> readCards(const std::vector<std::string>& paths, Session& session) {
  auto book = OVVCardBook::init();
  std::optional<ProgressBar> bar;
  if (isatty(STDERR_FILENO) != 0) bar.emplace(session.err(), "Reading");
  const std::uint64_t total = sizeOfAll(paths);
  std::uint64_t before = 0;
  for (const std::string& path : paths) {
    const std::error_code error = book->addFile(path, [&](std::uint64_t read, std::uint64_t) {
      if (bar) bar->show(before + read, total);
    });
    if (error) throw Failure(path, error.message());
    before += sizeOf(path);
  }
  return book;
}

/// Gives the persons of `book` the tags that their cards name, in place of those they had; persons
/// without tags keep theirs.
void tagPersons(const OVRef<OVTagManager>& tags, const OVAddressBook& book) {
  OVTagManager::Batch batch(tags);
  const auto persons = book.allPersons();
  for (const auto& person : persons) {
    const auto given = person->tagArray();
    const auto present = tags->tagsByPersonID(person->ID());
    if (given.empty() || std::equal(given.begin(), given.end(), present.begin(), present.end())) {
      continue;
    }
    tags->setTagsForPersonID(given, person->ID());
  }
  batch.end();
  requireStoredPreferences("the tags");
}

std::string counted(std::size_t count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

/// Files from which nothing at all was imported are not vCard files.
void requireCards(const OVVCardBook& book, const std::vector<std::string>& files) {
  if (book.allPersonsCount() > 0 || book.rootGroupsCount() > 0) return;
  const std::string end = "; nothing could be imported";
  const std::vector<OVVCardProblem> problems = book.problems();
  const auto first = std::find_if(problems.begin(), problems.end(), isLoss);
  if (first != problems.end()) throw Failure(placeOf(*first), first->reason.str() + end);
  throw Failure(files.front(),
                (files.size() == 1 ? "contains no card"
                                   : "contains no card, and neither do the other files") +
                    end);
}

struct Import {
  std::vector<std::string> files;
  std::string liveBook;  // "" for none
  std::string target;
  std::string store;  // "" for none
  bool showsAllMessages;

  void run(Session& session) const {
    if (files.empty() == liveBook.empty()) {
      throw Failure(files.empty() ? "FILE is required (see ovbook import --help)"
                                  : "--from-book excludes FILE (see ovbook import --help)");
    }
    checkNoTerminal(target);
    liveBook.empty() ? importFiles(session) : importBook(session);
  }

  void importBook(Session& session) const {
    checkTarget(target, "");
    const auto live = session.live().read(liveBook, session);
    const auto tags = store.empty() ? nullptr : openTagStore(store);
    const auto book = snapshotOf(live);
    write(*book, session);
    if (tags != nullptr) tagPersons(tags, *live);
  }

  void importFiles(Session& session) const {
    for (const std::string& file : files) {
      checkPath(file);
      checkTarget(target, file);
    }
    auto cards = readCards(files, session);
    requireCards(*cards, files);
    report(cards->problems(), showsAllMessages, session);
    const auto tags = store.empty() ? nullptr : openTagStore(store);
    const auto tagged = tags == nullptr ? nullptr : cards;
    const auto book = snapshotOf(std::move(cards));
    write(*book, session);
    if (tagged != nullptr) tagPersons(tags, *tagged);
  }

  void write(OVAddressBookGeneral& book, Session& session) const {
    const auto data = book.saveToData();
    writeFile(target, data, session.out());
    const std::string summary = counted(book.personsDic().size(), "person") + ", " +
                                counted(book.groupsDic().size(), "group") + ", " +
                                counted(data->size(), "byte");
    if (isStandardOutput(target)) {
      session.report(summary);
    } else {
      session.out() << printable(target) << ": " << summary << '\n';
    }
  }
};

}  // namespace

void addImportCommand(const Command& ovbook, Session& session) {
  const Command command =
      ovbook.addCommand("import", "Make a book from vCard files or a desktop address book");
  command.setFooter(
      "The book is written whole or not at all; files without any card make no book. Whatever was\n"
      "not imported verbatim is reported with file and line; the exit status is 1 if something\n"
      "was left out. \"-o -\" writes to standard output, unless that is a terminal.");
  const Argument files = command.addArguments("FILE", "The vCard files to read", 0);
  const Argument target =
      command.addOption("-o,--output", "BOOK", "The book to write; replaced if there is one")
          .required();
  const Argument liveBook =
      command.addOption("--from-book", "UID",
                        "Read this desktop address book (see \"ovbook books\") instead of files");
  const Argument store = command.addOption(
      "--tags", "STORE", "Also store the persons' categories as their tags in this store");
  const Argument all =
      command.addFlag("--all-messages", "Show more than the first 20 messages per file");
  command.setAction([=, &session] {
    const Import import{files.texts(), liveBook.text(), target.text(), store.text(), all.isGiven()};
    import.run(session);
  });
}

}  // namespace ovbook
