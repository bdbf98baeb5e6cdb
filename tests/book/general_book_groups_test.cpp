#include <gtest/gtest.h>

#include <OVAddressBookSDK/address_book_general.h>

#include "book/host_persons.h"
#include "support/archive/archived_fields.h"
#include "support/printers.h"

namespace {

std::vector<OVString> textsOf(const OVList<OVString>& list) { return {list.begin(), list.end()}; }

class GeneralBookGroups : public testing::Test {
 protected:
  GeneralBookGroups() {
    source->groupsInside = OVList<IOVGroup>::list({hostGroup("c"), hostGroup("a"), hostGroup("b")});
    source->members = OVList<IOVPerson>::list({hostPerson("q"), hostPerson("p")});
  }

  const OVRef<OVAddressBookGeneral> book = OVAddressBookGeneral::init();
  const OVRef<HostGroup> source = hostGroup("g", "Friends");
};

TEST_F(GeneralBookGroups, ConversionRecordsIDsInOrder) {
  const auto group = book->generalGroupByGroup(source);
  EXPECT_EQ(group->ID(), "g");
  EXPECT_EQ(group->title(), "Friends");
  EXPECT_EQ(textsOf(group->subArray()), (std::vector<OVString>{"c", "a", "b"}));
  EXPECT_EQ(textsOf(group->persons()), (std::vector<OVString>{"q", "p"}));
  EXPECT_EQ(group->extend(), nullptr);
}

TEST_F(GeneralBookGroups, AddedGroupIsKeptUnderTheIDOfItsSource) {
  book->addGroup(source);
  ASSERT_EQ(book->groupsDic().size(), 1U);
  EXPECT_EQ(book->groupsDic()["g"]->title(), "Friends");
}

TEST_F(GeneralBookGroups, SubGroupsAndMembersAreNotAddedThemselves) {
  book->addGroup(source);
  EXPECT_FALSE(book->groupsDic().contains("a"));
  EXPECT_TRUE(book->personsDic().empty());
  book->addGroup(source->groupsInside[1]);
  EXPECT_TRUE(book->groupsDic().contains("a"));
}

TEST_F(GeneralBookGroups, SecondGroupOfAnIDReplacesTheFirst) {
  book->addGroup(source);
  book->addGroup(hostGroup("g", "Others"));
  ASSERT_EQ(book->groupsDic().size(), 1U);
  EXPECT_EQ(book->groupsDic()["g"]->title(), "Others");
}

TEST_F(GeneralBookGroups, ListsAreNewAndEmptyWithoutMembers) {
  const auto group = book->generalGroupByGroup(hostGroup("g"));
  EXPECT_TRUE(group->subArray().empty());
  EXPECT_TRUE(group->persons().empty());
  EXPECT_NE(group->subArray(), group->persons());
}

TEST_F(GeneralBookGroups, NullListsCountAsEmpty) {
  source->groupsInside = nullptr;
  source->members = nullptr;
  const auto group = book->generalGroupByGroup(source);
  EXPECT_TRUE(group->subArray().empty());
  EXPECT_TRUE(group->persons().empty());
}

TEST_F(GeneralBookGroups, NullTitleStaysNull) {
  EXPECT_EQ(book->generalGroupByGroup(hostGroup("g", nullptr))->title(), nullptr);
}

TEST_F(GeneralBookGroups, NullGroupIsRefused) {
  EXPECT_THROW(book->addGroup(nullptr), std::invalid_argument);
  EXPECT_TRUE(book->groupsDic().empty());
}

TEST_F(GeneralBookGroups, GroupWithoutIDIsRefused) {
  EXPECT_THROW(book->addGroup(hostGroup(nullptr)), std::invalid_argument);
  EXPECT_TRUE(book->groupsDic().empty());
  EXPECT_EQ(book->generalGroupByGroup(hostGroup(nullptr))->ID(), nullptr);
}

TEST_F(GeneralBookGroups, SubGroupWithoutIDIsRefused) {
  source->groupsInside.push_back(hostGroup(nullptr));
  EXPECT_THROW(book->addGroup(source), std::invalid_argument);
  EXPECT_TRUE(book->groupsDic().empty());
}

TEST_F(GeneralBookGroups, MemberWithoutIDIsRefused) {
  source->members.push_back(hostPerson(nullptr));
  EXPECT_THROW((void)book->generalGroupByGroup(source), std::invalid_argument);
}

TEST_F(GeneralBookGroups, MemberOfAnotherClassIsRefused) {
  source->members = restored<OVList<IOVPerson>>(OVList<OVObject>::list({foreignObject()}));
  EXPECT_THROW(book->addGroup(source), std::invalid_argument);
  EXPECT_TRUE(book->groupsDic().empty());
}

TEST_F(GeneralBookGroups, ConversionOfNullIsNull) {
  EXPECT_EQ(book->generalGroupByGroup(nullptr), nullptr);
}

std::string messageOf(const OVRef<OVAddressBookGeneral>& book, const OVRef<IOVGroup>& group) {
  try {
    book->addGroup(group);
    return "accepted";
  } catch (const std::invalid_argument& error) {
    return error.what();
  }
}

TEST_F(GeneralBookGroups, MissingIDIsToldWithGroupAndPosition) {
  source->groupsInside.insert(1, hostGroup(nullptr));
  EXPECT_EQ(messageOf(book, source),
            "OVAddressBookGeneral: sub-group 1 of the group \"g\" (\"Friends\") has no ID");
  source->groupsInside = nullptr;
  source->members.push_back(hostPerson(nullptr));
  EXPECT_EQ(messageOf(book, source),
            "OVAddressBookGeneral: member 2 of the group \"g\" (\"Friends\") has no ID");
  EXPECT_EQ(messageOf(book, hostGroup(nullptr, "Nameless")),
            "OVAddressBookGeneral: the group \"Nameless\" has no ID");
}

TEST_F(GeneralBookGroups, SnapshotAndSourceChangeApart) {
  book->addGroup(source);
  const auto group = book->groupsDic()["g"];
  source->members.push_back(hostPerson("r"));
  source->groupsInside.clear();
  EXPECT_EQ(group->persons().size(), 2U);
  EXPECT_EQ(group->subArray().size(), 3U);
  group->persons().clear();
  group->subArray().push_back("x");
  EXPECT_EQ(source->members.size(), 3U);
  EXPECT_TRUE(source->groupsInside.empty());
}

}  // namespace
