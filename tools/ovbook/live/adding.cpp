#include <optional>
#include <ostream>

#include <unistd.h>

#include "book_file.h"
#include "live/desktop_books.h"
#include "output/escape.h"
#include "output/progress_bar.h"
#include "session.h"

namespace ovbook {

namespace {

void save(OVEDSBook& target, Session& session) {
  std::optional<ProgressBar> bar;
  if (isatty(STDERR_FILENO) != 0) bar.emplace(session.err(), "Writing");
  const std::error_code error = target.saveWithin({}, [&](std::uint64_t done, std::uint64_t all) {
    if (bar) bar->show(done, all);
  });
  bar.reset();
  for (const OVEDSProblem& problem : target.problems()) {
    session.complain((problem.ID.isNull() ? "" : problem.ID.str() + ": ") + problem.reason.str());
  }
  if (error) throw Failure(target.ID().str(), error.message());
}

}  // namespace

void addMissing(const OVAddressBookGeneral& book, OVEDSBook& target, bool isTrial,
                Session& session) {
  const auto persons = personsOf(book);
  const auto present = OVDictionary<IOVPerson>::dictionary();
  for (const OVRef<IOVPerson> person : target.allPersons()) present.set(person->ID(), person);
  std::size_t count = 0;
  target.addBatchPersonStart(static_cast<std::int64_t>(persons.size()));
  for (const auto& [ID, person] : persons) {
    if (person == nullptr || present.contains(ID)) continue;
    ++count;
    if (isTrial) {
      session.out() << printable(ID.view()) << "  " << printable(person->displayName().view())
                    << '\n';
    } else {
      (void)target.addBatchPersonForOther(person);
    }
  }
  if (!isTrial) save(target, session);
  const std::string all = std::to_string(persons.size());
  session.out() << printable(target.name().view()) << ": " << (isTrial ? "would add " : "added ")
                << count << " of " << all << (persons.size() == 1 ? " person\n" : " persons\n");
}

}  // namespace ovbook
