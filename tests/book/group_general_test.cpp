#include <OVAddressBookSDK/group_general.h>

#include <gtest/gtest.h>

#include "support/archive/archived_fields.h"
#include "support/printers.h"

namespace {

using Keys = std::vector<OVString>;

TEST(GroupGeneral, NewOneHoldsNothing) {
  const auto group = OVGroupGeneral::init();
  EXPECT_EQ(group->ID(), nullptr);
  EXPECT_EQ(group->title(), nullptr);
  EXPECT_EQ(group->subArray(), nullptr);
  EXPECT_EQ(group->persons(), nullptr);
  EXPECT_EQ(group->extend(), nullptr);
}

TEST(GroupGeneral, SettersKeepTheObjectsGiven) {
  const auto group = OVGroupGeneral::init();
  const OVString ID = "id";
  const OVString title = "title";
  const auto subGroups = OVList<OVString>::list({"a"});
  const auto persons = OVList<OVString>::list({"p"});
  const OVRef<OVObject> extension = OVList<OVObject>::list();
  group->setID(ID);
  group->setTitle(title);
  group->setSubArray(subGroups);
  group->setPersons(persons);
  group->setExtend(extension);
  EXPECT_TRUE(group->ID().isSame(ID));
  EXPECT_TRUE(group->title().isSame(title));
  EXPECT_EQ(group->subArray(), subGroups);
  EXPECT_EQ(group->persons(), persons);
  EXPECT_EQ(group->extend(), extension);
  subGroups.push_back("b");
  EXPECT_EQ(group->subArray().size(), 2U);
}

TEST(GroupGeneral, EverythingCanBeTakenAway) {
  const auto group = OVGroupGeneral::init();
  group->setID("id");
  group->setTitle("title");
  group->setSubArray(OVList<OVString>::list());
  group->setPersons(OVList<OVString>::list());
  group->setExtend(OVString("x"));
  group->setID(nullptr);
  group->setTitle(nullptr);
  group->setSubArray(nullptr);
  group->setPersons(nullptr);
  group->setExtend(nullptr);
  EXPECT_EQ(group->ID(), nullptr);
  EXPECT_EQ(group->title(), nullptr);
  EXPECT_EQ(group->subArray(), nullptr);
  EXPECT_EQ(group->persons(), nullptr);
  EXPECT_EQ(group->extend(), nullptr);
}

OVRef<OVGroupGeneral> fullGroup() {
  const auto group = OVGroupGeneral::init();
  group->setID("id");
  group->setTitle("Friends");
  group->setSubArray(OVList<OVString>::list({"a", "b"}));
  group->setPersons(OVList<OVString>::list({"p", "q", "p"}));
  group->setExtend(OVString("of the host"));
  return group;
}

TEST(GroupGeneralArchive, HoldsTitleSubGroupsAndPersonsInThisOrder) {
  const ArchivedForm form(fullGroup());
  EXPECT_EQ(form.classes(), (Keys{"OVGroupGeneral", "NSObject"}));
  EXPECT_EQ(form.keys(), (Keys{"title", "subArray", "persons"}));
  const auto group = restored<OVGroupGeneral>(fullGroup());
  EXPECT_EQ(group->title(), "Friends");
  ASSERT_EQ(group->subArray().size(), 2U);
  EXPECT_EQ(group->subArray()[1], "b");
  ASSERT_EQ(group->persons().size(), 3U);
  EXPECT_EQ(group->persons()[2], "p");
}

TEST(GroupGeneralArchive, DoesNotHoldTheID) {
  EXPECT_EQ(restored<OVGroupGeneral>(fullGroup())->ID(), nullptr);
}

TEST(GroupGeneralArchive, DoesNotHoldTheExtension) {
  EXPECT_EQ(restored<OVGroupGeneral>(fullGroup())->extend(), nullptr);
}

TEST(GroupGeneralArchive, ExtensionUnderAKeyOfItsNameIsNotRead) {
  const auto group = restored<OVGroupGeneral>(
      archivedAs("OVGroupGeneral", {{"extend", OVString("x")}, {"ID", OVString("id")}}));
  EXPECT_EQ(group->extend(), nullptr);
  EXPECT_EQ(group->ID(), nullptr);
}

TEST(GroupGeneralArchive, TitleAloneIsOneKey) {
  const auto group = OVGroupGeneral::init();
  group->setTitle("Friends");
  EXPECT_EQ(ArchivedForm(group).keys(), Keys{"title"});
  const auto again = restored<OVGroupGeneral>(group);
  EXPECT_EQ(again->title(), "Friends");
  EXPECT_EQ(again->subArray(), nullptr);
  EXPECT_EQ(again->persons(), nullptr);
}

TEST(GroupGeneralArchive, NothingIsNoKeys) {
  EXPECT_EQ(ArchivedForm(OVGroupGeneral::init()).keys(), Keys{});
  EXPECT_EQ(restored<OVGroupGeneral>(OVGroupGeneral::init())->title(), nullptr);
}

TEST(GroupGeneralArchive, EmptyListsAreNotNull) {
  const auto group = OVGroupGeneral::init();
  group->setSubArray(OVList<OVString>::list());
  group->setPersons(OVList<OVString>::list());
  EXPECT_EQ(ArchivedForm(group).keys(), (Keys{"subArray", "persons"}));
  const auto again = restored<OVGroupGeneral>(group);
  ASSERT_NE(again->subArray(), nullptr);
  EXPECT_TRUE(again->subArray().empty());
}

TEST(GroupGeneralArchive, OneListInBothPlacesComesBackAsOne) {
  const auto group = OVGroupGeneral::init();
  const auto list = OVList<OVString>::list({"a"});
  group->setSubArray(list);
  group->setPersons(list);
  const auto again = restored<OVGroupGeneral>(group);
  again->persons().push_back("b");
  EXPECT_EQ(again->subArray().size(), 2U);
}

TEST(GroupGeneralArchive, ObjectsOfOtherClassesReadAsNull) {
  const auto group = restored<OVGroupGeneral>(archivedAs(
      "OVGroupGeneral",
      {{"title", foreignObject()}, {"subArray", OVString("a")}, {"persons", foreignObject()}}));
  EXPECT_EQ(group->title(), nullptr);
  EXPECT_EQ(group->subArray(), nullptr);
  EXPECT_EQ(group->persons(), nullptr);
}

TEST(GroupGeneralArchive, StrangeElementsReadAsNullAndAreWrittenBack) {
  const auto persons = OVList<OVObject>::list({OVString("p"), foreignObject()});
  const auto group = restored<OVGroupGeneral>(archivedAs("OVGroupGeneral", {{"persons", persons}}));
  ASSERT_EQ(group->persons().size(), 2U);
  EXPECT_EQ(group->persons()[0], "p");
  EXPECT_EQ(group->persons()[1], nullptr);
  const auto written = ov::cast<OVList<OVObject>>(ArchivedForm(group).object("persons"));
  EXPECT_TRUE(isForeignObject(written[1]));
}

TEST(GroupGeneralArchive, EachFieldAloneIsOneKey) {
  const auto subGroups = OVGroupGeneral::init();
  subGroups->setSubArray(OVList<OVString>::list({"a"}));
  EXPECT_EQ(ArchivedForm(subGroups).keys(), Keys{"subArray"});
  EXPECT_EQ(restored<OVGroupGeneral>(subGroups)->persons(), nullptr);
  const auto persons = OVGroupGeneral::init();
  persons->setPersons(OVList<OVString>::list({"p"}));
  EXPECT_EQ(ArchivedForm(persons).keys(), Keys{"persons"});
  EXPECT_EQ(restored<OVGroupGeneral>(persons)->persons()[0], "p");
  EXPECT_EQ(restored<OVGroupGeneral>(persons)->title(), nullptr);
}

class UnarchivableExtension : public OVObject {};

TEST(GroupGeneralArchive, ExtensionThatCannotBeArchivedIsIgnored) {
  const auto group = fullGroup();
  group->setExtend(std::make_shared<UnarchivableExtension>());
  EXPECT_EQ(restored<OVGroupGeneral>(group)->title(), "Friends");
}

TEST(GroupGeneralArchive, ObjectsOfOtherClassesAreWrittenBackUntilReplaced) {
  const auto group = restored<OVGroupGeneral>(archivedAs(
      "OVGroupGeneral",
      {{"title", foreignObject()}, {"subArray", OVString("a")}, {"persons", foreignObject()}}));
  const ArchivedForm form(group);
  EXPECT_TRUE(isForeignObject(form.object("title")));
  EXPECT_EQ(ov::cast<OVString>(form.object("subArray")), "a");
  EXPECT_TRUE(isForeignObject(form.object("persons")));
  group->setTitle("Friends");
  group->setSubArray(nullptr);
  EXPECT_EQ(ArchivedForm(group).keys(), (Keys{"title", "persons"}));
  EXPECT_EQ(restored<OVGroupGeneral>(group)->title(), "Friends");
}

}  // namespace
