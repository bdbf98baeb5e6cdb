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

TEST_P(GroupsModel, AGroupInTwoOthersStandsInBoth) {
  const auto other = book_.addGroup("Other", nullptr);
  other->addSubGroup(group("h"));
  emit book_.groupsChanged();
  EXPECT_EQ(shown(model_), "All Contacts, Groups[Tide[Ebb], Other[Ebb]], Tags[friends]");
}
