#include <algorithm>

#include "live_server.h"

namespace {

using testing::HasSubstr;
using testing::Not;

TEST_F(LiveServer, PersonOfTheServerIsReadAfterARefresh) {
  server.put("kim.vcf", kim("555-01"));
  ASSERT_NO_FATAL_FAILURE(open());
  refresh();
  ASSERT_NE(personOf(*book, "kim"), nullptr);
  EXPECT_EQ(phoneOf(personOf(*book, "kim")), OVString("555-01"));
  EXPECT_EQ(book->state(), OVEDSState::Connected);
  EXPECT_GE(questions, 1);
}

TEST_F(LiveServer, ABookOfAServerIsListedUntilItIsRemoved) {
  ASSERT_NO_FATAL_FAILURE(open());
  const auto isListed = [&] {
    const auto books = session->books();
    return std::any_of(books.begin(), books.end(), [&](const OVEDSBookInfo& info) {
      return info.uid == uid && info.kind == OVEDSBookKind::CardDAV;
    });
  };
  EXPECT_TRUE(eventually(isListed));
  EXPECT_FALSE(session->removeBook(uid));
  EXPECT_TRUE(eventually([&] { return !isListed(); }));
  EXPECT_TRUE(eventually([&] { return book->state() == OVEDSState::Gone; }));
}

TEST_F(LiveServer, SavedPersonIsOnTheServer) {
  ASSERT_NO_FATAL_FAILURE(open());
  refresh();
  const auto mira = book->newPerson();
  setName(mira, "Mira", "Halonen");
  setPhone(mira, "555-01");
  EXPECT_FALSE(book->saveWithin({})) << book->saveError().message();
  EXPECT_THAT(server.cards(), HasSubstr("555-01"));
  setPhone(mira, "555-02");
  EXPECT_FALSE(book->saveWithin({})) << book->saveError().message();
  EXPECT_THAT(server.cards(), HasSubstr("555-02"));
  EXPECT_FALSE(book->waitsForServer());
}

TEST_F(LiveServer, TwoMachinesOfOneUserSeeEachOthersChanges) {
  ASSERT_NO_FATAL_FAILURE(open());
  refresh();
  const auto mira = book->newPerson();
  setName(mira, "Mira", "Halonen");
  setPhone(mira, "555-01");
  EXPECT_FALSE(book->saveWithin({}));
  const std::string id = mira->ID().str();
  EXPECT_THAT(onTheOtherMachine({"list"}).out, HasSubstr(id + "\t555-01"));
  const Outcome changed = onTheOtherMachine({"phone", id, "555-02"});
  EXPECT_EQ(changed.status, 0) << changed.err;
  refresh();
  EXPECT_EQ(phoneOf(mira), OVString("555-02"));
  const Outcome removed = onTheOtherMachine({"remove", id});
  EXPECT_EQ(removed.status, 0) << removed.err;
  refresh();
  EXPECT_EQ(book->allPersonsCount(), 0U);
}

TEST_F(LiveServer, WhatWeRemoveGoesFromTheOtherMachine) {
  server.put("kim.vcf", kim("555-01"));
  ASSERT_NO_FATAL_FAILURE(open());
  refresh();
  EXPECT_THAT(onTheOtherMachine({"list"}).out, HasSubstr("kim\t555-01"));
  book->removePersons(book->allPersons());
  EXPECT_FALSE(book->saveWithin({})) << book->saveError().message();
  EXPECT_THAT(onTheOtherMachine({"list"}).out, Not(HasSubstr("kim")));
}

TEST_F(LiveServer, APersonChangedOnBothMachinesIsAConflict) {
  server.put("kim.vcf", kim("555-01"));
  ASSERT_NO_FATAL_FAILURE(open());
  refresh();
  const Outcome changed = onTheOtherMachine({"phone", "kim", "555-03"});
  EXPECT_EQ(changed.status, 0) << changed.err;
  setPhone(personOf(*book, "kim"), "555-02");
  EXPECT_EQ(book->saveWithin({}), OVEDSError::Conflict);
  ASSERT_EQ(book->conflicts().size(), 1U);
  EXPECT_EQ(phoneOf(personOf(*book, "kim")), OVString("555-03"));
  EXPECT_THAT(server.cards(), HasSubstr("555-03"));
  EXPECT_TRUE(book->resolve("kim", OVEDSResolution::Ours));
  EXPECT_FALSE(book->saveWithin({})) << book->saveError().message();
  EXPECT_THAT(server.cards(), HasSubstr("555-02"));
  EXPECT_THAT(server.cards(), HasSubstr("X-ODD:left alone"));
}

TEST_F(LiveServer, ABookThatMayOnlyBeReadCannotBeChanged) {
  server.put("kim.vcf", kim("555-01"));
  ASSERT_NO_FATAL_FAILURE(open("guest"));
  refresh();
  EXPECT_NE(personOf(*book, "kim"), nullptr);
  EXPECT_TRUE(eventually([&] { return book->state() == OVEDSState::ReadOnly; }));
  EXPECT_FALSE(book->canOprate());
  EXPECT_FALSE(book->canCreateGroup());
  EXPECT_EQ(book->newPerson(), nullptr);
  EXPECT_EQ(book->addGroupByName("Choir"), nullptr);
  setPhone(personOf(*book, "kim"), "555-02");
  EXPECT_EQ(book->saveWithin({}), OVEDSError::ReadOnly);
  EXPECT_THAT(server.cards(), HasSubstr("555-01"));
}

TEST_F(LiveServer, AGroupOfAnotherProgramIsRead) {
  server.put("kim.vcf", kim("555-01"));
  server.put("choir.vcf",
             "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:choir\r\nFN:Choir\r\nN:Choir;;;;\r\n"
             "X-ADDRESSBOOKSERVER-KIND:group\r\nX-ADDRESSBOOKSERVER-MEMBER:urn:uuid:kim\r\n"
             "END:VCARD\r\n");
  ASSERT_NO_FATAL_FAILURE(open());
  refresh();
  const auto choir = book->groupByID("choir");
  ASSERT_NE(choir, nullptr);
  EXPECT_EQ(choir->persons().size(), 1U);
}

}  // namespace
