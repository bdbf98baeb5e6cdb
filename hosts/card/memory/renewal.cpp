#include "renewal.h"

#include "codec/card_reader.h"
#include "mapping/group_card.h"
#include "mapping/others.h"
#include "mapping/person_card.h"

namespace ov::card {

namespace {

/// The text has been read before, or will be.
class Unheard final : public Problems {
 public:
  void error(std::size_t /*line*/, std::string_view /*reason*/) override {}
  void warning(std::size_t /*line*/, std::string_view /*reason*/) override {}
};

CardSource sourceOf(const Card& card, const std::shared_ptr<const std::string>& text) {
  if (!card.isRespelled && card.rest.empty()) return {text, card.source};
  auto own = std::make_shared<std::string>(card.source);
  own->append(card.rest);
  return {own, *own};
}

}  // namespace

ValueTable valuesOf(const Lines& lines, PersonReading& reading) {
  const OVString odd = oddLinesOf(lines, reading);
  ValueTable values = reading.takeValues();
  if (odd.isNull()) return values;
  auto others = ov::cast<OVMutableMultipleValue>(values.find(OVProPertyOther));
  if (others == nullptr) {
    others = OVMutableMultipleValue::init();
    values.set(OVProPertyOther, others);
  }
  others->addValue(oddLinesEntry(odd));
  return values;
}

void renewPerson(Person& person, const std::shared_ptr<const std::string>& text) {
  Unheard problems;
  CardReader reader(*text, problems);
  const Card* const card = reader.next();
  if (card == nullptr) return;
  LabelReader labels;
  PersonReading reading(card->lines, labels);
  ValueTable values = valuesOf(card->lines, reading);
  person.become(std::move(values), reading.tags(), sourceOf(*card, text), reading.id());
}

void renewGroup(const std::shared_ptr<Group>& group, const std::shared_ptr<const std::string>& text,
                ImportTransaction& transaction) {
  Unheard problems;
  CardReader reader(*text, problems);
  const Card* const card = reader.next();
  if (card == nullptr) return;
  const GroupReading reading(card->lines);
  group->forgetMembers();
  group->name = reading.name;
  group->oddLines = oddLinesOf(card->lines, reading);
  group->source = sourceOf(*card, text);
  group->sourceID = reading.id;
  for (const GroupReading::Member& member : reading.members) {
    group->missing.push_back({member.id, {group->place.origin, member.line->number()}});
  }
  transaction.rejoin(group);
}

}  // namespace ov::card
