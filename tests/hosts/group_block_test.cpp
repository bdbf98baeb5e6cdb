// What the card of a group says survives in the data block of a snapshot, and comes back on export.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookVCard/vcard_export.h>

#include "hosts/cards.h"
#include "hosts/snapshot.h"
#include "hosts/through_block.h"
#include "support/printers.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsSupersetOf;
using testing::Not;

const std::string kGroupWithLines =
    "UID:g\nKIND:group\nFN:Team\nMEMBER:ABC\nMEMBER:abc\nMEMBER;PREF=1:x\n"
    "MEMBER:mailto:a@example.com\nMEMBER;PID=1.1:mailto:b@example.com\n"
    "NOTE;LANGUAGE=en:a\\, b\nEMAIL:team@example.com\nURL:https://example.com\n"
    "CATEGORIES:p,q\nitem1.X-FOO:1\nitem1.X-ABLABEL:mine\n";

std::string withMembers(const std::string& group) {
  return card(group) + card("UID:ABC\nFN:1") + card("UID:abc\nFN:2") + card("UID:x\nFN:3");
}

TEST(GroupThroughABlock, AGroupKeepsAllItsLines) {
  const auto book = bookOf(withMembers(kGroupWithLines));
  EXPECT_THAT(idsOf(book->groupByID("g")->persons()), ElementsAre("ABC", "abc", "x"));
  const std::string once = throughBlock(*book);
  std::vector<std::string> lines = linesIn(once);
  lines.erase(lines.begin(), lines.begin() + 6);  // the persons come first
  std::vector<std::string> expected = linesIn(card(kGroupWithLines));
  EXPECT_EQ(lines, expected);
  EXPECT_EQ(throughBlock(*bookOf(once)), once);
}

TEST(GroupThroughABlock, AGroupKeepsItsOtherNames) {
  const auto lines = linesAfterBlock("KIND:group\nFN:a\nN:c;d;;;\nFN:b");
  EXPECT_THAT(lines, ElementsAre("KIND:group", "FN:a", "N:c;d;;;", "FN:b"));
}

TEST(GroupThroughABlock, AGroupKeepsItsOtherIDs) {
  const std::string text = card("UID:a\nKIND:group\nFN:G\nUID:b\nNOTE:n\nUID:b\nUID:c");
  const std::string once = throughBlock(*bookOf(text));
  EXPECT_THAT(linesIn(once), IsSupersetOf({"UID:a", "UID:b", "UID:b", "UID:c", "NOTE:n"}));
  EXPECT_EQ(throughBlock(*bookOf(once)), once);
  EXPECT_EQ(ov::vcard::exportBook(bookOf(once))->text(), once);
}

TEST(GroupThroughABlock, AGroupInsideItselfKeepsItsLines) {
  const std::string text = card("UID:g\nKIND:group\nFN:G\nMEMBER:h") +
                           card("UID:h\nKIND:group\nFN:H\nMEMBER;X-A=b:g\nMEMBER:h");
  const auto book = bookOf(text);
  EXPECT_EQ(book->saveData()->text(), text);
  const std::string once = throughBlock(*book);
  EXPECT_EQ(linesIn(once), linesIn(text));
  EXPECT_EQ(throughBlock(*bookOf(once)), once);
}

TEST(GroupThroughABlock, AGroupThatChangedKeepsItsOtherLines) {
  const auto general = snapshotOf(*bookOf(withMembers(kGroupWithLines)));
  const auto group = general->groupsDic()["g"];
  group->setTitle("Crew");
  group->setPersons(OVList<OVString>::list({"abc"}));
  const std::vector<std::string> lines =
      linesIn(std::string(ov::vcard::exportBook(general)->text()));
  EXPECT_THAT(lines, Contains("FN:Crew"));
  EXPECT_THAT(lines, Contains("MEMBER:abc"));
  EXPECT_THAT(lines, Contains("MEMBER:mailto:a@example.com"));
  EXPECT_THAT(lines, Not(Contains("MEMBER;PREF=1:x")));
  EXPECT_THAT(lines, Not(Contains("MEMBER:ABC")));
}

TEST(GroupThroughABlock, AnOrdinaryGroupIsAnOrdinaryRecord) {
  const auto general =
      snapshotOf(*bookOf(card("UID:g\nKIND:group\nFN:Team\nMEMBER:a") + card("UID:a\nFN:A")));
  EXPECT_EQ(std::string(general->groupsDic()["g"]->classForCoder()->name), "OVGroupGeneral");
}

TEST(GroupThroughABlock, ProgramsThatDoNotKnowTheClassReadAPlainGroup) {
  const auto block = snapshotOf(*bookOf(withMembers(kGroupWithLines)))->saveToData();
  const std::string text(block->text());
  EXPECT_NE(text.find("OVCardGroup"), std::string::npos);
  EXPECT_NE(text.find("$classhints"), std::string::npos);
}

}  // namespace
