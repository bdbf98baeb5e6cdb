#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/cards.h"
#include "hosts/through_block.h"
#include "support/fakes/fake_platform.h"
#include "support/printers.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class ExampleContacts : public testing::Test {
 protected:
  ExampleContacts() { EXPECT_FALSE(book->load()); }

  OVRef<IOVPerson> personWithID(const OVString& id) const {
    return book->personsForIDs(OVList<OVString>::list({id})).front();
  }

  const FakePlatform platform;
  const OVRef<OVVCardBook> book = OVVCardBook::initWithPath(OV_EXAMPLE_CONTACTS);
};

TEST_F(ExampleContacts, AreReadWithoutAProblem) {
  EXPECT_THAT(problems(*book), IsEmpty());
  EXPECT_EQ(book->allPersonsCount(), 43U);
  EXPECT_EQ(book->rootGroupsCount(), 3U);
}

TEST_F(ExampleContacts, FillEveryProperty) {
  for (const OVRef<OVProperty> property : OVProperty::StandardPropertyArray()) {
    int count = 0;
    const auto persons = book->allPersons();
    for (const OVRef<IOVPerson> one : persons) count += one->valueByProperty(property) != nullptr;
    EXPECT_GT(count, 0) << property->name();
  }
}

TEST_F(ExampleContacts, AreReadInEveryCharacterSet) {
  const std::pair<const char*, const char*> rows[] = {
      {"groessling-1", "J\u00FCrgen Gr\u00F6\u00DFling"},
      {"lefevre@example.net", "Fran\u00E7ois \u00C9tienne Lef\u00E8vre"},
      {"yamada-hanako", "\u82B1\u5B50 \u5C71\u7530"},
      {"snegireva",
       "\u0410\u043D\u043D\u0430 \u041F\u0430\u0432\u043B\u043E\u0432\u043D\u0430 "
       "\u0421\u043D\u0435\u0433\u0438\u0440\u0451\u0432\u0430"},
      {"papadakis",
       "\u039D\u03AF\u03BA\u03BF\u03C2 \u03A0\u03B1\u03C0\u03B1\u03B4\u03AC\u03BA\u03B7"
       "\u03C2"},
      {"haddad-layla", "\u0644\u064A\u0644\u0649 \u0627\u0644\u062D\u062F\u0627\u062F"},
      {"wang-xiaoming", "\u5C0F\u660E \u738B"},
      {"kim-seoyeon", "\uC11C\uC5F0 \uAE40"},
      {"malee-sukjai", "\u0E21\u0E32\u0E25\u0E35 \u0E2A\u0E38\u0E02\u0E43\u0E08"},
      {"kovacs-zoltan", "Zolt\u00E1n Kov\u00E1cs"},
      {"shankar-devi", "\u0936\u093E\u0928\u094D\u0924\u093F \u0926\u0947\u0935\u0940"},
      {"ben-ami-noa", "\u05E0\u05D5\u05E2\u05D4 \u05D1\u05DF \u05E2\u05DE\u05D9"},
  };
  for (const auto& [id, name] : rows) EXPECT_EQ(personWithID(id)->displayName(), name);
}

TEST_F(ExampleContacts, HaveOneOfEverything) {
  const auto clara = personWithID("urn:uuid:0b3f5d8e-7a41-4c52-9d3e-1f6a2b7c8d01");
  EXPECT_EQ(clara->displayName(), "Clara Maria Lindqvist");
  EXPECT_EQ(entry(*clara, OVProPertyTitle), "Dr.");
  EXPECT_EQ(entry(*clara, OVProPertyMaidenName), "Sandberg");
  EXPECT_EQ(entry(*clara, OVProPertyDepartment), "Research;Lenses");
  EXPECT_EQ(entry(*clara, OVProPertyTags), "#family#optics#Uppsala");
  EXPECT_EQ(clara->mainPhone()->phoneNumber(), "+46-555-0177");
  EXPECT_EQ(clara->mainEmail()->email(), "clara@example.org");
  EXPECT_THAT(
      entries(*clara, OVProPertyAddress),
      ElementsAre("home|Home: se|Bj\u00F6rkgatan 12|753 28|Uppsala||Sweden",
                  "*work|Work: se|Floor 4\nHamnv\u00E4gen 3|411 17|G\u00F6teborg|V\u00E4stra "
                  "G\u00F6taland|Sweden"));
  EXPECT_THAT(entries(*clara, OVProPertyInstantMessage),
              ElementsAre("home|Home: JabberInstant:clara@chat.example.org",
                          "*work|Work: SkypeInstant:clara.lindqvist.example"));
  EXPECT_TRUE(datumText(clara->thumbnail()).starts_with("\x89PNG"));
  EXPECT_THAT(entries(*clara, OVProPertyOther), Contains("GENDER|GENDER: F"));
}

TEST_F(ExampleContacts, HaveGroupsInGroups) {
  const auto harbour = book->groupByID("urn:uuid:90909090-0000-4000-8000-000000000002");
  EXPECT_EQ(harbour->displayName(), "Friends of the harbour");
  EXPECT_EQ(harbour->persons().size(), 2U);
  EXPECT_EQ(harbour->subGroups().size(), 2U);
  EXPECT_EQ(book->groupByID("chess-club")->persons().size(), 3U);
  EXPECT_EQ(personWithID("kovacs-zoltan")->groups().front()->ID(), "chess-club");
}

TEST_F(ExampleContacts, ComeBackThroughSnapshotAndExport) {
  const auto again = bookOf(throughBlock(*book));
  EXPECT_THAT(problems(*again), IsEmpty());
  EXPECT_EQ(description(*again), description(*book));
}

TEST_F(ExampleContacts, ComeBackThroughASavedBook) {
  const std::string text(book->saveData()->text());
  const auto again = bookOf(text);
  EXPECT_THAT(problems(*again), IsEmpty());
  EXPECT_EQ(description(*again), description(*book));
  EXPECT_EQ(again->saveData()->text(), text);
}

}  // namespace
