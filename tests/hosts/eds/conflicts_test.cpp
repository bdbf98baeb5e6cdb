#include "live_test.h"

namespace {

using testing::HasSubstr;
using testing::Not;

class LiveConflicts : public LiveTest {
 protected:
  LiveConflicts() {
    putCard(kim("555-01"));
    putCard("UID:ida\r\nFN:Ida\r\nN:Ida;;;;\r\n");
    book = openedBook();
  }

  static std::string kim(const std::string& phone) {
    return "UID:kim\r\nFN:Kim\r\nN:Kim;;;;\r\nTEL;TYPE=WORK:" + phone + "\r\nX-ODD:left alone\r\n";
  }
  /// Both sides give Kim another phone, and ours is saved last.
  void changeOnBothSides() {
    setPhone(personOf(*book, "kim"), "555-02");
    putCard(kim("555-03"));
    EXPECT_EQ(book->saveWithin({}), OVEDSError::Conflict);
    ASSERT_EQ(book->conflicts().size(), 1U);
    EXPECT_EQ(phoneOf(personOf(*book, "kim")), OVString("555-03"));
  }

  OVRef<OVEDSBook> book;
};

TEST_F(LiveConflicts, AreFoundWhenSaved) {
  changeOnBothSides();
  const OVEDSConflict conflict = book->conflicts().front();
  EXPECT_EQ(conflict.ID, OVString("kim"));
  EXPECT_THAT(conflict.ourCard.str(), HasSubstr("555-02"));
  EXPECT_THAT(conflict.theirCard.str(), HasSubstr("555-03"));
  EXPECT_FALSE(book->resolve("ida", OVEDSResolution::Theirs));
}

TEST_F(LiveConflicts, AreFoundWhenApplied) {
  setPhone(personOf(*book, "kim"), "555-02");
  putCard(kim("555-03"));
  EXPECT_TRUE(applied(*book, [](const auto& changes) { return !changes.empty(); }));
  EXPECT_EQ(book->conflicts().size(), 1U);
  EXPECT_EQ(phoneOf(personOf(*book, "kim")), OVString("555-03"));
}

TEST_F(LiveConflicts, AreResolvedWithTheirs) {
  changeOnBothSides();
  EXPECT_TRUE(book->resolve("kim", OVEDSResolution::Theirs));
  EXPECT_FALSE(book->saveWithin({}));
  EXPECT_THAT(storedCards(), HasSubstr("555-03"));
  EXPECT_THAT(storedCards(), Not(HasSubstr("555-02")));
}

TEST_F(LiveConflicts, AreResolvedWithOurs) {
  changeOnBothSides();
  EXPECT_TRUE(book->resolve("kim", OVEDSResolution::Ours));
  EXPECT_EQ(phoneOf(personOf(*book, "kim")), OVString("555-02"));
  EXPECT_FALSE(book->saveWithin({}));
  EXPECT_THAT(storedCards(), HasSubstr("555-02"));
  EXPECT_THAT(storedCards(), Not(HasSubstr("555-03")));
  EXPECT_THAT(storedCards(), HasSubstr("X-ODD:left alone"));
}

TEST_F(LiveConflicts, AreResolvedWithBoth) {
  changeOnBothSides();
  EXPECT_TRUE(book->resolve("kim", OVEDSResolution::Both));
  EXPECT_FALSE(book->saveWithin({}));
  EXPECT_THAT(storedCards(), HasSubstr("555-02"));
  EXPECT_THAT(storedCards(), HasSubstr("555-03"));
  EXPECT_EQ(openedBook()->allPersonsCount(), 3U);
}

TEST_F(LiveConflicts, AreWhatTheyRemovedAndWeChanged) {
  setPhone(personOf(*book, "kim"), "555-02");
  EXPECT_EQ(otherProgram({"remove", bookUID.str(), "kim"}).status, 0);
  EXPECT_EQ(book->saveWithin({}), OVEDSError::Conflict);
  ASSERT_EQ(book->conflicts().size(), 1U);
  EXPECT_TRUE(book->conflicts().front().theyRemoved);
  EXPECT_EQ(personOf(*book, "kim"), nullptr);
  EXPECT_TRUE(book->resolve("kim", OVEDSResolution::Ours));
  EXPECT_FALSE(book->saveWithin({}));
  EXPECT_THAT(storedCards(), HasSubstr("555-02"));
}

TEST_F(LiveConflicts, AreWhatWeRemovedAndTheyChanged) {
  const auto leaving = OVList<IOVPerson>::list();
  leaving.push_back(personOf(*book, "kim"));
  book->removePersons(leaving);
  putCard(kim("555-03"));
  EXPECT_EQ(book->saveWithin({}), OVEDSError::Conflict);
  ASSERT_EQ(book->conflicts().size(), 1U);
  EXPECT_TRUE(book->conflicts().front().weRemoved);
  EXPECT_NE(personOf(*book, "kim"), nullptr);
  EXPECT_TRUE(book->resolve("kim", OVEDSResolution::Ours));
  EXPECT_FALSE(book->saveWithin({}));
  EXPECT_THAT(storedCards(), Not(HasSubstr("UID:kim")));
}

}  // namespace
