#include <QtCore/QMimeData>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>

#include <OVAddressBookSDK/tag_manager.h>

#include "used_window.h"

namespace {

class Grouping : public UsedWindow {
 protected:
  ovcontacts::GroupsPane& groups() { return window_->groups(); }
  std::unique_ptr<QMimeData> dragged(int row) {
    auto* const model = window_->persons().list()->model();
    return std::unique_ptr<QMimeData>(model->mimeData({model->index(row, 0)}));
  }
};

}  // namespace

TEST_F(Grouping, AGroupChoosesThePersons) {
  groups().select(OVGroupsModel::Group, "g");
  EXPECT_EQ(shownPersons(), QStringList{"Ann Zorn"});
  groups().select(OVGroupsModel::Tag, "friends");
  EXPECT_EQ(shownPersons(), QStringList{"Ann Zorn"});
  groups().selectEverybody();
  EXPECT_EQ(shownPersons().size(), 3);
}

TEST_F(Grouping, ANewGroupIsNamedByTyping) {
  action("New Group").trigger();
  auto* const name = groups().findChild<QLineEdit*>();
  ASSERT_NE(name, nullptr);
  QTest::keyClicks(name, "Sailors");
  QTest::keyClick(name, Qt::Key_Return);
  until([&] { return groups().currentIndex().data() == "Sailors"; });
  EXPECT_EQ(groups().currentIndex().data(), "Sailors");
}

TEST_F(Grouping, DraggedPersonsJoinTheGroup) {
  const QModelIndex tide = groups().model()->match(groups().model()->index(0, 0), Qt::DisplayRole,
                                                   "Tide", 1, Qt::MatchRecursive)[0];
  drop(*groups().viewport(), *dragged(1), groups().visualRect(tide).center());
  groups().setCurrentIndex(tide);
  EXPECT_EQ(shownPersons(), (QStringList{"Ann Zorn", "Bob Abel"}));
  window_->persons().select(window_->document().book()->personWithID("b"));
  action("Remove from Group or Tag").trigger();
  EXPECT_EQ(shownPersons(), QStringList{"Ann Zorn"});
}

TEST_F(Grouping, DraggedPersonsAreCards) {
  EXPECT_TRUE(dragged(1)->data("text/vcard").contains("FN:Bob Abel"));
}

TEST_F(Grouping, DraggedPersonsAreAFileForFileManagers) {
  const auto data = dragged(1);
  ASSERT_TRUE(data->hasUrls());
  const QUrl url = data->urls().front();
  EXPECT_EQ(url.fileName(), "Bob Abel.vcf");
  EXPECT_EQ(content(url.toLocalFile().toStdString()), data->data("text/vcard").toStdString());
  EXPECT_EQ(data->data("text/uri-list"), url.toEncoded() + "\r\n");
}

TEST_F(Grouping, DroppedCardsAreAddedAsOneChange) {
  QMimeData cards;
  cards.setData("text/vcard",
                "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:Carl\r\nN:;Carl;;;\r\nEND:VCARD\r\n"
                "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:Dora\r\nN:;Dora;;;\r\nEND:VCARD\r\n");
  drop(*window_, cards, {300, 300});
  EXPECT_EQ(shownPersons(), (QStringList{"Ann Zorn", "Bob Abel", "Carl", "Dora", "J\u00fcrgen"}));
  window_->document().book()->undoStack().undo();
  EXPECT_EQ(shownPersons().size(), 3);
}

TEST_F(Grouping, DroppedFilesOfCardsAreAddedAsOneChange) {
  QMimeData files;
  files.setUrls({QUrl::fromLocalFile(QString::fromStdString(
                     file("1.vcf", "BEGIN:VCARD\r\nVERSION:4.0\r\nN:;Carl;;;\r\nEND:VCARD\r\n"))),
                 QUrl::fromLocalFile(QString::fromStdString(
                     file("2.vcf", "BEGIN:VCARD\r\nVERSION:4.0\r\nN:;Dora;;;\r\nEND:VCARD\r\n")))});
  drop(*window_, files, {300, 300});
  until([&] { return shownPersons().size() == 5; });
  EXPECT_EQ(window_->document().title(), "contacts.vcf");
  window_->document().book()->undoStack().undo();
  EXPECT_EQ(shownPersons().size(), 3);
}

TEST_F(Grouping, ADroppedBlockIsOpened) {
  const std::string path = folder_.at("whole.ovbook");
  saveAs(path);
  openFile(path_);
  QMimeData files;
  files.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
  drop(*window_, files, {300, 300});
  until([&] { return window_->document().title() == "whole.ovbook"; });
}

TEST_F(Grouping, ATagIsTyped) {
  lookAt("c");
  whenAsked([](QDialog& dialog) {
    dialog.findChild<QComboBox*>()->setEditText("crew");
    press(dialog, "OK");
  });
  action("Add Tag").trigger();
  comeBack();
  groups().select(OVGroupsModel::Tag, "crew");
  EXPECT_EQ(shownPersons(), QStringList{"J\u00fcrgen"});
  groups().setFocus();
  QTest::keyClick(&groups(), Qt::Key_Delete);
  EXPECT_EQ(shownPersons().size(), 3);
  EXPECT_EQ(window_->document().book()->book()->tagManager()->count(), 1U);
}
