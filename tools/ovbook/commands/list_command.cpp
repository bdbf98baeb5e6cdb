// A person may be in a book under several IDs, and an ID may lead to no person, so what is listed
// is pairs of both.

#include <ostream>
#include <unordered_map>
#include <utility>
#include <vector>

#include <OVAddressBookSDK/person_heading.h>
#include <OVAddressBookSDK/person_matcher.h>
#include <OVAddressBookSDK/person_sorter.h>

#include "book_file.h"
#include "commands/commands.h"
#include "output/escape.h"
#include "output/table.h"
#include "parser.h"
#include "session.h"

namespace ovbook {

namespace {

/// The persons to be listed, with the IDs that they have in the book; null for what is not a
/// person.
using Listed = std::vector<std::pair<OVString, OVRef<OVPersonGeneral>>>;

Listed matching(const OVDictionary<const OVPersonGeneral>& persons,
                const OVPersonMatcher& matcher) {
  Listed listed;
  for (const auto& [ID, person] : persons) {
    const bool matches = person == nullptr ? matcher.matchesAll() : matcher.matches(*person);
    if (matches) listed.emplace_back(ID, person);
  }
  return listed;
}

Listed sorted(const Listed& listed, OVPersonOrder order) {
  if (order == OVPersonOrder::None) return listed;
  std::vector<OVRef<IOVPerson>> persons;
  std::unordered_map<const IOVPerson*, std::vector<OVString>> IDs;
  for (const auto& [ID, person] : listed) {
    persons.push_back(person);
    IDs[person.get()].push_back(ID);
  }
  OVPersonSorter(order).sort(persons);
  Listed result;
  for (const auto& person : persons) {
    auto& left = IDs[person.get()];
    result.emplace_back(left.front(), std::static_pointer_cast<OVPersonGeneral>(person));
    if (left.size() > 1) left.erase(left.begin());
  }
  return result;
}

OVPersonOrder orderNamed(const std::string& word) {
  if (word == "name") return OVPersonOrder::Name;
  return word == "company" ? OVPersonOrder::Company : OVPersonOrder::None;
}

/// ID, heading, main phone and main e-mail address; what is missing is "".
std::vector<std::string> rowOf(const OVString& ID, const OVRef<OVPersonGeneral>& person) {
  std::vector<std::string> row{ID.str(), "", "", ""};
  if (person == nullptr) return row;
  row[1] = ov::headingOf(*person).main.str();
  if (const auto phone = person->mainPhone()) row[2] = phone->displayString().str();
  if (const auto email = person->mainEmail()) row[3] = email->email().str();
  return row;
}

void listForPrograms(const Listed& listed, std::ostream& out) {
  for (const auto& [ID, person] : listed) {
    const char* separator = "";
    for (const std::string& field : rowOf(ID, person)) {
      out << separator << tsvField(field);
      separator = "\t";
    }
    out << '\n';
  }
}

void listForPeople(const Listed& listed, std::ostream& out) {
  Table table;
  for (const auto& [ID, person] : listed) {
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
      "One line per person: ID, name, main phone number, main e-mail address. An organisation is\n"
      "listed by its company; a person without a name by company, nickname, e-mail address or\n"
      "phone number. Sorting follows the locale and the name order (see ovbook name-order).\n"
      "Every word of TEXT must be part of a name, the company, a phone number or an e-mail\n"
      "address; case and accents are ignored, and so is everything but the digits of a number.\n"
      "With --tsv, tabs, line breaks and other control characters inside a field are written as\n"
      "\\t, \\n, \\r or \\uXXXX, and a backslash as \\\\.");
  const Argument book = command.addArgument("BOOK", "The book to list").required();
  const Argument sort =
      command
          .addOption("--sort", "ORDER",
                     "By name, by company, or none for the book's own order (default)")
          .oneOf({"name", "company", "none"});
  const Argument match = command.addOption("--match", "TEXT", "Only persons that match the text");
  const Argument tsv = command.addFlag("--tsv", "Separate fields by tabs, for programs");
  command.setAction([=, &session] {
    const auto persons = personsToList(book.text());
    const Listed listed =
        sorted(matching(persons, OVPersonMatcher(match.text())), orderNamed(sort.text()));
    tsv.isGiven() ? listForPrograms(listed, session.out()) : listForPeople(listed, session.out());
  });
}

}  // namespace ovbook
