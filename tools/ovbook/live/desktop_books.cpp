#include "live/desktop_books.h"

#include <optional>
#include <ostream>

#include <unistd.h>

#include "output/escape.h"
#include "output/progress_bar.h"
#include "output/table.h"
#include "session.h"

namespace ovbook {

namespace {

OVRef<OVEDSSession> openSession() {
  std::error_code error;
  auto session = OVEDSSession::open(error);
  if (error) throw Failure(error.message());
  return session;
}

const char* nameOf(OVEDSBookKind kind) {
  switch (kind) {
    case OVEDSBookKind::Local:
      return "local";
    case OVEDSBookKind::CardDAV:
      return "carddav";
    case OVEDSBookKind::Other:
      break;
  }
  return "other";
}

std::vector<std::string> rowOf(const OVEDSBookInfo& book) {
  return {book.uid.str(), book.name.str(), nameOf(book.kind), book.isWritable ? "rw" : "ro",
          book.isDefault ? "*" : ""};
}

/// A book that holds its session, too.
OVRef<OVEDSBook> openBook(const std::string& uid, Session& session) {
  const auto desktop = openSession();
  std::error_code error;
  auto book = desktop->openBook(OVString(uid), error);
  if (error) throw Failure(uid, error.message());
  std::optional<ProgressBar> bar;
  if (isatty(STDERR_FILENO) != 0) bar.emplace(session.err(), "Reading");
  error = book->load([&](std::uint64_t done, std::uint64_t all) {
    if (bar) bar->show(done, all);
  });
  if (error) throw Failure(uid, error.message());
  return book;
}

}  // namespace

void DesktopBooks::list(bool isForPrograms, Session& session) const {
  const auto books = openSession()->books();
  Table table;
  for (const OVEDSBookInfo& book : books) {
    std::vector<std::string> row = rowOf(book);
    if (isForPrograms) {
      const char* separator = "";
      for (const std::string& field : row) {
        session.out() << separator << tsvField(field);
        separator = "\t";
      }
      session.out() << '\n';
      continue;
    }
    for (std::string& cell : row) cell = printable(cell);
    table.add(std::move(row));
  }
  if (!isForPrograms) table.print(session.out());
}

OVRef<OVAddressBook> DesktopBooks::read(const std::string& uid, Session& session) const {
  return openBook(uid, session);
}

void DesktopBooks::add(const OVAddressBookGeneral& book, const std::string& uid, bool isTrial,
                       Session& session) const {
  const auto target = openBook(uid, session);
  if (!target->canOprate()) throw Failure(uid, "the address book is read-only");
  addMissing(book, *target, isTrial, session);
}

}  // namespace ovbook
