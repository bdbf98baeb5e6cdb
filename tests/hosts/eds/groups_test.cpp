#include "live_test.h"

namespace {

using testing::HasSubstr;
using testing::Not;

class LiveGroups : public LiveTest {
 protected:
  LiveGroups() {
    putCard("UID:kim\r\nFN:Kim\r\nN:Kim;;;;\r\nEMAIL:kim@example.org\r\n");
    putCard("UID:ida\r\nFN:Ida\r\nN:Ida;;;;\r\nEMAIL:ida@example.org\r\n");
  }
};

constexpr const char* kChoir =
    "UID:choir\r\nFN:Choir\r\nN:;Choir;;;\r\nX-EVOLUTION-LIST:TRUE\r\n"
    "EMAIL;X-EVOLUTION-DEST-CONTACT-UID=kim;X-EVOLUTION-DEST-NAME=Kim:Kim <kim@example.org>\r\n"
    "EMAIL;X-EVOLUTION-DEST-EMAIL=guest@example.org:guest@example.org\r\nX-ODD:left alone\r\n";

TEST_F(LiveGroups, ContactListIsAGroup) {
  putCard(kChoir);
  const auto book = openedBook();
  EXPECT_EQ(book->allPersonsCount(), 2U);
  ASSERT_EQ(book->rootGroupsCount(), 1U);
  const auto choir = book->rootGroups()[0];
  EXPECT_EQ(choir->displayName(), OVString("Choir"));
  ASSERT_EQ(choir->persons().size(), 1U);
  EXPECT_EQ(OVRef<IOVPerson>(choir->persons()[0])->ID(), OVString("kim"));
  EXPECT_EQ(personOf(*book, "kim")->groups().size(), 1U);
  EXPECT_TRUE(book->canCreateGroup());
  EXPECT_FALSE(book->canCreateSubGroup());
}

TEST_F(LiveGroups, ChangedListKeepsAddressesAndLinesOfOthers) {
  putCard(kChoir);
  const auto book = openedBook();
  const auto choir = groupOf(*book, "choir");
  EXPECT_TRUE(choir->addPerson(personOf(*book, "ida")));
  EXPECT_FALSE(book->saveWithin({}));
  const std::string cards = storedCards();
  EXPECT_THAT(cards, HasSubstr("guest@example.org"));
  EXPECT_THAT(cards, HasSubstr("X-ODD:left alone"));
  EXPECT_EQ(groupOf(*openedBook(), "choir")->persons().size(), 2U);
  EXPECT_TRUE(choir->removePerson(personOf(*book, "kim")));
  choir->setDisplayName("Small Choir");
  EXPECT_FALSE(book->saveWithin({}));
  const auto again = groupOf(*openedBook(), "choir");
  EXPECT_EQ(again->persons().size(), 1U);
  EXPECT_EQ(again->displayName(), OVString("Small Choir"));
}

TEST_F(LiveGroups, NewGroupIsAContactList) {
  const auto book = openedBook();
  const auto made = std::dynamic_pointer_cast<OVEDSGroup>(book->addGroupByName("Choir"));
  ASSERT_NE(made, nullptr);
  EXPECT_EQ(book->addGroupByName(nullptr), nullptr);
  made->addPerson(personOf(*book, "kim"));
  EXPECT_FALSE(book->saveWithin({}));
  const std::string cards = storedCards();
  EXPECT_THAT(cards, HasSubstr("X-EVOLUTION-LIST:TRUE"));
  EXPECT_THAT(cards, HasSubstr("kim@example.org"));
  EXPECT_TRUE(book->removeGroup(made));
  EXPECT_FALSE(book->removeGroup(made));
  EXPECT_FALSE(book->saveWithin({}));
  EXPECT_THAT(storedCards(), Not(HasSubstr("X-EVOLUTION-LIST:TRUE")));
}

TEST_F(LiveGroups, MembersAreFoundAndKeptHoweverTheirUUIDIsSpelled) {
  putCard("UID:0b2d3f4e-1a5c-4b6d-8e7f-90a1b2c3d4e5\r\nFN:Mira\r\nN:Mira;;;;\r\n");
  putCard(
      "UID:choir\r\nFN:Choir\r\nN:;Choir;;;\r\nX-EVOLUTION-LIST:TRUE\r\n"
      "EMAIL;X-EVOLUTION-DEST-CONTACT-UID=0B2D3F4E-1A5C-4B6D-8E7F-90A1B2C3D4E5:Mira\r\n"
      "EMAIL;X-EVOLUTION-DEST-CONTACT-UID=kim:Kim\r\n"
      "EMAIL;X-EVOLUTION-DEST-CONTACT-UID=kim:Kim\r\n");
  const std::string before = storedCards();
  const auto book = openedBook();
  EXPECT_EQ(groupOf(*book, "choir")->persons().size(), 2U);
  EXPECT_FALSE(book->saveWithin({})) << book->saveError().message();
  EXPECT_EQ(storedCards(), before);
}

TEST_F(LiveGroups, RemovedPersonLeavesItsLists) {
  putCard(kChoir);
  const auto book = openedBook();
  const auto leaving = OVList<IOVPerson>::list();
  leaving.push_back(personOf(*book, "kim"));
  book->removePersons(leaving);
  EXPECT_FALSE(book->saveWithin({}));
  EXPECT_THAT(storedCards(), Not(HasSubstr("kim@example.org")));
}

TEST_F(LiveGroups, MemberWhomAnotherProgramRemovedStaysInTheCard) {
  putCard(kChoir);
  const auto book = openedBook();
  EXPECT_EQ(otherProgram({"remove", bookUID.str(), "kim"}).status, 0);
  EXPECT_TRUE(applied(*book, [](const OVEDSChanges& changes) { return changes.went.size() == 1; }));
  EXPECT_TRUE(groupOf(*book, "choir")->persons().empty());
  EXPECT_FALSE(book->saveWithin({}));
  EXPECT_THAT(storedCards(), HasSubstr("X-EVOLUTION-DEST-CONTACT-UID=kim"));
  putCard("UID:kim\r\nFN:Kim\r\nN:Kim;;;;\r\n");
  EXPECT_TRUE(applied(*book, [](const auto& changes) { return changes.cameIn.size() == 1; }));
  EXPECT_EQ(groupOf(*book, "choir")->persons().size(), 1U);
}

TEST_F(LiveGroups, ListThatAnotherProgramChangesIsTheSameObject) {
  putCard(kChoir);
  const auto book = openedBook();
  const auto choir = groupOf(*book, "choir");
  putCard(
      "UID:choir\r\nFN:Great Choir\r\nN:;Great Choir;;;\r\nX-EVOLUTION-LIST:TRUE\r\n"
      "EMAIL;X-EVOLUTION-DEST-CONTACT-UID=ida:Ida\r\n");
  EXPECT_TRUE(
      applied(*book, [](const auto& changes) { return changes.groupsChanged.size() == 1; }));
  EXPECT_EQ(book->groupByID("choir"), choir);
  EXPECT_EQ(choir->displayName(), OVString("Great Choir"));
  ASSERT_EQ(choir->persons().size(), 1U);
  EXPECT_EQ(OVRef<IOVPerson>(choir->persons()[0])->ID(), OVString("ida"));
}

}  // namespace
