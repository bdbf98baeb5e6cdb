#include <OVAddressBookSDK/email.h>
#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_name.h>
#include <OVAddressBookSDK/phone.h>

#include "ovbook_test.h"
#include "support/values.h"

namespace {

class List : public OvbookTest {
 protected:
  const OVRef<OVAddressBookGeneral> book_ = OVAddressBookGeneral::init();

  void add(const OVString& ID, const OVString& name, const OVString& phone, const OVString& email) {
    const auto person = OVPersonGeneral::initWithID(ID);
    set(*person, OVProPertyName, OVValueTypePersonName,
        OVObjectPersonName::initWithFirstMiddleLast(name, nullptr, nullptr), false);
    set(*person, OVProPertyPhone, OVValueTypePhone, OVObjectPhone::initWithPhoneNumber(phone),
        true);
    set(*person, OVProPertyEmail, OVValueTypeEmail, OVObjectEmail::initWithEmail(email), true);
    book_->addPerson(person);
  }

  Outcome list(const Arguments& options = {}) {
    Arguments arguments{"list", bookFile(*book_)};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return ovbook(arguments);
  }

 private:
  static void set(OVPersonGeneral& person, const OVString& property, OVValueType type,
                  const OVRef<OVObject>& datum, bool isMultiple) {
    if (datum == nullptr) return;
    const auto single = valueOf(type, datum);
    if (!isMultiple) return person.setValueByPropertyName(single, property);
    const auto multiple = OVMutableMultipleValue::init();
    multiple->addValue(single);
    person.setValueByPropertyName(multiple, property);
  }
};

}  // namespace

TEST_F(List, ColumnsLineUp) {
  add("a", "Ann", "1234567", "ann@example.org");
  add("long-id", "Bob Longname", "1", "b@example.org");
  EXPECT_EQ(list(), success("a        Ann           1234567  ann@example.org\n"
                            "long-id  Bob Longname  1        b@example.org\n"));
}

TEST_F(List, WideCharactersTakeTwoColumns) {
  add("1", "花子", "1", nullptr);
  add("2", "Zoe\u0301", "2", nullptr);
  add("3", "Hannah", "3", nullptr);
  EXPECT_EQ(list(), success("1  花子    1\n2  Zoe\u0301     2\n3  Hannah  3\n"));
}

TEST_F(List, MissingFieldsAreLeftBlank) {
  add("a", nullptr, "1", nullptr);
  add("b", "Bob", nullptr, "b@example.org");
  add("c", nullptr, nullptr, nullptr);
  EXPECT_EQ(list(), success("a  1    1\nb  Bob     b@example.org\nc\n"));
  EXPECT_EQ(list({"--tsv"}), success("a\t1\t1\t\nb\tBob\t\tb@example.org\nc\t\t\t\n"));
}

TEST_F(List, KeepsTheOrderOfTheBook) {
  for (const char* ID : {"3", "1", "2"}) add(ID, ID, nullptr, nullptr);
  EXPECT_EQ(list({"--tsv"}), success("3\t3\t\t\n1\t1\t\t\n2\t2\t\t\n"));
}

TEST_F(List, SortsByNameAsTheLocaleDoes) {
  for (const char* name : {"Zoe", "\u00c9mile", "emil", "Ann"}) add(name, name, nullptr, nullptr);
  EXPECT_EQ(list({"--tsv", "--sort", "name"}), success("Ann\tAnn\t\t\nemil\temil\t\t\n"
                                                       "\u00c9mile\t\u00c9mile\t\t\n"
                                                       "Zoe\tZoe\t\t\n"));
  EXPECT_EQ(list({"--tsv", "--sort", "none", "--match", "z"}), success("Zoe\tZoe\t\t\n"));
}

TEST_F(List, SortsByCompany) {
  const auto company = [&](const OVString& ID, const OVString& name) {
    const auto person = OVPersonGeneral::initWithID(ID);
    person->setValueByPropertyName(textValue(name), OVProPertyCompany);
    book_->addPerson(person);
  };
  company("1", "Tidal");
  add("2", "Ann", nullptr, nullptr);
  company("3", "Ebb");
  EXPECT_EQ(list({"--tsv", "--sort", "company"}),
            success("3\tEbb\t\t\n1\tTidal\t\t\n2\tAnn\t\t\n"));
}

TEST_F(List, MatchFindsNamesNumbersAndAddresses) {
  add("1", "J\u00fcrgen", "+44 (55) 50-23", nullptr);
  add("2", "Ann", nullptr, "ann@jurgen.example");
  add("3", "Bob", "5551", nullptr);
  EXPECT_EQ(list({"--tsv", "--match", "JURGEN"}),
            success("1\tJ\u00fcrgen\t+44 (55) 50-23\t\n2\tAnn\t\tann@jurgen.example\n"));
  EXPECT_EQ(list({"--tsv", "--match", "5550"}), success("1\tJ\u00fcrgen\t+44 (55) 50-23\t\n"));
  EXPECT_EQ(list({"--match", "nobody"}), success());
}

TEST_F(List, AnUnknownOrderIsNotUnderstood) { EXPECT_EQ(list({"--sort", "age"}).status, 2); }

TEST_F(List, TsvEscapesWhatWouldEndAFieldOrALine) {
  add("tab\there", "back\\slash", "new\nline", "return\r\u0085\u2028");
  EXPECT_EQ(list({"--tsv"}),
            success("tab\\there\tback\\\\slash\tnew\\nline\treturn\\r\\u0085\\u2028\n"));
}

TEST_F(List, PeopleSeeNoControlCharacters) {
  add("a\033[2J", "C:\\", "\u009b31m", "\u202egro");
  EXPECT_EQ(list(), success("a\\u001b[2J  C:\\  \\u009b31m  \\u202egro\n"));
}

TEST_F(List, OfAnEmptyBookIsEmpty) { EXPECT_EQ(list(), success()); }

TEST_F(List, OfABookWithoutDictionariesIsEmpty) {
  const std::string path = file("book", "");
  const auto archive = std::string(TESTS_FOLDER) + "/foreign_archives.py";
  EXPECT_EQ(runProgram({"python3", archive, "bare_book", path}, {}), success());
  EXPECT_EQ(ovbook({"list", path}), success());
  EXPECT_EQ(ovbook({"show", path}), success());
}

TEST_F(List, AMissingFileIsAFailure) {
  EXPECT_EQ(ovbook({"list", path("none")}), failure(path("none") + ": No such file or directory"));
}

TEST_F(List, AFolderIsAFailure) {
  EXPECT_EQ(ovbook({"list", path("")}), failure(path("") + ": Is a directory"));
}

TEST_F(List, AForeignFileIsAFailure) {
  const std::string path = file("notes.txt", "not a book");
  EXPECT_EQ(ovbook({"list", path}), failure(path + ": not a binary property list"));
  EXPECT_EQ(ovbook({"show", path}), failure(path + ": not a binary property list"));
}

TEST_F(List, ADamagedBookIsAFailureWhereverItIsCut) {
  add("a", "Ann", "1", "a@example.org");
  const std::string whole = readFile(bookFile(*OVAddressBookGeneral::init()));
  for (std::size_t size = 0; size < whole.size(); size += 31) {
    const std::string path = file("cut", whole.substr(0, size));
    const Outcome outcome = ovbook({"list", path});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err.find("ovbook: " + path + ": "), 0U) << outcome.err;
    EXPECT_EQ(outcome.err.find('\n'), outcome.err.size() - 1) << outcome.err;
  }
}

TEST_F(List, ReadsPersonsWhateverTheGroupsAre) {
  add("a", "Ann", "1", "a@example.org");
  book_->groupsDic().set("g", OVGroupGeneral::init());
  std::string bytes(book_->saveToData()->text());
  bytes.at(bytes.find("^OVGroupGeneral")) = '\x70';
  const std::string path = file("book", bytes);
  EXPECT_EQ(ovbook({"show", path}).status, 2);
  EXPECT_EQ(ovbook({"list", path}), success("a  Ann  1  a@example.org\n"));
}

TEST_F(List, ReadsAPipe) {
  const auto archive = std::string(TESTS_FOLDER) + "/foreign_archives.py";
  const std::string bare = file("bare", "");
  EXPECT_EQ(runProgram({"python3", archive, "bare_book", bare}, {}), success());
  EXPECT_EQ(ovbookIn({.input = readFile(bare)}, {"list", "/dev/stdin"}), success());
}

TEST_F(List, AnArchiveOfSomethingElseIsAFailure) {
  const auto label = labelOf("home");
  const std::string path =
      file("label", OVKeyedArchiver::archivedDataWithRootObject(label)->text());
  EXPECT_EQ(ovbook({"list", path}),
            failure(path + ": not an address book: its root object is OVLabel"));
  const auto nothing = OVKeyedArchiver::archivedDataWithRootObject(nullptr);
  EXPECT_EQ(ovbook({"list", file("null", nothing->text())}),
            failure(this->path("null") + ": not an address book: its root object is null"));
}
