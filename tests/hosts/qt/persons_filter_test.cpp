#include <QtCore/QMimeData>

#include "qt_books.h"

namespace {

class PersonsFilter : public QtBooks {
 protected:
  OVPersonsModel model_{&book_};
  OVPersonsFilter filter_{&model_};
  Checked checked_{filter_};
};
OV_ON_EACH_BOOK(PersonsFilter);

}  // namespace

TEST_P(PersonsFilter, FindsAsOneTypes) {
  filter_.setText("j");
  EXPECT_EQ(shown(filter_), "J\u00fcrgen");
  filter_.setText("ju");
  EXPECT_EQ(shown(filter_), "J\u00fcrgen");
  filter_.setText("jux");
  EXPECT_EQ(shown(filter_), "");
  filter_.setText("");
  EXPECT_EQ(shown(filter_), "Ann Zorn, Bob Abel, J\u00fcrgen");
}

TEST_P(PersonsFilter, FindsNumbersCompaniesAndMails) {
  filter_.setText("5550");
  EXPECT_EQ(shown(filter_), "Ann Zorn");
  filter_.setText("ebb");
  EXPECT_EQ(shown(filter_), "Bob Abel");
}

TEST_P(PersonsFilter, ShowsAGroupWithItsSubGroups) {
  filter_.setGroup(group("g"));
  EXPECT_EQ(shown(filter_), "Ann Zorn, Bob Abel");
  filter_.setGroup(group("h"));
  EXPECT_EQ(shown(filter_), "Bob Abel");
  filter_.setEverybody();
  EXPECT_EQ(filter_.rowCount(), 3);
}

TEST_P(PersonsFilter, ShowsChosenPersons) {
  filter_.setPersons(book_.book()->tagManager()->personIDsByTag("friends"));
  EXPECT_EQ(shown(filter_), "Ann Zorn");
  filter_.setText("bob");
  EXPECT_EQ(shown(filter_), "");
}

TEST_P(PersonsFilter, PersonsEnterAndLeaveAsTheyChange) {
  filter_.setText("zorn");
  EXPECT_EQ(shown(filter_), "Ann Zorn");
  name(person("b"), "Bob", "Zorn");
  EXPECT_EQ(shown(filter_), "Ann Zorn, Bob Zorn");
  name(person("a"), "Ann", "Abel");
  EXPECT_EQ(shown(filter_), "Bob Zorn");
}

TEST_P(PersonsFilter, MapsBothWays) {
  filter_.setText("b");  // Bob Abel
  const QModelIndex bob = filter_.index(0, 0);
  EXPECT_EQ(filter_.mapToSource(bob), model_.index(1));
  EXPECT_EQ(filter_.mapFromSource(model_.index(1)), bob);
  EXPECT_FALSE(filter_.mapFromSource(model_.index(0)).isValid());
  EXPECT_EQ(filter_.rowOf(person("b")), 0);
  EXPECT_EQ(filter_.rowOf(person("a")), -1);
  EXPECT_EQ(filter_.personAt(7), nullptr);
}

TEST_P(PersonsFilter, DraggedPersonsAreTheirIDs) {
  const std::unique_ptr<QMimeData> data(
      filter_.mimeData({filter_.index(0, 0), filter_.index(2, 0)}));
  EXPECT_EQ(data->data(OVPersonsFilter::kMimeType), "a\nc\n");
}
