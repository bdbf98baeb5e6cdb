#include <OVAddressBookSDK/address.h>
#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/email.h>
#include <OVAddressBookSDK/image.h>
#include <OVAddressBookSDK/instant_message.h>
#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/number.h>
#include <OVAddressBookSDK/person_name.h>
#include <OVAddressBookSDK/phone.h>

#include "ovbook_test.h"
#include "support/values.h"

namespace {

class Show : public OvbookTest {
 protected:
  Outcome show(Arguments options = {}) {
    options.insert(options.begin(), {"show", bookFile(*book_)});
    return ovbook(options);
  }

  /// A new person in the book, without values.
  OVRef<OVPersonGeneral> person(const OVString& ID = "p") {
    book_->addPerson(OVPersonGeneral::initWithID(ID));
    return book_->personsDic()[ID];
  }

  OVRef<OVGroupGeneral> group(const OVString& ID, const OVString& title) {
    auto group = OVGroupGeneral::init();
    group->setTitle(title);
    book_->groupsDic().set(ID, group);
    return group;
  }

 private:
  OVRef<OVAddressBookGeneral> book_ = OVAddressBookGeneral::init();
};

OVRef<OVMutableMultipleValue> multiple(
    OVValueType type, const std::vector<std::pair<OVString, OVRef<OVObject>>>& entries) {
  auto values = OVMutableMultipleValue::init();
  for (const auto& [label, datum] : entries) {
    values->addValue(valueOf(type, datum, label.isNull() ? nullptr : labelOf(label)));
  }
  return values;
}

void setName(OVPersonGeneral& person, const OVString& first, const OVString& last) {
  const auto name = OVObjectPersonName::initWithFirstMiddleLast(first, nullptr, last);
  person.setValueByPropertyName(valueOf(OVValueTypePersonName, name, labelOf("Name")),
                                OVProPertyName);
}

OVRef<OVObjectAddress> address(const OVString& country,
                               const std::vector<std::pair<OVString, OVString>>& values) {
  auto address = OVObjectAddress::init();
  if (!country.isNull()) address->setCountryCode(country);
  for (const auto& [field, value] : values) address->setStringValueForFieldName(value, field);
  return address;
}

void setAddress(OVPersonGeneral& person, const OVRef<OVObjectAddress>& datum) {
  person.setValueByPropertyName(multiple(OVValueTypeAddress, {{"home", datum}}), OVProPertyAddress);
}

}  // namespace

TEST_F(Show, EveryPropertyLabelAndDatum) {
  const auto jane = person("jd");
  setName(*jane, "Jane", "Doe");
  jane->setThumbnail(OVImage::imageWithData(OVData::dataWithText("\x89PNG....")));
  jane->setValueByPropertyName(textValue("Inc"), OVProPertyCompany);
  const auto phones =
      multiple(OVValueTypePhone, {{"home", OVObjectPhone::initWithPhoneNumber("1")},
                                  {"mobile", OVObjectPhone::initWithPhoneNumber("2")}});
  phones->setMainValue(phones->valueAtIndex(1));
  jane->setValueByPropertyName(phones, OVProPertyPhone);
  jane->setValueByPropertyName(
      multiple(OVValueTypeEmail, {{nullptr, OVObjectEmail::initWithEmail("j@example.org")}}),
      OVProPertyEmail);
  jane->setValueByPropertyName(valueOf(OVValueTypeDate, OVDate::dateWithYearMonthDay(1981, 6, 12)),
                               OVProPertyBirthday);
  jane->setValueByPropertyName(
      multiple(OVValueTypeInstantMessage,
               {{"work", OVObjectInstantMessage::initWithUserNameServer(
                             "jane", OVInstantMessageServer::serverWithName("Skype"))}}),
      OVProPertyInstantMessage);
  jane->setValueByPropertyName(textValue("two\nlines", OVValueTypeNote), OVProPertyNote);
  EXPECT_EQ(show(), success("Jane Doe\n"
                            "  ID               jd\n"
                            "  Thumbnail        [PNG image, 8 bytes]\n"
                            "  Name             Jane Doe\n"
                            "                   [first: Jane, last: Doe]\n"
                            "  Company          Inc\n"
                            "  Phone            home      1\n"
                            "                   mobile *  2\n"
                            "  Email            j@example.org\n"
                            "  Birthday         1981-06-12\n"
                            "  Instant Message  work  jane [Skype]\n"
                            "  Note             two\n"
                            "                   lines\n"));
}

TEST_F(Show, TheNameOfALabelIsShownWhereItSaysMore) {
  const auto label = labelOf("Home");
  label->setName("home");
  const auto other = labelOf("Size");
  other->setName("size eu");
  const auto nameless = OVLabel::init();
  nameless->setDisplayName("Shown");
  const auto hidden = OVLabel::init();
  hidden->setName("hidden");
  const auto values = OVMutableMultipleValue::init();
  for (const auto& each : {label, other, nameless, hidden}) {
    values->addValue(valueOf(OVValueTypeString, OVString("x"), each));
  }
  person()->setValueByPropertyName(values, OVProPertyOther);
  EXPECT_EQ(show(), success("p\n"
                            "  ID     p\n"
                            "  Other  Home *          x\n"
                            "         Size (size eu)  x\n"
                            "         Shown           x\n"
                            "         (hidden)        x\n"));
}

TEST_F(Show, AddressesHaveTheLayoutOfTheirCountry) {
  const std::vector<std::pair<OVString, OVString>> values{{OVAddressFieldStreet, "Weg 1"},
                                                          {OVAddressFieldCity, "Ulm"},
                                                          {OVAddressFieldPostalCode, "89073"},
                                                          {OVAddressFieldCountryOrArea, "Land"}};
  setAddress(*person("de"), address("de", values));
  setAddress(*person("jp"), address("jp", values));
  EXPECT_EQ(show(), success("de\n"
                            "  ID       de\n"
                            "  Address  home  Weg 1\n"
                            "                 89073 Ulm\n"
                            "                 Land\n"
                            "                 [country: de]\n"
                            "\n"
                            "jp\n"
                            "  ID       jp\n"
                            "  Address  home  89073\n"
                            "                 Ulm\n"
                            "                 Weg 1\n"
                            "                 Land\n"
                            "                 [country: jp]\n"));
}

TEST_F(Show, AddressesWithoutACountryHaveTheLayoutOfTheUsers) {
  setAddress(*person(),
             address(nullptr, {{OVAddressFieldCity, "Ulm"}, {OVAddressFieldPostalCode, "89073"}}));
  EXPECT_EQ(show().out, "p\n  ID       p\n  Address  home  Ulm 89073\n");
  EXPECT_EQ(ovbook({"country", "de"}), success());
  EXPECT_EQ(show().out, "p\n  ID       p\n  Address  home  89073 Ulm\n");
}

TEST_F(Show, AddressesWithoutACountryAreShownWhereTheLocaleNamesNone) {
  setAddress(*person(), address(nullptr, {{OVAddressFieldCity, "Ulm"}}));
  const std::string book = path("book");
  EXPECT_EQ(show().status, 0);
  for (const char* locale : {"LANG=C", "LANG=de"}) {
    EXPECT_EQ(ovbookIn({.environment = {locale}}, {"show", book}),
              success("p\n  ID       p\n  Address  home  Ulm\n"));
  }
}

TEST_F(Show, ValuesWithoutAPlaceInTheLayoutAreShownToo) {
  setAddress(*person(),
             address("de", {{OVAddressFieldCity, "Ulm"}, {OVAddressFieldProvince, "Bayern"}}));
  EXPECT_EQ(show().out,
            "p\n  ID       p\n"
            "  Address  home  Ulm\n"
            "                 [Province: Bayern]\n"
            "                 [country: de]\n");
}

TEST_F(Show, AnEmptyAddressIsShown) {
  setAddress(*person(), address(nullptr, {}));
  EXPECT_EQ(show().out, "p\n  ID       p\n  Address  home  [nothing]\n");
}

TEST_F(Show, DataOfOtherClassesAreShown) {
  const auto values = multiple(OVValueTypeString,
                               {{"number", OVNumber::numberWithDouble(0.5)},
                                {"data", OVData::dataWithText("x")},
                                {"list", OVList<OVString>::list({"a", "b"})},
                                {"value", textValue("inner")},
                                {"date", OVDate::dateWithYearMonthDay(1604, 2, 29)},
                                {"never", OVDate::dateWithTimeIntervalSinceReferenceDate(1e300)}});
  person()->setValueByPropertyName(values, OVProPertyOther);
  EXPECT_EQ(show().out,
            "p\n"
            "  ID     p\n"
            "  Other  number *  0.5\n"
            "         data      [1 byte]\n"
            "         list      a\n"
            "                   b\n"
            "         value     [an object of the class OVMutableSingleValue]\n"
            "         date      02-29 (year unknown)\n"
            "         never     1e+300 seconds since 2001-01-01\n");
}

TEST_F(Show, EmptyValuesAreShown) {
  const auto someone = person();
  someone->setValueByPropertyName(OVMutableSingleValue::init(), OVProPertyCompany);
  someone->setValueByPropertyName(OVMutableMultipleValue::init(), OVProPertyPhone);
  EXPECT_EQ(show().out, "p\n  ID       p\n  Company  [nothing]\n  Phone    [no entries]\n");
}

TEST_F(Show, ControlCharactersAreShownEscaped) {
  const auto someone = person("\033[2J");
  setName(*someone, "a\tb", nullptr);
  someone->setValueByPropertyName(textValue("\u009b\r\n."), OVProPertyCompany);
  EXPECT_EQ(show().out,
            "a\\tb\n"
            "  ID       \\u001b[2J\n"
            "  Name     a\\tb\n"
            "           [first: a\\tb]\n"
            "  Company  \\u009b\n"
            "           .\n");
}

TEST_F(Show, ACompanyWithoutANameIsHeadedByItsCompany) {
  person()->setValueByPropertyName(textValue("Inc"), OVProPertyCompany);
  EXPECT_EQ(show().out, "Inc\n  ID       p\n  Company  Inc\n");
}

TEST_F(Show, GroupsHaveATitleAndMembers) {
  setName(*person("ann"), "Ann", nullptr);
  const auto family = group("g1", "Family");
  family->setPersons(OVList<OVString>::list({"ann", "gone"}));
  family->setSubArray(OVList<OVString>::list({"g2"}));
  group("g2", "Children");
  group("g3", nullptr);
  EXPECT_EQ(show({"g1", "g2", "g3"}), success("Family [group]\n"
                                              "  ID       g1\n"
                                              "  Groups   g2  Children\n"
                                              "  Persons  ann   Ann\n"
                                              "           gone\n"
                                              "\n"
                                              "Children [group]\n"
                                              "  ID  g2\n"
                                              "\n"
                                              "g3 [group]\n"
                                              "  ID  g3\n"));
}

TEST_F(Show, GroupsFollowThePersons) {
  group("g", "Group");
  person("p");
  EXPECT_EQ(show().out, "p\n  ID  p\n\nGroup [group]\n  ID  g\n");
}

TEST_F(Show, APersonAndAGroupMayHaveOneID) {
  person("same");
  group("same", "Group");
  EXPECT_EQ(show({"same"}).out, "same\n  ID  same\n\nGroup [group]\n  ID  same\n");
}

TEST_F(Show, UnknownIDsAreNamedAndTheOthersShown) {
  person("a");
  person("b");
  EXPECT_EQ(show({"b", "none", "a"}),
            (Outcome{1, "b\n  ID  b\n\na\n  ID  a\n",
                     "ovbook: none: the book has no person or group with this ID\n"}));
}

TEST_F(Show, UnknownIDsAreNamedEvenWhereNothingCanBePrinted) {
  person("a");
  const std::string unknown = "ovbook: none: the book has no person or group with this ID\n";
  const std::string book = path("book");
  EXPECT_EQ(show({"none"}).status, 1);
  EXPECT_EQ(ovbookIn({.outputFile = "/dev/full"}, {"show", book, "a", "none"}),
            (Outcome{2, "", unknown + "ovbook: standard output: No space left on device\n"}));
  EXPECT_EQ(ovbookIn({.outputIsBroken = true}, {"show", book, "a", "none"}),
            (Outcome{1, "", unknown}));
}

TEST_F(Show, TagsOfAStore) {
  person("a");
  person("b");
  EXPECT_EQ(ovbook({"tag", "work", "set", "a", "red", "blue"}), success());
  EXPECT_EQ(show({"--tags", "work"}),
            success("a\n  ID         a\n  Tag store  red\n             blue\n\nb\n  ID  b\n"));
}

TEST_F(Show, WhatIsNoPersonAndNoGroup) {
  EXPECT_EQ(runProgram({"python3", std::string(TESTS_FOLDER) + "/foreign_archives.py", "odd_book",
                        path("odd")},
                       {}),
            success());
  EXPECT_EQ(ovbook({"show", path("odd")}), success("x [not a person]\n\nx [not a group]\n"));
  EXPECT_EQ(ovbook({"list", "--tsv", path("odd")}), success("x\t\t\t\n"));
}

TEST_F(Show, AnUnreadableBookIsAFailure) {
  EXPECT_EQ(ovbook({"show", path("none")}), failure(path("none") + ": No such file or directory"));
}
