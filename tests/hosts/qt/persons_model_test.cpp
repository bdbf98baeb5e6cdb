#include "qt_books.h"

namespace {

class PersonsModel : public QtBooks {
 protected:
  OVPersonsModel model_{&book_};
  Checked checked_{model_};
};
OV_ON_EACH_BOOK(PersonsModel);

}  // namespace

TEST_P(PersonsModel, ShowsPersonsByName) {
  EXPECT_EQ(shown(model_), "Ann Zorn, Bob Abel, J\u00fcrgen");
}

TEST_P(PersonsModel, FollowsTheNameOrder) {
  OVAddressBook::setlastNameInFront(true);
  EXPECT_EQ(shown(model_), "Abel Bob, J\u00fcrgen, Zorn Ann");
}

TEST_P(PersonsModel, OrdersByCompanyOrNotAtAll) {
  model_.setOrder(OVPersonOrder::Company);
  EXPECT_EQ(shown(model_), "Bob Abel, Ann Zorn, J\u00fcrgen");
  name(person("a"), "Zoe", nullptr);
  model_.setOrder(OVPersonOrder::None);
  EXPECT_EQ(shown(model_), "Zoe, Bob Abel, J\u00fcrgen");
}

TEST_P(PersonsModel, APersonMovesToThePlaceOfItsNewName) {
  name(person("a"), "Karl", nullptr);
  EXPECT_EQ(shown(model_), "Bob Abel, J\u00fcrgen, Karl");
  name(person("a"), "Aa", nullptr);
  EXPECT_EQ(shown(model_), "Aa, Bob Abel, J\u00fcrgen");
}

TEST_P(PersonsModel, PersonsComeAndGo) {
  const auto added = book_.addPerson();
  name(added, "Carl", nullptr);
  EXPECT_EQ(shown(model_), "Ann Zorn, Bob Abel, Carl, J\u00fcrgen");
  book_.removePersons({person("b"), added});
  EXPECT_EQ(shown(model_), "Ann Zorn, J\u00fcrgen");
}

TEST_P(PersonsModel, HasARoleForEachThingThatAListShows) {
  const QModelIndex ann = model_.index(0);
  EXPECT_EQ(ann.data(OVPersonsModel::IDRole), "a");
  EXPECT_EQ(ann.data(OVPersonsModel::MainPhoneRole), "123");
  EXPECT_EQ(ann.data(OVPersonsModel::MainEmailRole), "");
  EXPECT_TRUE(ann.data(OVPersonsModel::ThumbnailRole).toByteArray().isNull());
  const QModelIndex bob = model_.index(1);
  EXPECT_EQ(bob.data(OVPersonsModel::CompanyRole), "Ebb");
  EXPECT_EQ(bob.data(OVPersonsModel::MainEmailRole), "bob@ebb.example");
  EXPECT_LT(ann.data(OVPersonsModel::SortKeyRole).toByteArray(),
            bob.data(OVPersonsModel::SortKeyRole).toByteArray());
  EXPECT_EQ(model_.roleNames().value(OVPersonsModel::MainPhoneRole), "mainPhone");
}

TEST_P(PersonsModel, WithoutABookIsEmpty) {
  model_.setBook(nullptr);
  EXPECT_EQ(model_.rowCount(), 0);
  auto shortLived = std::make_unique<OVQtBook>(cardBook());
  model_.setBook(shortLived.get());
  EXPECT_EQ(model_.rowCount(), 3);
  shortLived.reset();
  EXPECT_EQ(model_.rowCount(), 0);
}
