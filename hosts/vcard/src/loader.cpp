#include "loader.h"

#include "arrivals.h"
#include "card_id.h"
#include "card_parser.h"
#include "card_reader.h"
#include "card_splitter.h"
#include "content_lines.h"
#include "membership.h"
#include "problem_list.h"
#include "source_text.h"

namespace ov::vcard {

namespace {

constexpr std::size_t kCardsBetweenReports = 64;

class Loader {
 public:
  Loader(BookContent& book, const OVString& file) : book_(book), problems_(file, book.problems) {}

  void add(const CardText& card) {
    const std::vector<ContentLine> lines = contentLines(card, problems_);
    const std::vector<Field> fields = parseCard(lines, problems_);
    if (fields.empty()) {
      problems_.error(card.number, "this card is empty");
      return;
    }
    const std::string content = contentID(lines);
    const auto known = book_.idsByContent.find(content);
    if (known != book_.idsByContent.end() && book_.has(known->second)) {
      problems_.warning(card.number, "this card repeats another, and was left out");
      return;
    }
    const OVString given = idOf(fields);
    const OVString id = freeID(given.isNull() ? OVString(content) : given, card.number);
    book_.idsByContent.insert_or_assign(content, id);
    if (isGroup(fields)) {
      addGroup(id, readGroup(fields), card.number);
    } else {
      PersonDraft draft = readPerson(fields);
      const OVList<OVString> tags = draft.tags();
      book_.addPerson(id, draft.takeValues(), tags);
    }
  }

  ProblemList& problems() { return problems_; }

 private:
  /// The ID, or one made from it when it is taken.
  OVString freeID(const OVString& wanted, std::size_t line) {
    if (!book_.has(wanted)) return wanted;
    std::size_t& again = book_.wantedAgain.try_emplace(wanted, 1).first->second;
    std::string id;
    do {
      id = wanted.str() + "-" + std::to_string(++again);
    } while (book_.has(id));
    problems_.warning(line, "the UID " + wanted.str() + " is taken; this card got the ID " + id);
    return id;
  }

  void addGroup(const OVString& id, GroupDraft draft, std::size_t line) {
    GroupRecord& record = BookContent::recordOf(*book_.addGroup(id, draft.name));
    record.place = {problems_.file(), line};
    record.others = std::move(draft.others);
    for (const GroupDraft::Member& member : draft.members) {
      record.missing.push_back({member.id, {problems_.file(), member.line}});
    }
  }

  BookContent& book_;
  ProblemList problems_;
};

}  // namespace

void loadCards(BookContent& book, std::string bytes, const OVString& file,
               const Progress& progress) {
  const std::string text = withoutByteOrderMark(std::move(bytes));
  Arrivals arrivals(book);
  Loader loader(book, file);
  CardSplitter splitter(text, loader.problems());
  CardText card;
  for (std::size_t count = 1; splitter.next(card); ++count) {
    loader.add(card);
    if (progress && count % kCardsBetweenReports == 0) progress(splitter.offset(), text.size());
  }
  joinMembers(book);
  if (progress) progress(text.size(), text.size());
  arrivals.keep();
}

}  // namespace ov::vcard
