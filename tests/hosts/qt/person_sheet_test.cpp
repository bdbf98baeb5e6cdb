#include <QtCore/QDate>
#include <QtCore/QUrl>

#include <OVAddressBookQt/person_sheet.h>
#include <OVAddressBookQt/values.h>
#include <OVAddressBookSDK/date.h>

#include "qt_books.h"

namespace {

class PersonSheet : public QtBooks {
 protected:
  PersonSheet() { sheet_.setPerson(person("a")); }

  QModelIndex row(const QString& property, int which = 0) {
    for (int i = 0; i < sheet_.rowCount(); ++i) {
      if (sheet_.index(i).data(OVPersonSheet::PropertyNameRole) != property) continue;
      if (which-- == 0) return sheet_.index(i);
    }
    return {};
  }

  OVPersonSheet sheet_{&book_};
  Checked checked_{sheet_};
};
OV_ON_EACH_BOOK(PersonSheet);

}  // namespace

TEST_P(PersonSheet, HasARowForEachValue) {
  EXPECT_EQ(shown(sheet_), "Ann Zorn, friends, +44 (55) 50-23, 123");
  EXPECT_EQ(row("Phone").data(OVPersonSheet::LabelRole), "Work");
  EXPECT_FALSE(row("Phone").data(OVPersonSheet::MainRole).toBool());
  EXPECT_TRUE(row("Phone", 1).data(OVPersonSheet::MainRole).toBool());
  EXPECT_EQ(row("Phone").data(OVPersonSheet::URLRole).toUrl(), QUrl("tel:+44555023"));
}

TEST_P(PersonSheet, ValuesLabelsAndMainValuesAreEdited) {
  EXPECT_TRUE(sheet_.setData(row("Phone"), "456"));
  EXPECT_TRUE(sheet_.setData(row("Phone"), "Boat", OVPersonSheet::LabelRole));
  EXPECT_TRUE(sheet_.setData(row("Phone"), true, OVPersonSheet::MainRole));
  EXPECT_EQ(row("Phone").data(), "456");
  EXPECT_EQ(row("Phone").data(OVPersonSheet::LabelRole), "Boat");
  EXPECT_EQ(person("a")->mainPhone()->phoneNumber(), "456");
  for (int i = 0; i < 3; ++i) book_.undoStack().undo();
  EXPECT_EQ(shown(sheet_), "Ann Zorn, friends, +44 (55) 50-23, 123");
  EXPECT_EQ(row("Phone").data(OVPersonSheet::LabelRole), "Work");
  EXPECT_EQ(person("a")->mainPhone()->phoneNumber(), "123");
}

TEST_P(PersonSheet, AnEmptiedValueGoes) {
  EXPECT_TRUE(sheet_.setData(row("Phone", 1), " "));
  EXPECT_TRUE(sheet_.removeRows(row("Phone").row(), 1));
  EXPECT_EQ(shown(sheet_), "Ann Zorn, friends");
  EXPECT_EQ(person("a")->valueByPropertyName(OVProPertyPhone), nullptr);
  book_.undoStack().undo();
  book_.undoStack().undo();
  EXPECT_EQ(shown(sheet_), "Ann Zorn, friends, +44 (55) 50-23, 123");
}

TEST_P(PersonSheet, ValuesAreAdded) {
  EXPECT_EQ(sheet_.addValue("Email", "Home", "ann@example.org"), 4);
  EXPECT_EQ(sheet_.addValue("Email", "", "other"), 5);
  EXPECT_EQ(sheet_.addValue("Nickname", "", "Annie"), 6);
  EXPECT_EQ(sheet_.addValue("Nickname", "", "  "), -1);
  EXPECT_EQ(sheet_.addValue("Birthday", "", QDate(ov::qt::kNoYear, 2, 29)), 7);
  EXPECT_EQ(sheet_.addValue("No property", "", "x"), -1);
  EXPECT_EQ(shown(sheet_),
            "Ann Zorn, friends, +44 (55) 50-23, 123, ann@example.org, other, Annie, February 29");
  EXPECT_EQ(row("Email").data(OVPersonSheet::LabelRole), "Home");
  EXPECT_TRUE(row("Email").data(OVPersonSheet::MainRole).toBool());
}

TEST_P(PersonSheet, EditedFormsComeBackAsTheyWent) {
  sheet_.addValue("Address", "Home",
                  QVariantMap{{"countryCode", "de"},
                              {"OVAddressFieldCity", "B\u00fcsum"},
                              {"OVAddressFieldPostalCode", "25761"}});
  sheet_.addValue("InstantMessage", "",
                  QVariantMap{{"userName", "ann"}, {"service", "JabberInstant"}});
  for (int i = 0; i < sheet_.rowCount(); ++i) {
    const QModelIndex index = sheet_.index(i);
    if (!index.flags().testFlag(Qt::ItemIsEditable)) continue;
    const int steps = book_.undoStack().count();
    EXPECT_TRUE(sheet_.setData(index, index.data(Qt::EditRole))) << index.data().toString();
    EXPECT_EQ(book_.undoStack().count(), steps) << index.data().toString();
  }
  EXPECT_EQ(row("Address").data(), "25761 B\u00fcsum");
}

TEST_P(PersonSheet, ShowsTheNewNameOrder) {
  OVAddressBook::setlastNameInFront(true);
  EXPECT_EQ(sheet_.index(0).data(), "Zorn Ann");
}

TEST_P(PersonSheet, APersonWhoIsRemovedLeavesIt) {
  book_.removePersons({person("a")});
  EXPECT_EQ(sheet_.rowCount(), 0);
  EXPECT_EQ(sheet_.person(), nullptr);
}

TEST_P(PersonSheet, TagsAreReadOnly) {
  EXPECT_FALSE(row("Tags").flags().testFlag(Qt::ItemIsEditable));
  EXPECT_FALSE(sheet_.setData(row("Tags"), "x"));
}

TEST_P(PersonSheet, LeavesOutWhatIsNotReadable) {
  const OVVCardBook* const cards = dynamic_cast<const OVVCardBook*>(book_.book().get());
  if (cards == nullptr) return;
  sheet_.setReadable([](const OVSingleValue&) { return std::nullopt; });
  sheet_.setPerson(person("a"));
  EXPECT_FALSE(row("Other").isValid());
}
