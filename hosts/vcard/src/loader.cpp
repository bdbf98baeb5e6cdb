#include "loader.h"

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
    const OVString id = newID(fields, content, card.number);
    if (id.isNull()) return;
    book_.origins.insert_or_assign(id, BookContent::Origin{content, card.number});
    if (isGroup(fields)) {
      addGroup(id, readGroup(fields));
    } else {
      PersonDraft draft = readPerson(fields);
      const OVRef<OVList<OVString>> tags = draft.tags();
      book_.addPerson(id, draft.takeValues(), tags);
    }
  }

  ProblemList& problems() { return problems_; }

 private:
  /// Null for a card that the book has already.
  OVString newID(const std::vector<Field>& fields, const std::string& content, std::size_t line) {
    const OVString given = idOf(fields);
    const std::string wanted = given.isNull() ? content : given.str();
    for (std::size_t count = 1;; ++count) {
      const OVString id = count == 1 ? wanted : wanted + "-" + std::to_string(count);
      const auto origin = book_.origins.find(id);
      if (origin != book_.origins.end() && origin->second.contentID == content) {
        problems_.warning(line, "this card repeats another, and was left out");
        return nullptr;
      }
      if (!book_.has(id)) {
        if (count > 1) {
          problems_.warning(line,
                            "the UID " + wanted + " is taken; this card got the ID " + id.str());
        }
        return id;
      }
    }
  }

  void addGroup(const OVString& id, GroupDraft draft) {
    GroupRecord& record = BookContent::recordOf(*book_.addGroup(id, draft.name));
    record.others = std::move(draft.others);
    for (const GroupDraft::Member& member : draft.members) {
      record.missing.push_back({member.id, problems_.file(), member.line});
    }
  }

  BookContent& book_;
  ProblemList problems_;
};

}  // namespace

void loadCards(BookContent& book, std::string bytes, const OVString& file,
               const Progress& progress) {
  const std::string text = withoutByteOrderMark(std::move(bytes));
  Loader loader(book, file);
  CardSplitter splitter(text, loader.problems());
  CardText card;
  for (std::size_t count = 1; splitter.next(card); ++count) {
    loader.add(card);
    if (progress && count % kCardsBetweenReports == 0) progress(splitter.offset(), text.size());
  }
  joinMembers(book, loader.problems());
  if (progress) progress(text.size(), text.size());
}

}  // namespace ov::vcard
