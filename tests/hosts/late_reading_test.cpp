// What a card says may be read late: when somebody first asks the person.

#include <gtest/gtest.h>

#include "codec/card_reader.h"
#include "hosts/cards.h"
#include "memory/import_transaction.h"
#include "support/cards/card_text.h"
#include "support/processes/temporary_folder.h"

namespace {

using ov::card::Person;
using ov::card::Store;

class NoProblems final : public ov::card::Problems {
  void error(std::size_t /*line*/, std::string_view /*reason*/) override {}
  void warning(std::size_t /*line*/, std::string_view /*reason*/) override {}
};

enum class When : int { AtOnce, Late };

std::shared_ptr<Store> storeOf(const std::string& cards, When when) {
  const auto store =
      std::make_shared<Store>([](const auto& /*group*/) { return OVRef<IOVGroup>(); });
  NoProblems problems;
  const auto text = std::make_shared<const std::string>(cards);
  ov::card::ImportTransaction arrivals(*store, nullptr, text, problems);
  ov::card::CardReader reader(*text, problems);
  while (const ov::card::Card* const each = reader.next()) {
    when == When::Late ? arrivals.addUnread(*each) : arrivals.add(*each);
  }
  arrivals.prepare();
  arrivals.commit();
  return store;
}

const std::string kMira = card(
    "UID:mira\nFN:Mira Halonen\nN:Halonen;Mira;;;\nTEL;TYPE=work:+44 20\n"
    "CATEGORIES:Family,Choir\nX-OWN;X-A=b:kept\nNOTE:old");

std::string written(const Person& person) {
  std::string text;
  person.write(text);
  return text;
}

/// What follows when `change` is made to a person that was read then.
template <class Change>
std::string changed(When when, Change change) {
  const auto store = storeOf(kMira, when);
  const OVRef<Person> person = store->persons.at(0);
  change(*person);
  return description(*person) + person->showName().str() + written(*person);
}

template <class Change>
void expectSame(Change change) {
  EXPECT_EQ(changed(When::Late, change), changed(When::AtOnce, change));
}

TEST(LateReading, SaysWhatReadingAtOnceSays) {
  std::string cards = readFile(OV_EXAMPLE_CONTACTS);
  cards += kMira + card("FN:without UID") + card("UID:mira\nFN:of the same UID");
  const auto late = storeOf(cards, When::Late);
  const auto atOnce = storeOf(cards, When::AtOnce);
  ASSERT_EQ(late->persons.size(), atOnce->persons.size());
  for (std::size_t i = 0; i < late->persons.size(); ++i) {
    EXPECT_EQ(description(*late->persons[i]), description(*atOnce->persons[i]));
  }
}

TEST(LateReading, LeavesTheCardAsItWas) {
  const auto store = storeOf(kMira, When::Late);
  const OVRef<Person> person = store->persons.at(0);
  EXPECT_EQ(written(*person), kMira);
  EXPECT_EQ(person->showName(), "Mira Halonen");
  EXPECT_EQ(written(*person), kMira);
  EXPECT_TRUE(person->isAsItCame());
}

TEST(LateReading, ComesBeforeTheFirstChange) {
  expectSame([](Person& person) { person.setValueByPropertyName(nullptr, OVProPertyNote); });
  expectSame([](Person& person) { person.setThumbnail(nullptr); });
  expectSame([](Person& person) { person.setIsOrganization(true); });
  expectSame([](Person& person) { person.addTag("New"); });
  expectSame([](Person& person) { person.addTag("Choir"); });
  expectSame([](Person& person) { person.removeTag("Choir"); });
  expectSame([](Person& person) { person.setTags(nullptr); });
  expectSame([](Person& person) { person.setSource({}, nullptr); });
}

TEST(LateReading, GivesTheTagManagerTheTags) {
  const auto store = storeOf(kMira, When::Late);
  store->makeTagManager();
  EXPECT_EQ(store->tags->personIDsByTag("Choir").size(), 1U);
}

TEST(LateReading, MayComeAfterThePersonHasLeftItsBook) {
  const auto store = storeOf(kMira, When::Late);
  const OVRef<Person> person = store->persons.at(0);
  store->removePersons({person.get()});
  EXPECT_EQ(person->showName(), "Mira Halonen");
  EXPECT_EQ(person->tagArray().size(), 2U);
}

}  // namespace
