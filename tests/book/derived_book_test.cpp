#include <gtest/gtest.h>

#include <OVAddressBookSDK/address_book_general.h>
#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>
#include <OVAddressBookSDK/tag_manager.h>

#include "book/host_persons.h"
#include "support/archive/archived_fields.h"
#include "support/printers.h"
#include "support/values.h"

namespace {

/// A host's own kind of general book, with a field of its own in the archive.
class TeamBook : public OVAddressBookGeneral {
 public:
  OVString team;

  static const OVClass& archivedClass() {
    static const OVClass record{"TestTeamBook", &OVAddressBookGeneral::archivedClass(),
                                [] { return OVRef<OVObject>(std::make_shared<TeamBook>()); }};
    return record;
  }
  const OVClass* classForCoder() const override { return &archivedClass(); }
  void encodeWithCoder(OVKeyedArchiver& coder) const override {
    OVAddressBookGeneral::encodeWithCoder(coder);
    coder.encodeObjectForKey(team, "team");
  }
  void initWithCoder(OVKeyedUnarchiver& coder) override {
    OVAddressBookGeneral::initWithCoder(coder);
    team = coder.decodeStringForKey("team");
  }
};

/// A host's own kind of general person.
class TeamPerson : public OVPersonGeneral {
 public:
  explicit TeamPerson(OVString ID) : OVPersonGeneral(std::move(ID)) {}
  TeamPerson() = default;
};

class TeamGroup : public OVGroupGeneral {};

class TeamTags : public OVTagManager {};

TEST(DerivedBook, IsAnEmptyBookThatTakesPersonsAndGroups) {
  const auto book = std::make_shared<TeamBook>();
  EXPECT_TRUE(book->personsDic().empty());
  book->addPerson(hostPerson("p"));
  book->addGroup(hostGroup("g"));
  EXPECT_TRUE(book->personsDic().contains("p"));
  EXPECT_TRUE(book->groupsDic().contains("g"));
}

TEST(DerivedBook, ComesBackAsItsOwnClassWithItsContent) {
  OVKeyedUnarchiver::registerClass(TeamBook::archivedClass());
  const auto book = std::make_shared<TeamBook>();
  book->team = "Harbour";
  book->addPerson(hostPerson("p"));
  const auto again =
      ov::cast<TeamBook>(OVAddressBookGeneral::addressBookWithData(book->saveToData()));
  ASSERT_NE(again, nullptr);
  EXPECT_EQ(again->team, "Harbour");
  EXPECT_TRUE(again->personsDic().contains("p"));
}

TEST(DerivedBook, WithoutDictionariesInItsArchiveHasNone) {
  OVKeyedUnarchiver::registerClass(TeamBook::archivedClass());
  const auto book = restored<TeamBook>(archivedAs("TestTeamBook", {}));
  EXPECT_TRUE(book->personsDic().isNull());
  book->addPerson(hostPerson("p"));
  EXPECT_TRUE(book->personsDic().isNull());
}

TEST(DerivedPerson, IsMadeWithItsID) {
  const auto person = std::make_shared<TeamPerson>("p");
  EXPECT_EQ(person->ID(), "p");
  EXPECT_TRUE(person->notNullValueProperty().empty());
  ASSERT_NE(person->tagArray(), nullptr);
  person->setTags(OVList<OVString>::list({"Friend"}));
  EXPECT_EQ(person->tagArray().size(), 1U);
  EXPECT_EQ(std::make_shared<TeamPerson>(nullptr)->ID(), nullptr);
  EXPECT_EQ(std::make_shared<TeamPerson>()->ID(), nullptr);
}

TEST(DerivedPerson, EntersABookLikeAnyOther) {
  const auto person = std::make_shared<TeamPerson>("p");
  const auto note = textValue("x");
  person->setValueByPropertyName(note, OVProPertyNote);
  const auto book = std::make_shared<TeamBook>();
  book->addPerson(person);
  EXPECT_EQ(book->personsDic()["p"]->valueByPropertyName(OVProPertyNote), note);
  EXPECT_EQ(restored<OVPersonGeneral>(person)->ID(), "p");
}

TEST(DerivedGroupAndTags, AreEmptyAndTakeThings) {
  const auto group = std::make_shared<TeamGroup>();
  group->setTitle("Team");
  EXPECT_EQ(restored<OVGroupGeneral>(group)->title(), "Team");
  const auto tags = std::make_shared<TeamTags>();
  tags->addPersonIDForTag("p", "Friend");
  EXPECT_EQ(tags->count(), 1U);
}

TEST(UnownedTags, SayHowTheyCanBeSaved) {
  TeamTags onTheStack;
  onTheStack.addPersonIDForTag("p", "Friend");
  onTheStack.setTagID("team");
  try {
    onTheStack.save();
    FAIL() << "saved";
  } catch (const std::logic_error& error) {
    EXPECT_THAT(error.what(), testing::HasSubstr("std::make_shared"));
  }
}

TEST(UnownedBook, SaysHowItCanBeSaved) {
  TeamBook onTheStack;
  const auto unique = std::make_unique<TeamBook>();
  for (const OVAddressBookGeneral* book : {&onTheStack, unique.get()}) {
    try {
      static_cast<void>(book->saveToData());
      FAIL() << "saved";
    } catch (const std::logic_error& error) {
      EXPECT_THAT(error.what(), testing::HasSubstr("std::make_shared"));
    }
  }
  onTheStack.addPerson(hostPerson("p"));
  EXPECT_EQ(onTheStack.personsDic().size(), 1U);
}

}  // namespace
