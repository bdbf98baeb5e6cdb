#include <gtest/gtest.h>

#include <OVAddressBookSDK/address_book_general.h>
#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "book/host_persons.h"
#include "support/archive/archived_fields.h"
#include "support/printers.h"
#include "support/values.h"

namespace {

using Keys = std::vector<OVString>;

OVRef<OVAddressBookGeneral> reopened(const OVRef<OVAddressBookGeneral>& book) {
  return ov::cast<OVAddressBookGeneral>(
      OVAddressBookGeneral::addressBookWithData(book->saveToData()));
}

OVRef<OVAddressBookGeneral> smallBook() {
  auto book = OVAddressBookGeneral::init();
  for (const char* ID : {"p", "q"}) {
    const auto person = hostPerson(ID);
    person->setValueByPropertyName(textValue(ID), OVProPertyNote);
    book->addPerson(person);
  }
  const auto group = hostGroup("g", "Friends");
  group->members.push_back(hostPerson("q"));
  group->groupsInside.push_back(hostGroup("h"));
  book->addGroup(group);
  return book;
}

TEST(GeneralBookArchive, NewBookComesBackWithTwoEmptyDictionaries) {
  const auto book = reopened(OVAddressBookGeneral::init());
  ASSERT_NE(book, nullptr);
  ASSERT_NE(book->personsDic(), nullptr);
  ASSERT_NE(book->groupsDic(), nullptr);
  EXPECT_TRUE(book->personsDic().empty());
  EXPECT_TRUE(book->groupsDic().empty());
}

TEST(GeneralBookArchive, RootIsTheBookWithItsTwoDictionaries) {
  const auto book = smallBook();
  const ArchivedForm form(book);
  EXPECT_EQ(form.classes(), (Keys{"OVAddressBookGeneral", "OVAddressBook", "NSObject"}));
  EXPECT_EQ(form.keys(), (Keys{"personDic", "groupDic"}));
  const auto persons = ov::cast<OVDictionary<OVOpaqueObject>>(form.object("personDic"));
  ASSERT_EQ(persons.size(), 2U);
  EXPECT_FALSE(persons.isImmutable());
  EXPECT_EQ(persons["q"]->className(), "OVPersonGeneral");
  const auto groups = ov::cast<OVDictionary<OVOpaqueObject>>(form.object("groupDic"));
  EXPECT_FALSE(groups.isImmutable());
  EXPECT_EQ(groups["g"]->className(), "OVGroupGeneral");
  EXPECT_EQ(book->saveToData()->text(), OVKeyedArchiver::archivedDataWithRootObject(book)->text());
}

TEST(GeneralBookArchive, PersonsAndGroupsComeBackUnderTheirIDs) {
  const auto book = reopened(smallBook());
  ASSERT_EQ(book->personsDic().size(), 2U);
  const auto person = book->personsDic()["q"];
  ASSERT_NE(person, nullptr);
  EXPECT_EQ(person->ID(), "q");
  const auto note = ov::cast<OVSingleValue>(person->valueByPropertyName(OVProPertyNote));
  EXPECT_EQ(ov::cast<OVString>(note->value()), "q");
  const auto group = book->groupsDic()["g"];
  ASSERT_NE(group, nullptr);
  EXPECT_EQ(group->ID(), nullptr);
  EXPECT_EQ(group->title(), "Friends");
  EXPECT_EQ(group->persons()[0], "q");
  EXPECT_EQ(group->subArray()[0], "h");
}

TEST(GeneralBookArchive, RestoredBookTakesMorePersonsAndGroups) {
  const auto book = reopened(smallBook());
  book->addPerson(hostPerson("r"));
  book->addGroup(hostGroup("h"));
  EXPECT_EQ(book->personsDic().size(), 3U);
  EXPECT_EQ(reopened(book)->groupsDic().size(), 2U);
}

TEST(GeneralBookArchive, PersonInBothDictionariesIsOneObject) {
  const auto book = OVAddressBookGeneral::init();
  const auto person = OVPersonGeneral::initWithID("p");
  book->personsDic().set("p", person);
  book->personsDic().set("alias", person);
  const auto again = reopened(book);
  ASSERT_NE(again->personsDic()["p"], nullptr);
  EXPECT_EQ(again->personsDic()["p"], again->personsDic()["alias"]);
}

TEST(GeneralBookArchive, PersonInTwoDictionariesComesBackAsOne) {
  const auto person = OVPersonGeneral::initWithID("p");
  const auto one = OVDictionary<OVPersonGeneral>::dictionary({{"p", person}});
  const auto other = OVDictionary<OVPersonGeneral>::dictionary({{"q", person}});
  const auto both = restored<OVList<OVDictionary<OVPersonGeneral>>>(
      OVList<OVDictionary<OVPersonGeneral>>::list({one, other}));
  const auto restoredPerson = (both[0])["p"];
  ASSERT_NE(restoredPerson, nullptr);
  EXPECT_EQ(restoredPerson, (both[1])["q"]);
}

TEST(GeneralBookArchive, BookMayContainItself) {
  const auto book = OVAddressBookGeneral::init();
  const auto person = OVPersonGeneral::initWithID("p");
  const auto value = valueOf(OVValueTypeString, book);
  person->setValueByPropertyName(value, OVProPertyOther);
  book->addPerson(person);
  const auto again = reopened(book);
  const auto inner = ov::cast<OVMutableSingleValue>(
      again->personsDic()["p"]->valueByPropertyName(OVProPertyOther));
  EXPECT_EQ(inner->value(), again);
  value->setValue(nullptr);
  inner->setValue(nullptr);
}

TEST(GeneralBookArchive, LabelSharedByTwoPersonsComesBackAsOne) {
  const auto book = OVAddressBookGeneral::init();
  const auto label = labelOf("home");
  for (const char* ID : {"p", "q"}) {
    const auto person = OVPersonGeneral::initWithID(ID);
    person->setValueByPropertyName(valueOf(OVValueTypeNote, OVString(ID), label), OVProPertyNote);
    book->addPerson(person);
  }
  const auto again = reopened(book);
  const auto labelIn = [&](const char* ID) {
    const auto person = again->personsDic()[ID];
    return ov::cast<OVSingleValue>(person->valueByPropertyName(OVProPertyNote))->label();
  };
  ASSERT_NE(labelIn("p"), nullptr);
  EXPECT_EQ(labelIn("p"), labelIn("q"));
}

TEST(GeneralBookArchive, SavedReadAndSavedAgainHasTheSameBytes) {
  const auto book = smallBook();
  const auto first = book->saveToData();
  EXPECT_EQ(first->text(), book->saveToData()->text());
  EXPECT_EQ(first->text(), reopened(book)->saveToData()->text());
}

class BookWithoutDictionaries : public testing::Test {
 protected:
  const OVRef<OVAddressBookGeneral> book =
      restored<OVAddressBookGeneral>(archivedAs("OVAddressBookGeneral", {}));
};

TEST_F(BookWithoutDictionaries, AnswersNull) {
  ASSERT_NE(book, nullptr);
  EXPECT_EQ(book->personsDic(), nullptr);
  EXPECT_EQ(book->groupsDic(), nullptr);
}

TEST_F(BookWithoutDictionaries, TakesNothingInSilence) {
  book->addPerson(hostPerson("p"));
  book->addPerson(hostPerson(nullptr));
  book->addPerson(nullptr);
  book->addGroup(hostGroup("g"));
  book->addGroup(hostGroup(nullptr));
  book->addGroup(nullptr);
  EXPECT_EQ(book->personsDic(), nullptr);
  EXPECT_EQ(book->groupsDic(), nullptr);
}

TEST_F(BookWithoutDictionaries, WritesNoKeys) { EXPECT_EQ(ArchivedForm(book).keys(), Keys{}); }

TEST_F(BookWithoutDictionaries, StillConverts) {
  EXPECT_EQ(book->generalPersonWithPerson(hostPerson("p"))->ID(), "p");
}

TEST(GeneralBookArchive, OneDictionaryMayBeMissing) {
  const auto book = restored<OVAddressBookGeneral>(archivedAs(
      "OVAddressBookGeneral", {{"personDic", OVDictionary<OVPersonGeneral>::dictionary()}}));
  EXPECT_NE(book->personsDic(), nullptr);
  EXPECT_EQ(book->groupsDic(), nullptr);
  EXPECT_EQ(ArchivedForm(book).keys(), Keys{"personDic"});
}

TEST(GeneralBookArchive, GroupsAloneTakeGroupsOnly) {
  const auto book = restored<OVAddressBookGeneral>(archivedAs(
      "OVAddressBookGeneral", {{"groupDic", OVDictionary<OVGroupGeneral>::dictionary()}}));
  EXPECT_EQ(book->personsDic(), nullptr);
  book->addPerson(hostPerson("p"));
  book->addGroup(hostGroup("g"));
  EXPECT_EQ(ArchivedForm(book).keys(), Keys{"groupDic"});
  EXPECT_TRUE(reopened(book)->groupsDic().contains("g"));
}

TEST(GeneralBookArchive, SomethingElseInPlaceOfADictionaryReadsAsNull) {
  const auto book = restored<OVAddressBookGeneral>(archivedAs(
      "OVAddressBookGeneral", {{"personDic", OVString("x")}, {"groupDic", foreignObject()}}));
  EXPECT_EQ(book->personsDic(), nullptr);
  EXPECT_EQ(book->groupsDic(), nullptr);
  book->addPerson(hostPerson("p"));
  book->addGroup(hostGroup("g"));
  const ArchivedForm form(book);
  EXPECT_EQ(ov::cast<OVString>(form.object("personDic")), "x");
  EXPECT_TRUE(isForeignObject(form.object("groupDic")));
}

TEST(GeneralBookArchive, ObjectsOfOtherClassesInADictionaryReadAsNullAndAreWrittenBack) {
  const auto persons = OVDictionary<OVObject>::dictionary(
      {{"p", OVPersonGeneral::initWithID("p")}, {"x", foreignObject()}});
  const auto book =
      restored<OVAddressBookGeneral>(archivedAs("OVAddressBookGeneral", {{"personDic", persons}}));
  ASSERT_EQ(book->personsDic().size(), 2U);
  EXPECT_EQ(book->personsDic()["x"], nullptr);
  EXPECT_EQ(book->personsDic()["p"]->ID(), "p");
  const auto written = ov::cast<OVDictionary<OVObject>>(ArchivedForm(book).object("personDic"));
  EXPECT_TRUE(isForeignObject(written["x"]));
}

TEST(GeneralBookArchive, RootOfAnotherClassIsGivenAsItIs) {
  const auto data = OVKeyedArchiver::archivedDataWithRootObject(labelOf("home"));
  const auto root = OVAddressBookGeneral::addressBookWithData(data);
  ASSERT_NE(ov::cast<OVLabel>(root), nullptr);
  EXPECT_EQ(ov::cast<OVAddressBookGeneral>(root), nullptr);
  const auto foreign = OVAddressBookGeneral::addressBookWithData(
      OVKeyedArchiver::archivedDataWithRootObject(foreignObject()));
  EXPECT_TRUE(isForeignObject(foreign));
}

TEST(GeneralBookArchive, NullRootIsNull) {
  const auto data = OVKeyedArchiver::archivedDataWithRootObject(OVRef<OVObject>());
  EXPECT_EQ(OVAddressBookGeneral::addressBookWithData(data), nullptr);
}

TEST(GeneralBookArchive, DataThatIsNoArchiveReachesTheCallerAsAFailure) {
  for (const char* bytes : {"", "BEGIN:VCARD", "bplist00"}) {
    EXPECT_THROW((void)OVAddressBookGeneral::addressBookWithData(OVData::dataWithText(bytes)),
                 OVInvalidArchive);
  }
  EXPECT_THROW((void)OVAddressBookGeneral::addressBookWithData(nullptr), std::invalid_argument);
}

/// A host's own kind of general book.
class HostGeneralBook final : public OVAddressBookGeneral {
 public:
  HostGeneralBook() { setThumbnail(OVImage::imageWithData(OVData::dataWithText("picture"))); }
};

TEST(GeneralBookArchive, PicturesAreNotArchived) {
  const OVRef<OVAddressBookGeneral> book = std::make_shared<HostGeneralBook>();
  EXPECT_EQ(ArchivedForm(book).keys(), (Keys{"personDic", "groupDic"}));
  EXPECT_EQ(reopened(book)->thumbnail(), nullptr);
}

TEST(GeneralBookArchive, CopiedPersonKeepsWhatReadsAsNull) {
  const auto foreign =
      restored<OVPersonGeneral>(archivedAs("OVPersonGeneral", {{"Phone", foreignObject()},
                                                               {"Note", textValue("note")},
                                                               {"URL", OVString("text")},
                                                               {"ID", OVString("p")}}));
  const auto book = OVAddressBookGeneral::init();
  book->addPerson(foreign);
  const auto person = book->personsDic()["p"];
  EXPECT_EQ(person->valueByPropertyName("Phone"), nullptr);
  EXPECT_EQ(person->valueByPropertyName("Note"), foreign->valueByPropertyName("Note"));
  EXPECT_EQ(person->notNullValueProperty().size(), 1U);
  for (const OVRef<OVPersonGeneral>& each : {foreign, person, reopened(book)->personsDic()["p"],
                                             book->generalPersonWithPerson(person)}) {
    const ArchivedForm form(each);
    EXPECT_EQ(form.keys(), (Keys{"Phone", "URL", "Note", "ID"}));
    EXPECT_TRUE(isForeignObject(form.object("Phone")));
    EXPECT_EQ(ov::cast<OVString>(form.object("URL")), "text");
  }
}

TEST(GeneralBookArchive, PersonConvertedKeepsAnIDThatReadsAsNull) {
  const auto foreign =
      restored<OVPersonGeneral>(archivedAs("OVPersonGeneral", {{"ID", foreignObject()}}));
  const auto book = OVAddressBookGeneral::init();
  EXPECT_THROW(book->addPerson(foreign), std::invalid_argument);
  book->personsDic().set("p", book->generalPersonWithPerson(foreign));
  book->personsDic().set("q", foreign);
  const auto again = reopened(book);
  const auto IDOf = [](const OVRef<OVObject>& person) { return ArchivedForm(person).object("ID"); };
  EXPECT_TRUE(isForeignObject(IDOf(again->personsDic()["p"])));
  EXPECT_TRUE(isForeignObject(IDOf(again->personsDic()["q"])));
}

}  // namespace
