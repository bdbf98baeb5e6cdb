#include <ostream>

#include <OVAddressBookVCard/vcard_readable.h>

#include "book_file.h"
#include "commands/commands.h"
#include "output/escape.h"
#include "output/table.h"
#include "parser.h"
#include "session.h"

namespace ovbook {

namespace {

/// ID, heading, main phone and main e-mail address; what is missing is "".
std::vector<std::string> rowOf(const OVString& ID, const OVRef<OVPersonGeneral>& person) {
  std::vector<std::string> row{ID.str(), "", "", ""};
  if (person == nullptr) return row;
  row[1] = ov::vcard::headingOf(*person).main.str();
  if (const auto phone = person->mainPhone()) row[2] = phone->displayString().str();
  if (const auto email = person->mainEmail()) row[3] = email->email().str();
  return row;
}

void listForPrograms(const OVAddressBookGeneral& book, std::ostream& out) {
  const auto persons = personsOf(book);
  for (const auto& [ID, person] : persons) {
    const char* separator = "";
    for (const std::string& field : rowOf(ID, person)) {
      out << separator << tsvField(field);
      separator = "\t";
    }
    out << '\n';
  }
}

void listForPeople(const OVAddressBookGeneral& book, std::ostream& out) {
  Table table;
  const auto persons = personsOf(book);
  for (const auto& [ID, person] : persons) {
    std::vector<std::string> row = rowOf(ID, person);
    for (std::string& cell : row) cell = printable(cell);
    table.add(std::move(row));
  }
  table.print(out);
}

}  // namespace

void addListCommand(const Command& ovbook, Session& session) {
  const Command command = ovbook.addCommand("list", "List the persons of a book");
  command.setFooter(
      "One line a person, in the book's order: ID, name, main phone number, main e-mail address.\n"
      "An organisation goes by its company; a person without a name by company, nickname, e-mail\n"
      "address or phone number. With --tsv, tabs, line breaks and other control characters inside\n"
      "a field stand as \\t, \\n, \\r or \\uXXXX, and a backslash as \\\\.");
  const Argument book = command.addArgument("BOOK", "The book to list").required();
  const Argument tsv = command.addFlag("--tsv", "Fields apart by one tab, for programs");
  command.setAction([=, &session] {
    const auto opened = openBook(book.text());
    tsv.isGiven() ? listForPrograms(*opened, session.out()) : listForPeople(*opened, session.out());
  });
}

}  // namespace ovbook
