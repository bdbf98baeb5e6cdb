#include <OVAddressBookSDK/tag_manager.h>

#include "qt_books.h"
#include "support/printers.h"

namespace {

class BlockBook : public testing::Test {
 protected:
  OVRef<OVAddressBookGeneral> savedAndRestored() {
    return ov::cast<OVAddressBookGeneral>(
        OVAddressBookGeneral::addressBookWithData(book_->saveData()));
  }
  OVRef<IOVPerson> person(const char* id) {
    return book_->personsForIDs(OVList<OVString>::list({id})).front();
  }

  const FakePlatform platform_;
  const OVRef<OVAddressBook> book_ = blockBook();
};

}  // namespace

TEST_F(BlockBook, ShowsWhatTheGeneralBookHolds) {
  EXPECT_EQ(book_->allPersonsCount(), 3U);
  EXPECT_EQ(book_->rootGroupsCount(), 1U);
  EXPECT_EQ(book_->rootGroups().front()->subGroups().front()->displayName(), "Ebb");
  EXPECT_EQ(book_->tagManager()->tagsByPersonID("a").front(), "friends");
  EXPECT_TRUE(book_->canOprate());
}

TEST_F(BlockBook, SavedUnchangedHasTheSameBytes) {
  const auto before = book_->saveData();
  EXPECT_EQ(OVBlockBook::initWithBook(savedAndRestored())->saveData()->text(), before->text());
}

TEST_F(BlockBook, ChangesAreInTheBlock) {
  book_->tagManager()->addPersonIDForTag("c", "crew");
  book_->tagManager()->removePersonIDFromTag("a", "friends");
  const auto added = book_->newPerson();
  const auto group = book_->addGroupByName("New");
  EXPECT_TRUE(group->addPerson(added));
  book_->removePersons(OVList<IOVPerson>::list({person("b")}));
  const auto again = OVBlockBook::initWithBook(savedAndRestored());
  EXPECT_EQ(again->tagManager()->count(), 1U);
  EXPECT_EQ(again->tagManager()->personIDsByTag("crew").front(), "c");
  EXPECT_EQ(again->allPersonsCount(), 3U);
  EXPECT_EQ(again->groupByID(group->ID())->persons().front()->ID(), added->ID());
  EXPECT_TRUE(again->groupByID("h")->persons().empty());
}

TEST_F(BlockBook, GroupsRefuseRingsStrangersAndDoubles) {
  const auto tide = book_->groupByID("g");
  const auto ebb = book_->groupByID("h");
  EXPECT_FALSE(ebb->addSubGroup(tide));
  EXPECT_FALSE(ebb->addSubGroup(ebb));
  EXPECT_FALSE(tide->addSubGroup(ebb));
  EXPECT_FALSE(tide->addPerson(person("a")));
  EXPECT_FALSE(tide->addPerson(nullptr));
  EXPECT_FALSE(tide->addPerson(OVPersonGeneral::initWithID("a")));
  EXPECT_FALSE(tide->removePerson(person("c")));
  EXPECT_TRUE(tide->removeSubGroup(ebb));
  EXPECT_EQ(book_->rootGroupsCount(), 2U);
  EXPECT_FALSE(book_->removeGroup(nullptr));
}

TEST_F(BlockBook, GroupsInARingAreShownOnce) {
  const auto general = OVAddressBookGeneral::init();
  for (const auto& [id, below] : {std::pair("1", "2"), std::pair("2", "1")}) {
    const auto record = OVGroupGeneral::init();
    record->setSubArray(OVList<OVString>::list({below}));
    general->groupsDic().set(id, record);
  }
  EXPECT_EQ(OVBlockBook::initWithBook(general)->rootGroupsCount(), 1U);
}

TEST_F(BlockBook, ATakenIDIsReplaced) {
  const auto copy = book_->addOneFromOtherPerson(OVPersonGeneral::initWithID("a"));
  EXPECT_NE(copy->ID(), "a");
  EXPECT_EQ(book_->allPersonsCount(), 4U);
  EXPECT_EQ(book_->addOneFromOtherPerson(OVPersonGeneral::initWithID("free"))->ID(), "free");
}

TEST_F(BlockBook, OfNullIsNull) { EXPECT_EQ(OVBlockBook::initWithBook(nullptr), nullptr); }
