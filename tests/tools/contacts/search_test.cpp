#include <QtWidgets/QLineEdit>

#include <OVAddressBookSDK/address_book.h>

#include "used_window.h"

namespace {

class Searching : public UsedWindow {
 protected:
  QLineEdit* search() { return window_->persons().search(); }
};

}  // namespace

TEST_F(Searching, FindsAsOneTypes) {
  QTest::keyClick(window_.get(), Qt::Key_F, Qt::ControlModifier);
  EXPECT_TRUE(search()->hasFocus());
  QTest::keyClicks(search(), "5550");
  EXPECT_EQ(shownPersons(), QStringList{"Ann Zorn"});
  QTest::keyClick(search(), Qt::Key_Escape);
  EXPECT_EQ(shownPersons().size(), 3);
  QTest::keyClicks(search(), "jur");
  EXPECT_EQ(shownPersons(), QStringList{"J\u00fcrgen"});
  EXPECT_EQ(shownValues(), QStringList{"J\u00fcrgen"});
  QTest::keyClick(search(), Qt::Key_Down);
  EXPECT_TRUE(window_->persons().list()->hasFocus());
}

TEST_F(Searching, KeepsWhoIsLookedAt) {
  lookAt("b");
  QTest::keyClicks(search(), "b");
  EXPECT_EQ(window_->persons().currentPerson()->ID(), "b");
  search()->clear();
  EXPECT_EQ(window_->persons().currentPerson()->ID(), "b");
}

TEST_F(Searching, WhatNobodyMatchesShowsNobody) {
  QTest::keyClicks(search(), "nobody");
  EXPECT_TRUE(shownPersons().isEmpty());
  EXPECT_TRUE(shownValues().isEmpty());
}

TEST_F(Searching, TheNameOrderTakesEffectAtOnce) {
  action("Last Name First").trigger();
  EXPECT_EQ(shownPersons(), (QStringList{"Abel Bob", "J\u00fcrgen", "Zorn Ann"}));
  EXPECT_TRUE(OVAddressBook::lastNameInFront());
  EXPECT_FALSE(window_->isWindowModified());
}

TEST_F(Searching, PersonsAreSortedByCompany) {
  action("Sort by Company").trigger();
  EXPECT_EQ(shownPersons(), (QStringList{"Bob Abel", "Ann Zorn", "J\u00fcrgen"}));
}
