#include <ostream>

#include "book_file.h"
#include "commands/commands.h"
#include "parser.h"
#include "session.h"
#include "show/group_sheet.h"
#include "show/person_sheet.h"
#include "tag_store.h"

namespace ovbook {

namespace {

/// Prints persons and groups, a blank line between two.
class Sheets {
 public:
  /// `tags` may be null.
  Sheets(OVRef<OVAddressBookGeneral> book, OVRef<OVTagManager> tags, Session& session)
      : book_(std::move(book)), tags_(std::move(tags)), session_(session) {}

  void showAll() {
    const auto persons = personsOf(*book_);
    const auto groups = groupsOf(*book_);
    for (const auto& [ID, person] : persons) showPerson(ID, person);
    for (const auto& [ID, group] : groups) showGroup(ID, group);
  }

  /// The person and the group of this ID.
  void show(const OVString& ID) {
    const auto persons = personsOf(*book_);
    const auto groups = groupsOf(*book_);
    if (persons.contains(ID)) showPerson(ID, persons[ID]);
    if (groups.contains(ID)) showGroup(ID, groups[ID]);
    if (!persons.contains(ID) && !groups.contains(ID)) {
      session_.complain(ID.str() + ": the book has no person or group with this ID");
    }
  }

 private:
  void showPerson(const OVString& ID, const OVRef<OVPersonGeneral>& person) {
    separate();
    printPerson(ID, person, tags_ == nullptr ? nullptr : tagsOf(*tags_, ID), session_.out());
  }

  void showGroup(const OVString& ID, const OVRef<OVGroupGeneral>& group) {
    separate();
    printGroup(ID, group, *book_, session_.out());
  }

  void separate() { session_.out() << std::exchange(separator_, "\n"); }

  OVRef<OVAddressBookGeneral> book_;
  OVRef<OVTagManager> tags_;
  Session& session_;
  const char* separator_ = "";
};

}  // namespace

void addShowCommand(const Command& ovbook, Session& session) {
  const Command command = ovbook.addCommand("show", "Show the content of a book");
  command.setFooter(
      "Persons first, then groups, each in the book's order; with IDs, only those persons\n"
      "and groups. A star marks the main one of several entries. Brackets hold what belongs to a\n"
      "datum without being its text.");
  const Argument path = command.addArgument("BOOK", "The book to read").required();
  const Argument IDs = command.addArguments("ID", "Persons and groups to show", 0);
  const Argument store = command.addOption("--tags", "STORE", "Also show the tags of this store");
  command.setAction([=, &session] {
    const auto book = openBook(path.text());
    Sheets sheets(book, store.isGiven() ? openTagStore(store.text()) : nullptr, session);
    if (!IDs.isGiven()) return sheets.showAll();
    for (const std::string& ID : IDs.texts()) sheets.show(ID);
  });
}

}  // namespace ovbook
