// What `list` and `show` make of cards, in words that people read.

#include <sstream>

#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/number.h>

#include "ovbook_test.h"
#include "show/person_sheet.h"
#include "support/values.h"

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

class Readable : public OvbookTest {
 protected:
  /// The lines that `show` has for the card.
  std::vector<std::string> show(const std::string& lines) {
    importCard(lines);
    std::istringstream stream(ovbook({"show", path("book")}).out);
    std::vector<std::string> shown;
    for (std::string line; std::getline(stream, line);) shown.push_back(line);
    EXPECT_FALSE(shown.empty());
    return shown;
  }

  std::string shown(const std::string& lines) {
    std::string all;
    for (const std::string& line : show(lines)) all += line + "\n";
    return all;
  }

  /// What `list` and `show` both call the person of the card.
  std::string heading(const std::string& lines) {
    const std::string first = show(lines).front();
    std::istringstream row(ovbook({"list", "--tsv", path("book")}).out);
    std::string listed;
    std::getline(row, listed, '\t');
    std::getline(row, listed, '\t');
    EXPECT_EQ(listed, first) << lines;
    return first;
  }

 private:
  void importCard(const std::string& lines) {
    EXPECT_EQ(ovbook({"import", file("card.vcf", card(lines)), "-o", path("book")}).status, 0);
  }
};

}  // namespace

TEST_F(Readable, APersonIsHeadedByWhatThereIs) {
  EXPECT_EQ(heading("N:B;A;;;\nFN:A B\nORG:Acme\nNICKNAME:n\nEMAIL:a@b\n"), "A B");
  EXPECT_EQ(heading("ORG:Acme\nNICKNAME:n\nEMAIL:a@b\n"), "Acme");
  EXPECT_EQ(heading("NICKNAME:n\nEMAIL:a@b\nTEL:1\n"), "n");
  EXPECT_EQ(heading("EMAIL:a@b\nTEL:1\n"), "a@b");
  EXPECT_EQ(heading("EMAIL:a@b\nEMAIL;PREF=1:c@d\n"), "c@d");
  EXPECT_EQ(heading("TEL:1\nIMPP:aim:me\n"), "1");
  EXPECT_EQ(heading("IMPP:aim:me\n"), "me");
  EXPECT_EQ(heading("URL:https://example.com\n"), "https://example.com");
}

TEST_F(Readable, APersonOfWhomNothingIsKnownIsHeadedByTheID) {
  EXPECT_EQ(show("UID:some-id\nNOTE:x\n").front(), "some-id");
  EXPECT_EQ(ovbook({"list", path("book")}), success("some-id\n"));
}

TEST_F(Readable, AnOrganizationIsHeadedByItsNameAndThePersonBelow) {
  const std::string lines = "UID:1\nKIND:org\nORG:Acme\nN:B;A;;;\nFN:A B\n";
  EXPECT_EQ(heading(lines), "Acme");
  EXPECT_THAT(shown(lines), StartsWith("Acme\nA B\n  ID"));
  EXPECT_THAT(shown("UID:1\nX-ABShowAs:COMPANY\nORG:Acme\nFN:Acme\n"), StartsWith("Acme\n  ID"));
  EXPECT_THAT(shown("UID:1\nKIND:org\nFN:Acme\n"), StartsWith("Acme\n  ID"));
  const std::string member =
      "UID:1\nKIND:org\nORG:Acme\nFN:A\nEND:VCARD\nBEGIN:VCARD\n"
      "KIND:group\nUID:g\nFN:G\nMEMBER:1\n";
  EXPECT_THAT(show(member), Contains("  Persons  1  Acme"));
}

TEST_F(Readable, LabelsAreWhatAPersonWouldWrite) {
  const std::pair<const char*, const char*> rows[] = {
      {"TEL;TYPE=IPHONE:1\n", "  Phone  iPhone  1"},
      {"TEL;TYPE=CELL:1\n", "  Phone  Mobile  1"},
      {"TEL;TYPE=work,fax:1\n", "  Phone  Work fax  1"},
      {"TEL:1\n", "  Phone  1"},
      {"a.TEL:1\na.X-ABLabel:_$!<Assistant>!$_\n", "  Phone  Assistant  1"},
      {"a.URL:u\na.X-ABLabel:_$!<HomePage>!$_\n", "  URL  Home page  u"},
      {"a.X-ABRELATEDNAMES:x\na.X-ABLabel:_$!<YoungerSister>!$_\n",
       "  Related Names  Younger sister  x"},
      {"a.TEL:1\na.X-ABLabel:Boat house\n", "  Phone  Boat house  1"},
      {"TEL;X-CUSTOM(Boat house):1\n", "  Phone  Boat house  1"},
      {"ADR;TYPE=intl,postal,parcel:;;Weg 1;;;;\n", "  Address  Weg 1"},
      {"ADR;TYPE=home,postal:;;Weg 1;;;;\n", "  Address  Home  Weg 1"},
  };
  for (const auto& [lines, expected] : rows) EXPECT_THAT(show(lines), Contains(expected)) << lines;
}

TEST_F(Readable, NamesOfOtherProgramsAreUnderTheirProperty) {
  const std::pair<const char*, const char*> rows[] = {
      {"X-MS-IMADDRESS:sip:a@b\n", "  Instant Message  a@b [sip]"},
      {"X-SOME-BOOK-ManagersName:Eva\n", "  Related Names  Manager  Eva"},
      {"X-SOME-BOOK-AssistantsName:Eva\n", "  Related Names  Assistant  Eva"},
      {"X-SOME-BOOK-SpousesName:Eva\n", "  Related Names  Spouse  Eva"},
      {"X-ANDROID-CUSTOM:vnd.android.cursor.item/nickname;Ben;1;;\n", "  Nickname  Ben"},
      {"X-ANDROID-CUSTOM:vnd.android.cursor.item/relation;Eva;14;;\n",
       "  Related Names  Spouse  Eva"},
  };
  for (const auto& [lines, expected] : rows) {
    EXPECT_THAT(show(lines), Contains(expected)) << lines;
    EXPECT_THAT(show(lines), Not(Contains(StartsWith("  Other")))) << lines;
  }
}

TEST_F(Readable, OtherLinesHaveNoBackslashes) {
  EXPECT_THAT(
      show("X-SHOE-SIZE;TYPE=eu:44\\, 45\\nor so\n"),
      testing::IsSupersetOf({"  Other  X-SHOE-SIZE  44, 45", "                      or so"}));
  EXPECT_THAT(show("a.X-FOO:b\\;c\na.X-ABLabel:my own\n"), Contains("  Other  my own  b;c"));
  EXPECT_THAT(show("X-ANDROID-CUSTOM:vnd.android.cursor.item/unheard_of;a\\;b;;c\n"),
              Contains("  Other  Unheard of  a;b, c"));
  EXPECT_THAT(shown("X-ANDROID-CUSTOM:vnd.android.cursor.item/unheard_of;a\\;b;;c\n"),
              Not(HasSubstr("vnd.")));
}

TEST_F(Readable, HowLinesWereSpelledIsNotShown) {
  EXPECT_THAT(shown("UID:1\nTEL;PID=1.1:1\n"), Not(HasSubstr("Other")));
  EXPECT_THAT(shown("UID:1\nTEL;PID=1.1:1\nX-A:b\n"), HasSubstr("  Other  X-A  b\n"));
  EXPECT_THAT(shown("UID:1\nTEL;PID=1.1:1\nX-A:b\n"), Not(HasSubstr("BEGIN")));
}

TEST_F(Readable, BackslashesOfOtherBooksAreTheirOwn) {
  const auto others = OVMutableMultipleValue::init();
  others->addValue(valueOf(OVValueTypeString, OVString("C:\\new"), labelOf("Folder")));
  const auto person = OVPersonGeneral::initWithID("p");
  person->setValueByPropertyName(others, OVProPertyOther);
  const auto book = OVAddressBookGeneral::init();
  book->addPerson(person);
  EXPECT_EQ(ovbook({"show", bookFile(*book)}),
            success("p\n  ID     p\n  Other  Folder  C:\\new\n"));
}

TEST(PersonSheet, AMainValueNeedNotBeOfTheList) {
  const auto person = OVPersonGeneral::initWithID("p");
  const auto others = OVMutableMultipleValue::init();
  others->addValue(valueOf(OVValueTypeString, OVString("a"), labelOf("A")));
  others->setMainValue(valueOf(OVValueTypeString, OVString("b"), labelOf("B")));
  person->setValueByPropertyName(others, OVProPertyOther);
  const auto phones = OVMutableMultipleValue::init();
  phones->setMainValue(OVMutableSingleValue::init());
  person->setValueByPropertyName(phones, OVProPertyPhone);
  std::ostringstream out;
  ovbook::printPerson("p", person, nullptr, out);
  EXPECT_EQ(out.str(),
            "p\n"
            "  ID     p\n"
            "  Phone  *  [nothing]\n"
            "  Other  B *  b\n"
            "         A    a\n");
}
