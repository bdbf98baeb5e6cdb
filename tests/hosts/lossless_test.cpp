// A book writes what nobody changed as it was.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_general.h>
#include <OVAddressBookSDK/person_name.h>
#include <OVAddressBookSDK/tag_manager.h>
#include <OVAddressBookVCard/vcard_group.h>

#include "hosts/cards.h"
#include "hosts/snapshot.h"
#include "support/printers.h"
#include "support/values.h"

namespace {

std::string saved(OVVCardBook& book) { return std::string(book.saveData()->text()); }

OVRef<OVSingleValue> phoneValue(const OVString& number, const OVString& label = "Phone") {
  const auto object = OVLabel::init();
  object->setName(label);
  object->setDisplayName(label);
  return OVPersonGeneral::singleValueByMacValueLabelType(OVObjectPhone::initWithPhoneNumber(number),
                                                         object, OVValueTypePhone);
}

OVRef<OVMutableMultipleValue> severalOf(const OVRef<IOVPerson>& person, const OVString& property) {
  return std::dynamic_pointer_cast<OVMutableMultipleValue>(person->valueByPropertyName(property));
}

void addPhone(const OVRef<IOVPerson>& person, const OVString& number) {
  auto phones = severalOf(person, OVProPertyPhone);
  if (phones == nullptr) {
    phones = OVMutableMultipleValue::init();
    person->setValueByPropertyName(phones, OVProPertyPhone);
  }
  phones->addValue(phoneValue(number));
}

/// Every kind of line in its own, and in strange, spelling.
const std::string kOld =
    "BEGIN:VCARD\r\nVERSION:2.1\r\nN;CHARSET=UTF-8:M\u00FCller;Eva\r\n"
    "FN;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:Eva =\r\nM=C3=BCller\r\nTEL;HOME;PREF:1\r\n"
    "TEL;X-Boot:2\r\nUID:old\r\nPHOTO;PNG;ENCODING=BASE64:\r\n iVBORw0K\r\n GgoAAA==\r\n\r\n"
    "NOTE;ENCODING=QUOTED-PRINTABLE:a=0D=0Ab\r\nEND:VCARD\r\n";
const std::string kMiddle =
    "begin:vcard\nversion:3.0\nuid:middle\nn:Lang;Ida;;;\nfn:Ida Lang\nX-FOO:1\nnote:\n"
    "item1.tel;type=home;type=pref:3\nitem1.X-ABLabel:_$!<Home>!$_\nitem1.X-BAR:2\n"
    "EMAIL;type=INTERNET;type=WORK;X-B=c:a@b\nADR:;;\n a;b;;;\nno property\nCATEGORIES:x, y\n"
    "CATEGORIES:z\nend:vcard\n";
const std::string kNew =
    "BEGIN:VCARD\r\nVERSION:4.0\r\nUID:new\r\nKIND:individual\r\nFN:Max\r\nFN:Max M.\r\n"
    "TEL;PREF=2;VALUE=uri:tel:4\r\nTEL;PREF=1;PID=1.1:5\r\nIMPP;X-SERVICE-TYPE=Chat:x:y%20z\r\n"
    "BDAY:1985-04\r\nX-ABSHOWAS:COMPANY\r\nREV:20200101T000000Z\r\nEND:VCARD\r\n";
const std::string kGroup =
    "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Team;;;;\r\nFN:Team\r\nX-SERVER-KIND:group\r\nUID:g\r\n"
    "X-SERVER-MEMBER:urn:uuid:old\r\nX-SERVER-MEMBER:middle\r\nNOTE:all of us\r\n"
    "MEMBER:mailto:x@example.com\r\nEND:VCARD\r\n";

TEST(LoseNothing, WritesUnchangedCardsVerbatim) {
  const std::string all = kOld + kGroup + kMiddle + kNew;
  const auto book = bookOf(all);
  EXPECT_EQ(book->allPersonsCount(), 3U);
  EXPECT_EQ(saved(*book), all);
}

TEST(LoseNothing, WritesPersonsThatWereOnlyReadVerbatim) {
  const std::string all = kOld + kGroup + kMiddle + kNew;
  const auto book = bookOf(all);
  static_cast<void>(snapshotOf(*book)->saveToData());
  static_cast<void>(description(*book));
  static_cast<void>(book->tagManager());
  EXPECT_EQ(saved(*book), all);
}

TEST(LoseNothing, WritesPhotosThatAreNoneVerbatim) {
  const std::string text =
      card("UID:a\nFN:a\nPHOTO:data:\nPHOTO:data:;base64,AB\nPHOTO:data:;base64,AR");
  const auto book = bookOf(text);
  static_cast<void>(snapshotOf(*book));
  EXPECT_EQ(saved(*book), text);
}

TEST(LoseNothing, TurnsOtherCharacterSetsIntoUTF8) {
  const auto book =
      bookOf("BEGIN:VCARD\r\nVERSION:3.0\r\nFN:\xE4\r\nX-A:\xFF\r\nTEL:1\r\nEND:VCARD\r\n");
  EXPECT_EQ(saved(*book),
            "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:\u00E4\r\nX-A:\u00FF\r\nTEL:1\r\nEND:VCARD\r\n");
}

TEST(LoseNothing, ChangesOneLineOfOneCardForOnePhone) {
  std::string all;
  for (int i = 0; i < 1000; ++i) {
    all += card("UID:" + std::to_string(i) + "\nFN:a\nTEL;TYPE=home:1\nX-FOO;A=b:c", "3.0");
  }
  const auto book = bookOf(all);
  addPhone(book->allPersons()[500], "2");
  std::string expected = all;
  const std::string before = "UID:500\nFN:a\nTEL;TYPE=home:1\n";
  expected.insert(expected.find(before) + before.size(), "TEL:2\n");
  EXPECT_EQ(saved(*book), expected);
}

/// What the card becomes when `change` has been done to its person.
template <class Change>
std::string changed(const std::string& text, Change change) {
  const auto book = bookOf(text);
  change(onlyPerson(*book));
  return saved(*book);
}

std::string replaced(std::string text, const std::string& before, const std::string& after) {
  const std::size_t at = text.find(before);
  EXPECT_NE(at, std::string::npos) << before;
  return text.replace(at, before.size(), after);
}

TEST(LoseNothing, ChangesALineInItsPlace) {
  EXPECT_EQ(changed(kNew,
                    [](const auto& person) {
                      const auto phones = severalOf(person, OVProPertyPhone);
                      phones->replaceValueForIndex(phoneValue("6"), 0);
                    }),
            replaced(kNew, "TEL;PREF=2;VALUE=uri:tel:4\r\n", "TEL:6\r\n"));
  EXPECT_EQ(changed(kMiddle,
                    [](const auto& person) {
                      person->setValueByPropertyName(textValue("n"), OVProPertyNote);
                    }),
            replaced(kMiddle, "note:\n", "NOTE:n\n"));
}

TEST(LoseNothing, SeesChangesInsideAValue) {
  EXPECT_EQ(changed(kNew,
                    [](const auto& person) {
                      const auto phones = severalOf(person, OVProPertyPhone);
                      const auto phone =
                          std::dynamic_pointer_cast<OVMutableSingleValue>(phones->valueAtIndex(0));
                      phone->setValue(OVObjectPhone::initWithPhoneNumber("6"));
                    }),
            replaced(kNew, "TEL;PREF=2;VALUE=uri:tel:4\r\n", "TEL:6\r\n"));
  EXPECT_EQ(changed(kMiddle,
                    [](const auto& person) {
                      const auto phones = severalOf(person, OVProPertyPhone);
                      phones->valueAtIndex(0)->label()->setDisplayName("Zuhause");
                    }),
            replaced(kMiddle, "item1.tel;type=home;type=pref:3\n",
                     "item2.TEL;TYPE=home:3\nitem2.X-ABLABEL:Zuhause\n"));
}

TEST(LoseNothing, KeepsTheGroupAndTheLabelOfAChangedLine) {
  EXPECT_EQ(changed(kMiddle,
                    [](const auto& person) {
                      const auto phones = severalOf(person, OVProPertyPhone);
                      const auto phone =
                          std::dynamic_pointer_cast<OVMutableSingleValue>(phones->valueAtIndex(0));
                      phone->setValue(OVObjectPhone::initWithPhoneNumber("6"));
                    }),
            replaced(kMiddle, "item1.tel;type=home;type=pref:3\n", "item1.TEL;TYPE=home:6\n"));
}

TEST(LoseNothing, RemovesLinesWithTheirLabels) {
  EXPECT_EQ(changed(card("FN:x\na.TEL:1\na.X-ABLabel:b\nTEL:2\nUID:1"),
                    [](const auto& person) {
                      severalOf(person, OVProPertyPhone)->removeValueAtIndex(0);
                    }),
            card("FN:x\nTEL:2\nUID:1"));
  EXPECT_EQ(
      changed(card("UID:1\nFN:x\nNOTE:n\nX-A:1"),
              [](const auto& person) { person->setValueByPropertyName(nullptr, OVProPertyNote); }),
      card("UID:1\nFN:x\nX-A:1"));
}

TEST(LoseNothing, SpellsNewLinesAsTheCardsVersionDoes) {
  EXPECT_EQ(changed(kOld, [](const auto& person) { addPhone(person, "3"); }),
            replaced(kOld, "TEL;X-Boot:2\r\n", "TEL;X-Boot:2\r\nTEL:3\r\n"));
  EXPECT_EQ(changed(card("UID:1\nFN:x", "3.0"),
                    [](const auto& person) { person->setIsOrganization(true); }),
            card("UID:1\nFN:x\nX-ABSHOWAS:COMPANY", "3.0"));
}

TEST(LoseNothing, GivesANewNameInPlaceOfAllOldSpellings) {
  EXPECT_EQ(
      changed(card("UID:1\nN:B;A\nX-A:1\nFN:Mr. B\nSORT-STRING:B", "3.0"),
              [](const auto& person) {
                const auto name = std::dynamic_pointer_cast<OVMutableSingleValue>(
                    person->valueByPropertyName(OVProPertyName));
                name->setValue(OVObjectPersonName::initWithFirstMiddleLast("C", nullptr, "D"));
              }),
      card("UID:1\nN:D;C;;;\nX-A:1\nSORT-STRING:B\nFN:C D", "3.0"));
}

TEST(LoseNothing, SaysWhichEntryIsPreferred) {
  EXPECT_EQ(changed(kNew,
                    [](const auto& person) {
                      const auto phones = severalOf(person, OVProPertyPhone);
                      phones->setMainValue(phones->valueAtIndex(0));
                    }),
            replaced(replaced(kNew, "TEL;PREF=2;VALUE=uri:tel:4", "TEL;PREF=1;VALUE=uri:tel:4"),
                     "TEL;PREF=1;PID=1.1:5", "TEL;PID=1.1:5"));
}

TEST(LoseNothing, KeepsTheOrderOfEntries) {
  EXPECT_EQ(changed(card("UID:1\nTEL:1\nX-A:b\nTEL:2\nTEL:3"),
                    [](const auto& person) {
                      const auto phones = severalOf(person, OVProPertyPhone);
                      const auto third = phones->valueAtIndex(2);
                      const auto copy = third->mutableCopy();
                      phones->removeValueAtIndex(2);
                      phones->replaceValueForIndex(phoneValue("4"), 0);
                      phones->addValue(copy);
                      phones->addValue(phoneValue("5"));
                    }),
            card("UID:1\nTEL:4\nX-A:b\nTEL:2\nTEL:3\nTEL:5"));
}

TEST(LoseNothing, AChangedCardKeepsTheIDThatItsContentGave) {
  const auto book = bookOf(card("FN:x\nTEL:1"));
  const OVString id = onlyPerson(*book)->ID();
  EXPECT_EQ(saved(*book), card("FN:x\nTEL:1"));
  addPhone(onlyPerson(*book), "2");
  EXPECT_EQ(saved(*book), card("UID:" + id.str() + "\nFN:x\nTEL:1\nTEL:2"));
}

TEST(LoseNothing, AChangedCardSaysItsIDInTheEmptyLineForIt) {
  const auto book = bookOf("BEGIN:VCARD\nFN:x\nUID: \nNOTE:y\nEND:VCARD\n");
  const OVRef<IOVPerson> person = book->allPersons().front();
  addPhone(person, "1");
  EXPECT_EQ(saved(*book),
            "BEGIN:VCARD\nFN:x\nUID:" + person->ID().str() + "\nNOTE:y\nTEL:1\nEND:VCARD\n");
}

TEST(LoseNothing, ACardWhoseUIDWasTakenTellsItsIDOnceTheOtherIsGone) {
  const auto book = bookOf(card("UID:a\nFN:1") + card("UID:a\nFN:2"));
  EXPECT_EQ(saved(*book), card("UID:a\nFN:1") + card("UID:a\nFN:2"));
  book->removePersons(OVList<IOVPerson>::list({book->allPersons()[0]}));
  EXPECT_EQ(saved(*book), card("UID:a-2\nFN:2"));
}

TEST(LoseNothing, CardsWithoutAnEndGetOne) {
  EXPECT_EQ(saved(*bookOf("BEGIN:VCARD\r\nVERSION:4.0\r\nUID:a\r\nFN:x")),
            "BEGIN:VCARD\r\nVERSION:4.0\r\nUID:a\r\nFN:x\r\nEND:VCARD\r\n");
  EXPECT_EQ(changed("BEGIN:VCARD\r\nVERSION:4.0\r\nUID:a\r\nFN:x",
                    [](const auto& person) { addPhone(person, "1"); }),
            "BEGIN:VCARD\r\nVERSION:4.0\r\nUID:a\r\nFN:x\r\nTEL:1\r\nEND:VCARD\r\n");
}

TEST(LoseNothing, ChangesTheLinesOfAGroupThatNoLongerHold) {
  const std::string all = kOld + kMiddle + kNew + kGroup;
  const auto book = bookOf(all);
  const auto group = std::dynamic_pointer_cast<OVVCardGroup>(book->groupByID("g"));
  group->removePerson(book->personsForIDs(OVList<OVString>::list({"old"})).front());
  group->addPerson(book->personsForIDs(OVList<OVString>::list({"new"})).front());
  EXPECT_EQ(saved(*book), kOld + kMiddle + kNew +
                              replaced(replaced(kGroup, "X-SERVER-MEMBER:urn:uuid:old\r\n", ""),
                                       "MEMBER:mailto:x@example.com\r\n",
                                       "MEMBER:mailto:x@example.com\r\nX-SERVER-MEMBER:new\r\n"));
  group->setDisplayName("Crew");
  EXPECT_THAT(saved(*book), testing::HasSubstr("VERSION:3.0\r\nFN:Crew\r\nX-SERVER-KIND:group"));
}

TEST(LoseNothing, WritesTagsThatWereChanged) {
  const std::string text = card("UID:1\nFN:x\nCATEGORIES:a,b\nX-A:1\nCATEGORIES:c");
  EXPECT_EQ(changed(text, [](const auto& person) { person->addTag("d"); }),
            card("UID:1\nFN:x\nCATEGORIES:a,b,c,d\nX-A:1"));
  const auto book = bookOf(text);
  book->tagManager()->removeTag("c");
  EXPECT_EQ(saved(*book), card("UID:1\nFN:x\nCATEGORIES:a,b\nX-A:1"));
}

}  // namespace
