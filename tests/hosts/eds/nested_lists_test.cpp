#include "live_test.h"

namespace {

using testing::HasSubstr;
using testing::Not;

class LiveNestedLists : public LiveTest {
 protected:
  LiveNestedLists() {
    putCard("UID:kim\r\nFN:Kim\r\nN:Kim;;;;\r\nEMAIL:kim@example.org\r\n");
    putCard("UID:ida\r\nFN:Ida\r\nN:Ida;;;;\r\nEMAIL:ida@example.org\r\n");
    putCard(list("choir", "EMAIL;X-EVOLUTION-DEST-CONTACT-UID=kim:Kim <kim@example.org>\r\n"));
  }

  static std::string list(const std::string& id, const std::string& members) {
    return "UID:" + id + "\r\nFN:" + id + "\r\nN:;" + id + ";;;\r\nX-EVOLUTION-LIST:TRUE\r\n" +
           members;
  }
};

TEST_F(LiveNestedLists, AreSubGroups) {
  putCard(list("all",
               "EMAIL;X-EVOLUTION-DEST-CONTACT-UID=choir:Choir\r\n"
               "EMAIL;X-EVOLUTION-DEST-CONTACT-UID=ida:Ida\r\n"));
  const auto book = openedBook();
  ASSERT_EQ(book->rootGroupsCount(), 1U);
  const auto all = book->rootGroups()[0];
  ASSERT_EQ(all->subGroups().size(), 1U);
  EXPECT_EQ(OVRef<IOVGroup>(all->subGroups()[0])->ID(), OVString("choir"));
  EXPECT_EQ(all->persons().size(), 1U);
}

TEST_F(LiveNestedLists, SurviveAChange) {
  putCard(list("all", "EMAIL;X-EVOLUTION-DEST-CONTACT-UID=choir;X-ODD=1:Choir\r\n"));
  const auto book = openedBook();
  const auto all = groupOf(*book, "all");
  EXPECT_TRUE(all->addPerson(personOf(*book, "ida")));
  EXPECT_FALSE(book->saveWithin({})) << book->saveError().message();
  EXPECT_THAT(storedCards(), HasSubstr("EMAIL;X-ODD=1;X-EVOLUTION-DEST-CONTACT-UID=choir:Choir"));
  const auto again = openedBook();
  EXPECT_EQ(groupOf(*again, "all")->subGroups().size(), 1U);
  EXPECT_EQ(groupOf(*again, "all")->persons().size(), 1U);
  EXPECT_TRUE(book->removeGroup(groupOf(*book, "choir")));
  EXPECT_FALSE(book->saveWithin({})) << book->saveError().message();
  EXPECT_THAT(storedCards(), Not(HasSubstr("CONTACT-UID=choir")));
}

TEST_F(LiveNestedLists, InsideEachOtherAreReadAndLeftAlone) {
  putCard(list("a", "EMAIL;X-EVOLUTION-DEST-CONTACT-UID=b:B\r\n"));
  putCard(list("b", "EMAIL;X-EVOLUTION-DEST-CONTACT-UID=a:A\r\n"));
  const std::string before = storedCards();
  const auto book = openedBook();
  EXPECT_EQ(book->rootGroupsCount(), 2U);
  EXPECT_FALSE(book->saveWithin({})) << book->saveError().message();
  EXPECT_EQ(storedCards(), before);
}

}  // namespace
