#include "arriving.h"

#include "codec/card_reader.h"
#include "memory/import_transaction.h"
#include "memory/renewal.h"
#include "plain_card.h"
#include "same_card.h"

namespace ov::eds {

namespace {

/// Keeps what could not be read verbatim.
class ReadingProblems final : public ov::card::Problems {
 public:
  explicit ReadingProblems(std::vector<OVEDSProblem>& problems) : problems_(problems) {}
  void error(std::size_t /*line*/, std::string_view reason) override {
    if (problems_.size() < kMaxProblems) problems_.push_back({nullptr, OVString(reason)});
  }
  void warning(std::size_t line, std::string_view reason) override { error(line, reason); }

 private:
  static constexpr std::size_t kMaxProblems = 1000;
  std::vector<OVEDSProblem>& problems_;
};

void addTo(ov::card::ImportTransaction& arrivals, BookContent& book, std::string card,
           ReadingProblems& problems) {
  const OVString plainUID(uidOfPlainCard(card));
  if (!plainUID.empty()) {
    const auto text = std::make_shared<const std::string>(std::move(card));
    if (arrivals.addUnread(plainUID, {text, *text})) return;
    card = *text;
  }
  // Few cards are read in another form; only those are looked up.
  if (card.find("X-EVOLUTION-LIST") != std::string::npos ||
      card.find("PHOTO") != std::string::npos) {
    const std::string uid = uidOf(card);
    card = book.readable(uid, std::move(card));
  }
  const auto text = std::make_shared<const std::string>(std::move(card));
  arrivals.setText(text);
  ov::card::CardReader reader(*text, problems);
  while (const ov::card::Card* const each = reader.next()) arrivals.addUnread(*each);
}

}  // namespace

void arrive(BookContent& book, std::vector<std::string> cards,
            const std::vector<GroupRenewal>& renewals, const Progress& progress) {
  constexpr std::size_t kCardsBetweenReports = 64;
  const std::size_t count = cards.size();
  ReadingProblems problems(book.readingProblems);
  ov::card::ImportTransaction arrivals(*book.store, nullptr, nullptr, problems);
  arrivals.reserve(count);
  std::size_t read = 0;
  for (std::string& card : cards) {
    addTo(arrivals, book, std::move(card), problems);
    if (progress && ++read % kCardsBetweenReports == 0) progress(read, count);
  }
  for (const GroupRenewal& renewal : renewals) {
    if (renewal.text == nullptr) {
      arrivals.rejoin(renewal.group);
    } else {
      ov::card::renewGroup(renewal.group, renewal.text, arrivals);
    }
  }
  arrivals.prepare();
  arrivals.commit();
  if (progress) progress(count, count);
}

}  // namespace ov::eds
