#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookVCard/vcard_export.h>
#include <OVAddressBookVCard/vcard_group.h>

#include "hosts/cards.h"
#include "support/printers.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string personCard(const std::string& id) { return card("UID:" + id + "\nFN:" + id); }
std::string groupCard(const std::string& id, const std::string& lines) {
  return card("UID:" + id + "\nKIND:group\n" + lines);
}

std::vector<std::string> groupIDs(const OVList<IOVGroup>& groups) {
  std::vector<std::string> ids;
  for (const OVRef<IOVGroup> group : groups) ids.push_back(group->ID().str());
  return ids;
}

TEST(Groups, HaveNameAndMembers) {
  const auto book =
      bookOf(groupCard("g", "FN:Friends\nMEMBER:b\nMEMBER:a") + personCard("a") + personCard("b"));
  EXPECT_THAT(problems(*book), IsEmpty());
  EXPECT_EQ(book->allPersonsCount(), 2U);
  EXPECT_EQ(book->rootGroupsCount(), 1U);
  const auto group = book->groupByID("g");
  EXPECT_EQ(group->ID(), "g");
  EXPECT_EQ(group->displayName(), "Friends");
  EXPECT_THAT(idsOf(group->persons()), ElementsAre("b", "a"));
  EXPECT_THAT(groupIDs(book->allPersons().front()->groups()), ElementsAre("g"));
}

TEST(Groups, HaveOlderSpellings) {
  const auto book =
      bookOf(card("UID:g\nN:Team;;;;\nX-SERVER-KIND:Group\nX-SERVER-MEMBER:urn:uuid:A\n"
                  "X-KIND:group\nX-MEMBER:b",
                  "3.0") +
             personCard("a") + personCard("urn:uuid:B"));
  const auto group = book->groupByID("g");
  ASSERT_NE(group, nullptr);
  EXPECT_EQ(group->displayName(), "Team");
  EXPECT_THAT(idsOf(group->persons()), ElementsAre("a", "urn:uuid:B"));
}

TEST(Groups, MayHaveNoName) {
  EXPECT_EQ(bookOf(groupCard("g", ""))->groupByID("g")->displayName(), "");
}

TEST(Groups, MayBeInGroups) {
  const auto book = bookOf(groupCard("a", "MEMBER:b\nMEMBER:p\nMEMBER:c") +
                           groupCard("b", "MEMBER:c") + groupCard("c", "") + personCard("p"));
  EXPECT_THAT(problems(*book), IsEmpty());
  EXPECT_THAT(groupIDs(book->rootGroups()), ElementsAre("a"));
  EXPECT_THAT(groupIDs(book->groupByID("a")->subGroups()), ElementsAre("b", "c"));
  EXPECT_THAT(groupIDs(book->groupByID("b")->subGroups()), ElementsAre("c"));
  EXPECT_THAT(idsOf(book->groupByID("a")->persons()), ElementsAre("p"));
}

TEST(Groups, NameAMemberOnce) {
  const auto book = bookOf(groupCard("a", "MEMBER:p\nMEMBER:urn:uuid:P\nMEMBER:b\nMEMBER:b") +
                           groupCard("b", "") + personCard("p"));
  EXPECT_THAT(idsOf(book->groupByID("a")->persons()), ElementsAre("p"));
  EXPECT_THAT(groupIDs(book->groupByID("a")->subGroups()), ElementsAre("b"));
}

TEST(Groups, NeverContainThemselves) {
  const std::string text = groupCard("a", "MEMBER:b") + groupCard("b", "MEMBER:c") +
                           groupCard("c", "MEMBER:a\nMEMBER:c");
  const auto book = bookOf(text);
  EXPECT_THAT(groupIDs(book->rootGroups()), ElementsAre("a"));
  EXPECT_THAT(groupIDs(book->groupByID("c")->subGroups()), IsEmpty());
  EXPECT_THAT(problems(*book),
              ElementsAre("1: this group contains itself; one membership was ignored",
                          "13: this group contains itself; one membership was ignored"));
  EXPECT_EQ(book->saveData()->text(), text);
}

TEST(Groups, ReportMembersThatAreInNoFile) {
  const auto book = bookOf(groupCard("g", "MEMBER:p\nMEMBER:mailto:x@example.com"));
  EXPECT_THAT(problems(*book),
              ElementsAre("5: the member p is not in any file",
                          "6: the member mailto:x@example.com is not in any file"));
  book->loadWithData(OVData::dataWithText(personCard("p")));
  EXPECT_THAT(problems(*book),
              ElementsAre("6: the member mailto:x@example.com is not in any file"));
  EXPECT_THAT(idsOf(book->groupByID("g")->persons()), ElementsAre("p"));
}

TEST(Groups, KeepEverythingWhenWritten) {
  const std::string text =
      "BEGIN:VCARD\r\nVERSION:4.0\r\nUID:g\r\nKIND:group\r\nFN:Team\r\nMEMBER:gone\r\n"
      "NOTE;LANGUAGE=en:a\\, b\r\nN:Other;;;;\r\nEND:VCARD\r\n";
  EXPECT_EQ(bookOf(text)->saveData()->text(), text);
}

TEST(Groups, ReferToUUIDsAsURNs) {
  const std::string uuid = "0b3f5d8e-7a41-4c52-9d3e-1f6a2b7c8d01";
  const auto book = bookOf(groupCard("g", "MEMBER:" + uuid) + personCard(uuid));
  EXPECT_THAT(std::string(ov::vcard::exportBook(book)->text()),
              testing::HasSubstr("MEMBER:urn:uuid:" + uuid + "\r\n"));
}

TEST(Groups, MayBeAChainOfAnyLength) {
  std::string text;
  constexpr int kLength = 2000;
  for (int i = kLength; i-- > 0;) {
    text += groupCard("g" + std::to_string(i), "MEMBER:g" + std::to_string(i + 1));
  }
  text += groupCard("g" + std::to_string(kLength), "MEMBER:g0");
  auto book = bookOf(text);
  EXPECT_EQ(book->rootGroupsCount(), 1U);
  EXPECT_EQ(bookOf(book->saveData()->text())->rootGroupsCount(), 1U);
  const auto first = book->groupByID("g0");
  book = nullptr;
  EXPECT_THAT(groupIDs(first->subGroups()), IsEmpty());
}

struct GroupObjects : testing::Test {
  OVRef<OVVCardBook> book = OVVCardBook::init();
  OVRef<OVVCardGroup> group(const OVString& name) const {
    return std::dynamic_pointer_cast<OVVCardGroup>(book->addGroupByName(name));
  }
};

TEST_F(GroupObjects, TakeAndReleasePersons) {
  const auto friends = group("Friends");
  const auto one = book->newPerson();
  EXPECT_TRUE(friends->addPerson(one));
  EXPECT_FALSE(friends->addPerson(one));
  EXPECT_FALSE(friends->addPerson(nullptr));
  EXPECT_FALSE(friends->addPerson(person("FN:of another book")));
  EXPECT_EQ(friends->persons().size(), 1U);
  EXPECT_EQ(one->groups().front(), friends);
  EXPECT_TRUE(friends->removePerson(one));
  EXPECT_FALSE(friends->removePerson(one));
  EXPECT_FALSE(friends->removePerson(nullptr));
  EXPECT_TRUE(one->groups().empty());
}

TEST_F(GroupObjects, TakeAndReleaseSubGroups) {
  const auto a = group("a");
  const auto b = group("b");
  const auto c = group("c");
  EXPECT_TRUE(a->addSubGroup(b));
  EXPECT_TRUE(b->addSubGroup(c));
  EXPECT_FALSE(a->addSubGroup(b));
  EXPECT_FALSE(a->addSubGroup(nullptr));
  EXPECT_FALSE(a->addSubGroup(a));
  EXPECT_FALSE(c->addSubGroup(a));
  EXPECT_FALSE(a->addSubGroup(OVVCardBook::init()->addGroupByName("elsewhere")));
  EXPECT_EQ(book->rootGroupsCount(), 1U);
  EXPECT_TRUE(a->removeSubGroup(b));
  EXPECT_FALSE(a->removeSubGroup(b));
  EXPECT_FALSE(a->removeSubGroup(nullptr));
  EXPECT_EQ(book->rootGroupsCount(), 2U);
  EXPECT_EQ(book->groupByID(b->ID()), b);
}

TEST_F(GroupObjects, ChangeTheirName) {
  const auto a = group("a");
  a->setDisplayName("b");
  EXPECT_EQ(a->displayName(), "b");
  a->setDisplayName(nullptr);
  EXPECT_EQ(a->displayName(), "");
}

TEST_F(GroupObjects, OutsideOfTheirBookTakeNothing) {
  const auto a = group("a");
  const auto b = group("b");
  const auto one = book->newPerson();
  EXPECT_TRUE(a->addSubGroup(b));
  EXPECT_TRUE(a->addPerson(one));
  EXPECT_TRUE(book->removeGroup(a));
  EXPECT_FALSE(a->addPerson(book->newPerson()));
  EXPECT_FALSE(b->addSubGroup(a));
  EXPECT_TRUE(one->groups().empty());
  EXPECT_THAT(groupIDs(book->rootGroups()), ElementsAre(b->ID().str()));
  EXPECT_TRUE(a->subGroups().empty());
}

}  // namespace
