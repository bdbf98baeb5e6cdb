#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/cards.h"
#include "support/printers.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(PersonID, IsTheUID) {
  EXPECT_EQ(person("UID: urn:uuid:A-1 \nFN:x")->ID(), "urn:uuid:A-1");
  EXPECT_EQ(person("UID:a\\;b\\,c\nFN:x")->ID(), "a;b,c");
}

TEST(PersonID, ASecondUIDIsKept) {
  const auto read = person("UID:\nUID:a\nUID:b");
  EXPECT_EQ(read->ID(), "a");
  EXPECT_EQ(entry(*read, OVProPertyOther), "*UID|UID: b");
}

TEST(PersonID, ComesFromTheContentWithoutAUID) {
  const auto id = person("FN:x\nTEL:1")->ID();
  EXPECT_EQ(id.size(), 36U);
  EXPECT_EQ(person("FN:x\nTEL:1")->ID(), id);
  EXPECT_EQ(person("UID:\nFN:x\nTEL:1")->ID().size(), 36U);
  EXPECT_NE(person("FN:x\nTEL:2")->ID(), id);
  EXPECT_NE(person("FN:x\nTEL;TYPE=home:1")->ID(), id);
  EXPECT_NE(person("TEL:1\nFN:x")->ID(), id);
}

TEST(PersonID, DoesNotDependOnHowTheContentIsEncoded) {
  const auto id = person("FN:\u00E4 b c\nTEL:1", "2.1")->ID();
  EXPECT_EQ(person("FN:\xE4 b c\n\nTEL:1", "2.1")->ID(), id);
  EXPECT_EQ(person("fn:\u00E4 b\n c\nTEL:1", "2.1")->ID(), id);
  EXPECT_EQ(person("FN;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=C3=A4 =\nb c\nTEL:1", "2.1")->ID(),
            id);
  EXPECT_EQ(person("FN;CHARSET=ISO-8859-1:\xE4 b c\nTEL:1", "2.1")->ID(), id);
  const auto book = bookOf("BEGIN:VCARD\r\nVERSION:2.1\r\nFN:\u00E4 b c\r\nTEL:1\r\nEND:VCARD\r\n");
  EXPECT_EQ(onlyPerson(*book)->ID(), id);
}

TEST(PersonID, IsTheSameInEveryVersionOfThisProgram) {
  EXPECT_EQ(person("FN:x")->ID(), "f947db84-6111-8d4c-a4b2-7e91cadf433f");
}

TEST(PersonID, OfTheSameCardTwiceIsOnePerson) {
  for (const char* lines : {"FN:x", "UID:a\nFN:x"}) {
    const auto book = bookOf(card(lines) + card(lines));
    EXPECT_EQ(book->allPersonsCount(), 1U);
    ASSERT_EQ(book->problems().size(), 1U);
    EXPECT_EQ(book->problems()[0].severity, OVVCardSeverity::Warning);
    EXPECT_EQ(book->problems()[0].reason, "this card repeats another one and was left out");
    EXPECT_EQ(book->problems()[0].line, std::string(lines).starts_with("UID") ? 6U : 5U);
  }
}

TEST(PersonID, ThatIsTakenGetsANumber) {
  const auto book = bookOf(card("UID:a\nFN:1") + card("UID:a-2\nFN:2") + card("UID:a\nFN:3") +
                           card("UID:a\nFN:4") + card("UID:a\nFN:3") + card("UID:a\nKIND:group"));
  EXPECT_THAT(idsOf(book->allPersons()), ElementsAre("a", "a-2", "a-3", "a-4"));
  EXPECT_EQ(book->groupByID("a-5")->displayName(), "");
  EXPECT_THAT(problems(*book),
              ElementsAre("11: the UID a is already in use; this card got the ID a-3",
                          "16: the UID a is already in use; this card got the ID a-4",
                          "21: this card repeats another one and was left out",
                          "26: the UID a is already in use; this card got the ID a-5"));
}

TEST(PersonID, OfManyCardsThatClaimOneUIDIsFoundQuickly) {
  std::string text;
  for (int i = 0; i < 5000; ++i) text += card("UID:a\nFN:" + std::to_string(i));
  EXPECT_EQ(idsOf(bookOf(text)->allPersons()).back(), "a-5000");
}

TEST(PersonID, IsWrittenAndComesBack) {
  const auto book = bookOf(card("FN:x") + card("UID:a\\;b\nFN:y"));
  EXPECT_EQ(idsOf(bookOf(book->saveData()->text())->allPersons()), idsOf(book->allPersons()));
}

}  // namespace
