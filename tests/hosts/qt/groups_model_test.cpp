#include <QtCore/QMimeData>

#include <OVAddressBookQt/groups_model.h>

#include "qt_books.h"

namespace {

class GroupsModel : public QtBooks {
 protected:
  QModelIndex at(OVGroupsModel::Kind kind, const QString& id) { return model_.find(kind, id); }

  OVGroupsModel model_{&book_};
  Checked checked_{model_};
};
OV_ON_EACH_BOOK(GroupsModel);

}  // namespace

TEST_P(GroupsModel, ShowsGroupsAndTagsAsATree) {
  EXPECT_EQ(shown(model_), "All Contacts, Groups[Tide[Ebb]], Tags[friends]");
}

TEST_P(GroupsModel, GroupsComeGoAndGetNames) {
  const auto made = book_.addGroup("New", group("g"));
  EXPECT_EQ(shown(model_), "All Contacts, Groups[Tide[Ebb, New]], Tags[friends]");
  book_.addGroup("Other", nullptr);
  EXPECT_EQ(shown(model_), "All Contacts, Groups[Tide[Ebb, New], Other], Tags[friends]");
  EXPECT_TRUE(book_.renameGroup(made, "Newer"));
  book_.removeGroup(group("g"));
  EXPECT_EQ(shown(model_), "All Contacts, Groups[Ebb, Newer, Other], Tags[friends]");
}

TEST_P(GroupsModel, TagsComeAndGo) {
  book_.addTag("sailors", {person("b"), person("c")});
  EXPECT_EQ(shown(model_), "All Contacts, Groups[Tide[Ebb]], Tags[friends, sailors]");
  book_.removeTag("friends", {person("a")});
  book_.removeTag("sailors", {person("b")});
  EXPECT_EQ(shown(model_), "All Contacts, Groups[Tide[Ebb]], Tags[sailors]");
}

TEST_P(GroupsModel, NamesAreEditedInPlace) {
  EXPECT_TRUE(model_.setData(at(OVGroupsModel::Group, "g"), "Flood"));
  EXPECT_TRUE(model_.setData(at(OVGroupsModel::Tag, "friends"), "crew"));
  EXPECT_FALSE(model_.setData(at(OVGroupsModel::Everybody, {}), "x"));
  EXPECT_FALSE(model_.setData(at(OVGroupsModel::Group, "g"), " "));
  EXPECT_EQ(shown(model_), "All Contacts, Groups[Flood[Ebb]], Tags[crew]");
  book_.undoStack().undo();
  book_.undoStack().undo();
  EXPECT_EQ(shown(model_), "All Contacts, Groups[Tide[Ebb]], Tags[friends]");
}

TEST_P(GroupsModel, DroppedPersonsJoin) {
  QMimeData data;
  data.setData(OVPersonsFilter::kMimeType, "c\nnobody\n");
  const auto drop = [&](const QModelIndex& on) {
    return model_.dropMimeData(&data, Qt::CopyAction, -1, -1, on);
  };
  EXPECT_TRUE(drop(at(OVGroupsModel::Group, "h")));
  EXPECT_TRUE(group("h")->persons().contains(person("c")));
  EXPECT_FALSE(drop(at(OVGroupsModel::Group, "h")));
  EXPECT_TRUE(drop(at(OVGroupsModel::Tag, "friends")));
  EXPECT_TRUE(book_.book()->tagManager()->personIDsByTag("friends").contains("c"));
  EXPECT_FALSE(drop(at(OVGroupsModel::Everybody, {})));
}

TEST_P(GroupsModel, AGroupInTwoOthersIsInBoth) {
  const auto other = book_.addGroup("Other", nullptr);
  other->addSubGroup(group("h"));
  emit book_.groupsChanged();
  EXPECT_EQ(shown(model_), "All Contacts, Groups[Tide[Ebb], Other[Ebb]], Tags[friends]");
}

namespace {

/// A book of groups, the first ones on top, each in those above it.
OVRef<OVAddressBook> bookOfLevels(int levels, int groupsOfEach) {
  const auto general = OVAddressBookGeneral::init();
  general->addPerson(OVPersonGeneral::initWithID("p"));
  auto below = OVList<OVString>::list();
  for (int level = levels; level-- > 0;) {
    auto here = OVList<OVString>::list();
    for (int i = 0; i < groupsOfEach; ++i) {
      const std::string id = std::to_string(level) + "." + std::to_string(i);
      const auto group = OVGroupGeneral::init();
      group->setTitle(id);
      group->setSubArray(below);
      if (level == levels - 1) group->setPersons(OVList<OVString>::list({"p"}));
      general->groupsDic().set(id, group);
      here.push_back(id);
    }
    below = here;
  }
  return OVBlockBook::initWithBook(general);
}

int rowsBelow(const QAbstractItemModel& model, const QModelIndex& parent = {}) {
  int rows = 0;
  std::vector<QModelIndex> open{parent};
  while (!open.empty()) {
    const QModelIndex index = open.back();
    open.pop_back();
    for (int row = 0; row < model.rowCount(index); ++row, ++rows) {
      open.push_back(model.index(row, 0, index));
    }
  }
  return rows;
}

}  // namespace

TEST(GroupsOfManyPaths, MakeNoMoreRowsThanCanBeShown) {
  const FakePlatform platform;
  OVQtBook book(bookOfLevels(40, 2));
  const OVGroupsModel model(&book);
  const QModelIndex groups = model.find(OVGroupsModel::Groups, {});
  EXPECT_EQ(model.rowCount(groups), 2);
  EXPECT_EQ(rowsBelow(model, groups), 20000);
}

TEST(GroupsOfManyLevels, AreShownAsDeepAsAnybodyLooks) {
  const FakePlatform platform;
  OVQtBook book(bookOfLevels(20000, 1));
  const OVGroupsModel model(&book);
  EXPECT_EQ(rowsBelow(model, model.find(OVGroupsModel::Groups, {})), 100);
}

TEST(GroupsOfManyLevels, HaveTheMembersOfAll) {
  const FakePlatform platform;
  for (const auto& [levels, groups] : {std::pair(20000, 1), std::pair(40, 2)}) {
    OVQtBook book(bookOfLevels(levels, groups));
    OVPersonsModel persons(&book);
    OVPersonsFilter filter(&persons);
    filter.setGroup(book.book()->groupByID("0.0"));
    EXPECT_EQ(filter.rowCount(), 1) << levels;
  }
}
