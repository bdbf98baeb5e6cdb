#include "live_test.h"

namespace {

using testing::HasSubstr;
using testing::Not;
using LiveBook = LiveTest;

TEST_F(LiveBook, SavedPersonIsReadByAnotherProgram) {
  const auto book = openedBook();
  const auto mira = book->newPerson();
  setName(mira, "Mira", "Halonen");
  setPhone(mira, "+44 20 7946 0018");
  EXPECT_FALSE(book->saveWithin({}));
  const std::string cards = storedCards();
  EXPECT_THAT(cards, HasSubstr("N:Halonen;Mira"));
  EXPECT_THAT(cards, HasSubstr("+44 20 7946 0018"));
  EXPECT_THAT(cards, HasSubstr("UID:" + mira->ID().str()));
}

TEST_F(LiveBook, ReadsWhatAnotherProgramPut) {
  putCard("UID:kim\r\nFN:Kim Seoyeon\r\nN:Kim;Seoyeon;;;\r\nTEL;TYPE=CELL:+82 10 5550 0160\r\n");
  const auto book = openedBook();
  ASSERT_EQ(book->allPersonsCount(), 1U);
  const auto kim = personOf(*book, "kim");
  ASSERT_NE(kim, nullptr);
  EXPECT_EQ(phoneOf(kim), OVString("+82 10 5550 0160"));
  EXPECT_EQ(kim->addressBookID(), bookUID);
  EXPECT_EQ(book->name(), OVString("Study"));
  EXPECT_EQ(book->state(), OVEDSState::Connected);
}

TEST_F(LiveBook, LinesOfOtherProgramsSurviveAChange) {
  putCard(
      "UID:kim\r\nFN:Kim Seoyeon\r\nN:Kim;Seoyeon;;;\r\nTEL;TYPE=WORK:555-01\r\n"
      "X-EVOLUTION-BLOG-URL:http://example.org/blog\r\nX-ODD;X-P=1:left alone\r\n"
      "item1.EMAIL;X-FOO=bar:kim@example.org\r\nitem1.X-ABLabel:Funny\r\n");
  const auto book = openedBook();
  setPhone(personOf(*book, "kim"), "555-02");
  EXPECT_FALSE(book->saveWithin({}));
  const std::string cards = storedCards();
  EXPECT_THAT(cards, HasSubstr("555-02"));
  EXPECT_THAT(cards, Not(HasSubstr("555-01")));
  EXPECT_THAT(cards, HasSubstr("X-EVOLUTION-BLOG-URL:http://example.org/blog"));
  EXPECT_THAT(cards, HasSubstr("X-ODD;X-P=1:left alone"));
  EXPECT_THAT(cards, HasSubstr("item1.EMAIL;X-FOO=bar:kim@example.org"));
  EXPECT_THAT(cards, HasSubstr("item1.X-ABLabel:Funny"));
}

TEST_F(LiveBook, WhatNobodyChangedIsNotWritten) {
  putCard("UID:kim\r\nFN:Kim\r\nN:Kim;;;;\r\nREV:2001-01-01T00:00:00Z\r\n");
  putCard("UID:ida\r\nFN:Ida\r\nN:Ida;;;;\r\n");
  const auto book = openedBook();
  const std::string before = storedCards();
  (void)personOf(*book, "kim")->valueByPropertyName(OVProPertyName);
  EXPECT_FALSE(book->saveWithin({}));
  EXPECT_EQ(storedCards(), before);
}

TEST_F(LiveBook, WhatHasBeenSavedIsNotSavedAgain) {
  const auto book = openedBook();
  addPersons(*book, 3);
  EXPECT_FALSE(book->saveWithin({}));
  setPhone(personOf(*book, "p1"), "555-01");
  EXPECT_FALSE(book->saveWithin({}));
  EXPECT_FALSE(book->saveWithin(
      {}, [](std::uint64_t, std::uint64_t all) { ADD_FAILURE() << all << " written again"; }));
}

TEST_F(LiveBook, SavedTwiceAPersonIsChangedTwice) {
  const auto book = openedBook();
  const auto mira = book->newPerson();
  setName(mira, "Mira", "Halonen");
  for (const char* number : {"555-01", "555-02", "555-03"}) {
    setPhone(mira, number);
    EXPECT_FALSE(book->saveWithin({})) << book->saveError().message();
  }
  EXPECT_THAT(storedCards(), HasSubstr("555-03"));
  EXPECT_TRUE(book->conflicts().empty());
}

TEST_F(LiveBook, LinesThatTheServiceAddedSurviveTheNextSave) {
  const auto book = openedBook();
  const auto mira = book->newPerson();
  setName(mira, "Mira", "Halonen");
  setPhone(mira, "+44 20 7946 0018");
  EXPECT_FALSE(book->saveWithin({}));
  putCard("UID:" + mira->ID().str() +
          "\r\nFN:Mira Halonen\r\nN:Halonen;Mira;;;\r\nX-EVOLUTION-FILE-AS:Mira the Great\r\n");
  EXPECT_TRUE(applied(*book, [](const auto& changes) { return !changes.empty(); }));
  setPhone(mira, "555-02");
  EXPECT_FALSE(book->saveWithin({}));
  setPhone(mira, "555-03");
  EXPECT_FALSE(book->saveWithin({}));
  EXPECT_THAT(storedCards(), HasSubstr("X-EVOLUTION-FILE-AS:Mira the Great"));
}

TEST_F(LiveBook, RemovedPersonGoesFromTheServiceWithTheNextSave) {
  putCard("UID:kim\r\nFN:Kim\r\nN:Kim;;;;\r\n");
  putCard("UID:ida\r\nFN:Ida\r\nN:Ida;;;;\r\n");
  const auto book = openedBook();
  const auto leaving = OVList<IOVPerson>::list();
  leaving.push_back(personOf(*book, "kim"));
  book->removePersons(leaving);
  EXPECT_EQ(book->allPersonsCount(), 1U);
  EXPECT_THAT(storedCards(), HasSubstr("UID:kim"));
  EXPECT_FALSE(book->saveWithin({}));
  EXPECT_THAT(storedCards(), Not(HasSubstr("UID:kim")));
}

TEST_F(LiveBook, CopyOfAPersonKeepsItsID) {
  const auto other = OVPersonGeneral::initWithID("mira-1");
  setName(other, "Mira", "Halonen");
  const auto book = openedBook();
  book->addBatchPersonStart(2);
  EXPECT_EQ(book->addBatchPersonForOther(other)->ID(), OVString("mira-1"));
  EXPECT_NE(book->addBatchPersonForOther(other)->ID(), OVString("mira-1"));
  book->addBatchPersonEnd();
  EXPECT_FALSE(book->saveError());
  EXPECT_EQ(openedBook()->allPersonsCount(), 2U);
}

TEST_F(LiveBook, UIDsThatDifferInCaseOnlyAreTwo) {
  putCard("UID:kim\r\nFN:Kim\r\nN:Kim;;;;\r\n");
  putCard("UID:KIM\r\nFN:King\r\nN:King;;;;\r\n");
  const auto book = openedBook();
  ASSERT_EQ(book->allPersonsCount(), 2U);
  setPhone(personOf(*book, "KIM"), "555-02");
  EXPECT_FALSE(book->saveWithin({})) << book->saveError().message();
  EXPECT_TRUE(book->conflicts().empty());
  const auto leaving = OVList<IOVPerson>::list();
  leaving.push_back(personOf(*book, "kim"));
  book->removePersons(leaving);
  EXPECT_FALSE(book->saveWithin({})) << book->saveError().message();
  const auto again = openedBook();
  EXPECT_EQ(again->allPersonsCount(), 1U);
  EXPECT_EQ(phoneOf(personOf(*again, "KIM")), OVString("555-02"));
}

TEST_F(LiveBook, TagsAreCategories) {
  putCard("UID:kim\r\nFN:Kim\r\nN:Kim;;;;\r\nCATEGORIES:Friends\r\n");
  const auto book = openedBook();
  EXPECT_TRUE(personOf(*book, "kim")->tagArray().contains("Friends"));
  book->tagManager()->addPersonIDForTag("kim", "Choir");
  EXPECT_FALSE(book->saveWithin({}));
  EXPECT_THAT(storedCards(), HasSubstr("CATEGORIES:Friends,Choir"));
}

TEST_F(LiveBook, ThousandPersonsAreWrittenAndReadAgain) {
  const auto book = openedBook();
  book->addBatchPersonStart(1000);
  addPersons(*book, 1000);
  book->addBatchPersonEnd();
  EXPECT_FALSE(book->saveError()) << book->saveError().message();
  std::uint64_t last = 0;
  std::error_code error;
  const auto again = session->openBook(bookUID, error);
  error = again->load([&](std::uint64_t done, std::uint64_t all) {
    EXPECT_EQ(all, 1000U);
    EXPECT_GE(done, last);
    last = done;
  });
  EXPECT_FALSE(error);
  EXPECT_EQ(last, 1000U);
  EXPECT_EQ(again->allPersonsCount(), 1000U);
  EXPECT_NE(personOf(*again, "p999"), nullptr);
}

}  // namespace
