#include <OVAddressBookSDK/address_book.h>

#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "book/host_persons.h"
#include "support/printers.h"

namespace {

struct Row {
  const char* operation;
  std::function<bool(OVAddressBook&)> hasItsDefault;
};

OVRef<OVData> someData() { return OVData::dataWithText("data"); }

template <class T>
bool areNewAndEmpty(const OVList<T>& list, const OVList<T>& again) {
  return list != nullptr && again != nullptr && list.empty() && again.empty() && list != again;
}

/// True when the book looks as it did after a call that does nothing.
bool isUntouched(const OVAddressBook& book) {
  return book.allPersonsCount() == 0 && book.allPersons().empty() && book.rootGroups().empty() &&
         book.thumbnail() == nullptr;
}

const Row kRows[] = {
    {"ID", [](auto& book) { return book.ID().isNull(); }},
    {"name", [](auto& book) { return book.name().isNull(); }},
    {"canCreateGroup", [](auto& book) { return book.canCreateGroup(); }},
    {"canCreateSubGroup", [](auto& book) { return book.canCreateSubGroup(); }},
    {"canOprate", [](auto& book) { return book.canOprate(); }},
    {"loadWithData",
     [](auto& book) {
       book.loadWithData(someData());
       book.loadWithData(nullptr);
       return isUntouched(book);
     }},
    {"saveData", [](auto& book) { return book.saveData() == nullptr; }},
    {"supportProperty",
     [](auto& book) { return areNewAndEmpty(book.supportProperty(), book.supportProperty()); }},
    {"commonProperty",
     [](auto& book) { return areNewAndEmpty(book.commonProperty(), book.commonProperty()); }},
    {"allPersonsCount", [](auto& book) { return book.allPersonsCount() == 0; }},
    {"allPersons", [](auto& book) { return areNewAndEmpty(book.allPersons(), book.allPersons()); }},
    {"rootGroupsCount", [](auto& book) { return book.rootGroupsCount() == 0; }},
    {"rootGroups", [](auto& book) { return areNewAndEmpty(book.rootGroups(), book.rootGroups()); }},
    {"addGroupByName",
     [](auto& book) {
       return book.addGroupByName("Friends") == nullptr && book.addGroupByName(nullptr) == nullptr;
     }},
    {"removeGroup",
     [](auto& book) { return book.removeGroup(hostGroup("g")) && book.removeGroup(nullptr); }},
    {"removePersons",
     [](auto& book) {
       book.removePersons(OVList<IOVPerson>::list({hostPerson("p")}));
       book.removePersons(nullptr);
       return isUntouched(book);
     }},
    {"newPerson", [](auto& book) { return book.newPerson() == nullptr; }},
    {"save",
     [](auto& book) {
       book.save();
       return isUntouched(book);
     }},
    {"tagManager", [](auto& book) { return book.tagManager() == nullptr; }},
    {"addOneFromOtherPerson",
     [](auto& book) {
       return book.addOneFromOtherPerson(hostPerson("p")) == nullptr && isUntouched(book);
     }},
    {"personsForIDs",
     [](auto& book) { return book.personsForIDs(OVList<OVString>::list({"p"})) == nullptr; }},
    {"groupByID", [](auto& book) { return book.groupByID("g") == nullptr; }},
    {"loadWithDataProgressBlock",
     [](auto& book) {
       bool called = false;
       book.loadWithDataProgressBlock(someData(), [&] { called = true; });
       book.loadWithDataProgressBlock(nullptr, nullptr);
       return !called && isUntouched(book);
     }},
    {"saveDataBlock",
     [](auto& book) {
       bool called = false;
       book.saveDataBlock([&] { called = true; });
       book.saveDataBlock(nullptr);
       return !called;
     }},
    {"addPersonStartAndEnd",
     [](auto& book) {
       book.addPersonEnd();
       book.addPersonStart();
       return isUntouched(book);
     }},
    {"addBatchPersonStartAndEnd",
     [](auto& book) {
       book.addBatchPersonEnd();
       book.addBatchPersonStart(INT64_MIN);
       book.addBatchPersonStart(3);
       return isUntouched(book);
     }},
    {"addBatchPersonForOther",
     [](auto& book) {
       return book.addBatchPersonForOther(hostPerson("p")) == nullptr && isUntouched(book);
     }},
    {"thumbnail", [](auto& book) { return book.thumbnail() == nullptr; }},
    {"logo1", [](auto& book) { return book.logo1() == nullptr; }},
    {"logo2", [](auto& book) { return book.logo2() == nullptr; }},
    {"logo3", [](auto& book) { return book.logo3() == nullptr; }},
    {"logo4", [](auto& book) { return book.logo4() == nullptr; }},
};

class PlainBook : public testing::TestWithParam<Row> {};

TEST_P(PlainBook, GivesTheNeutralResult) {
  EXPECT_TRUE(GetParam().hasItsDefault(*OVAddressBook::init()));
}

INSTANTIATE_TEST_SUITE_P(Operations, PlainBook, testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.operation); });

TEST(PlainBook, IsNotArchived) {
  EXPECT_EQ(OVAddressBook::init()->classForCoder(), nullptr);
  EXPECT_STREQ(OVAddressBook::archivedClass().name, "OVAddressBook");
}

/// A host's book with pictures and one operation of its own.
class PictureBook final : public OVAddressBook {
 public:
  PictureBook() = default;
  using OVAddressBook::setLogo1;
  using OVAddressBook::setLogo2;
  using OVAddressBook::setLogo3;
  using OVAddressBook::setLogo4;
  using OVAddressBook::setThumbnail;

  std::uint64_t allPersonsCount() const override { return 7; }
};

OVRef<OVImage> imageOf(const char* bytes) {
  return OVImage::imageWithData(OVData::dataWithText(bytes));
}

TEST(HostBook, ShowsThePicturesThatItSet) {
  PictureBook book;
  const auto thumbnail = imageOf("t");
  const auto logo1 = imageOf("1");
  const auto logo2 = imageOf("2");
  const auto logo3 = imageOf("3");
  const auto logo4 = imageOf("4");
  book.setThumbnail(thumbnail);
  book.setLogo1(logo1);
  book.setLogo2(logo2);
  book.setLogo3(logo3);
  book.setLogo4(logo4);
  const OVAddressBook& asBook = book;
  EXPECT_EQ(asBook.thumbnail(), thumbnail);
  EXPECT_EQ(asBook.logo1(), logo1);
  EXPECT_EQ(asBook.logo2(), logo2);
  EXPECT_EQ(asBook.logo3(), logo3);
  EXPECT_EQ(asBook.logo4(), logo4);
}

TEST(HostBook, OverridesOnlyWhatItSupports) {
  const OVRef<OVAddressBook> book = std::make_shared<PictureBook>();
  EXPECT_EQ(book->allPersonsCount(), 7U);
  EXPECT_TRUE(book->allPersons().empty());
  EXPECT_TRUE(book->canOprate());
}

TEST(HostPersonClass, HasNoPinyinUnlessItSaysSo) {
  const OVRef<IOVPerson> person = hostPerson("p");
  EXPECT_EQ(person->nameChineesPinyin(), nullptr);
  EXPECT_EQ(person->showNameChineesPinyin(), nullptr);
}

}  // namespace
