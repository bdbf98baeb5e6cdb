#include <QtWidgets/QLineEdit>

#include "used_window.h"

namespace {

class Editing : public UsedWindow {};

}  // namespace

TEST_F(Editing, ANewContactIsTypedIn) {
  whenAsked([](QDialog& dialog) {
    type(dialog, "Carla");
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
    type(dialog, "Moor");
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  QTest::keyClick(window_.get(), Qt::Key_N, Qt::ControlModifier);
  EXPECT_EQ(shownPersons(), (QStringList{"Ann Zorn", "Bob Abel", "Carla Moor", "J\u00fcrgen"}));
  EXPECT_EQ(shownValues(), QStringList{"Carla Moor"});
  EXPECT_TRUE(window_->isWindowModified());
}

TEST_F(Editing, ValuesAreAddedWithTheirLabels) {
  lookAt("b");
  whenAsked([](QDialog& dialog) {
    type(dialog, "+49 30 1");
    press(dialog, "OK");
  });
  window_->sheet().addValue("Phone");
  EXPECT_EQ(shownValues(), (QStringList{"Bob Abel", "Ebb", "+49 30 1", "bob@ebb.example"}));
  EXPECT_EQ(valueRow("+49 30 1").data(OVPersonSheet::LabelRole), "Mobile");
}

TEST_F(Editing, AValueIsEditedByKeys) {
  lookAt("a");
  auto* const list = window_->sheet().list();
  list->setFocus();
  list->setCurrentIndex(valueRow("123"));
  whenAsked([](QDialog& dialog) {
    qobject_cast<QLineEdit*>(dialog.focusWidget())->selectAll();
    type(dialog, "456");
    press(dialog, "OK");
  });
  QTest::keyClick(list, Qt::Key_Return);
  comeBack();
  EXPECT_TRUE(valueRow("456").isValid());
  EXPECT_TRUE(valueRow("456").data(OVPersonSheet::MainRole).toBool());
  QTest::keyClick(list, Qt::Key_Delete);
  EXPECT_FALSE(valueRow("456").isValid());
  QTest::keyClick(window_.get(), Qt::Key_Z, Qt::ControlModifier);
  QTest::keyClick(window_.get(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(valueRow("123").isValid());
  EXPECT_FALSE(window_->isWindowModified());
}

TEST_F(Editing, ACancelledDialogChangesNothing) {
  lookAt("a");
  window_->sheet().list()->setCurrentIndex(valueRow("123"));
  whenAsked([](QDialog& dialog) {
    type(dialog, "4");
    press(dialog, "Cancel");
  });
  action("Edit Value").trigger();
  EXPECT_FALSE(window_->isWindowModified());
}

TEST_F(Editing, ADialogThatIsLeftAsItIsChangesNothing) {
  for (const char* const name : {"a", "b"}) {
    lookAt(name);
    for (int row = 0; row < window_->sheet().list()->model()->rowCount(); ++row) {
      window_->sheet().list()->setCurrentIndex(window_->sheet().list()->model()->index(row, 0));
      whenAsked([](QDialog& dialog) { press(dialog, "OK"); });
      action("Edit Value").trigger();
      EXPECT_FALSE(window_->isWindowModified()) << row;
    }
  }
}

TEST_F(Editing, TheMainValueIsChosen) {
  lookAt("a");
  window_->sheet().list()->setCurrentIndex(valueRow("+44 (55) 50-23"));
  action("Make It the Main One").trigger();
  EXPECT_EQ(window_->persons().currentPerson()->mainPhone()->phoneNumber(), "+44 (55) 50-23");
}

TEST_F(Editing, DeletedContactsComeBackWhenItIsUndone) {
  auto* const list = window_->persons().list();
  lookAt("b");
  list->setFocus();
  QTest::keyClick(list, Qt::Key_Delete);
  EXPECT_EQ(shownPersons(), (QStringList{"Ann Zorn", "J\u00fcrgen"}));
  QTest::keyClick(window_.get(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(shownPersons(), (QStringList{"Ann Zorn", "Bob Abel", "J\u00fcrgen"}));
}

TEST_F(Editing, AClickOnALinkOpensIt) {
  lookAt("a");
  auto* const viewport = window_->sheet().list()->viewport();
  const QModelIndex phone = valueRow("+44 (55) 50-23");
  QTest::mouseClick(viewport, Qt::LeftButton, {}, pointOn(phone));
  EXPECT_EQ(opened_.urls, std::vector<QUrl>{QUrl("tel:+44555023")});
  QTest::mouseClick(viewport, Qt::LeftButton, {},
                    window_->sheet().list()->visualRect(phone).topLeft() + QPoint(20, 5));
  EXPECT_EQ(opened_.urls.size(), 1U);
  action("Open It").trigger();
  EXPECT_EQ(opened_.urls.size(), 2U);
}

TEST_F(Editing, MailsAndChatsGoThroughTheDesktop) {
  lookAt("b");
  window_->sheet().sheet()->addValue(
      "InstantMessage", "", QVariantMap{{"userName", "bob@ebb.example"}, {"service", "Jabber"}});
  for (int row = 0; row < window_->sheet().sheet()->rowCount(); ++row) {
    window_->sheet().list()->setCurrentIndex(window_->sheet().sheet()->index(row));
    action("Open It").trigger();
  }
  EXPECT_EQ(opened_.urls,
            (std::vector<QUrl>{QUrl("mailto:bob@ebb.example"), QUrl("xmpp:bob@ebb.example")}));
}

TEST_F(Editing, WhatNothingOpensIsTold) {
  emit window_->sheet().urlOpened(QUrl("nothing-opens:this"));
  EXPECT_EQ(message(),
            "\u201cnothing-opens:this\u201d could not be opened. "
            "No program on this computer can open it.");
}

TEST_F(Editing, OrganizationsAreSuchByAnAction) {
  lookAt("b");
  action("Is an Organization").trigger();
  EXPECT_TRUE(shownPersons().contains("Ebb"));
  action("Is an Organization").trigger();
  EXPECT_TRUE(shownPersons().contains("Bob Abel"));
}

TEST_F(Editing, WhatIsNotThereCannotBeRemoved) {
  const auto property = OVProPertyThumbnail;
  EXPECT_EQ(window_->persons().currentPerson()->valueByPropertyName(property), nullptr);
  EXPECT_FALSE(action("Remove Picture").isEnabled());
}
