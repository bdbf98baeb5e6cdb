// What a card says survives in the data block of a snapshot, and comes back on export.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookVCard/vcard_export.h>

#include "hosts/cards.h"
#include "hosts/snapshot.h"
#include "hosts/through_block.h"
#include "support/printers.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

/// Cards whose lines come back in their order, character for character.
class ThroughABlock : public testing::TestWithParam<const char*> {};

TEST_P(ThroughABlock, LinesComeBackVerbatim) {
  const std::string lines = GetParam();
  std::vector<std::string> expected;
  std::istringstream stream(lines);
  for (std::string line; std::getline(stream, line);) expected.push_back(line);
  EXPECT_EQ(linesAfterBlock(lines), expected);
}

TEST_P(ThroughABlock, AFileBookKeepsTheLinesToo) {
  std::string lines = GetParam();
  lines += "\n";
  const auto book = bookOf(card("UID:1\n" + lines));
  onlyPerson(*book)->addTag("t");
  EXPECT_EQ(book->saveData()->text(), card("UID:1\n" + lines + "CATEGORIES:t"));
  onlyPerson(*book)->removeTag("t");
  EXPECT_EQ(book->saveData()->text(), card("UID:1\n" + lines));
}

constexpr const char* kLines[] = {
    // What belongs to one of several values.
    "ADR;LABEL=\"a^nb\";GEO=g;TYPE=home:;;x;;;;\nADR;PID=1;ALTID=2;CC=FR;X-A=b:;;y;;;;France",
    "TEL;PID=1.1;TYPE=home:1\nTEL;ALTID=2;X-A=b;TYPE=work:2",
    "EMAIL;PID=1.1:a@b\nEMAIL;X-A=\"b=\":c@d",
    "TEL;PREF=2:1\nTEL;PREF=3:2\nTEL;PREF=1:3",
    "TEL;PREF=1:1\nTEL;PREF=1:2\nTEL:3",
    "item1.TEL:1\nitem1.X-ABLABEL:mine\nitem1.X-FOO:2\nitem1.X-BAR:3",
    "a.TEL:1\na.X-ABLABEL:both\na.TEL:2",
    "a.ADR:;;x;;;;\na.X-ABADR:somewhere in the north",
    // Names.
    "FN:Anna Muster",
    "N:L;F;;;\nFN:F. L.",
    "ORG:Acme",
    "FN:Jr.\nN:;;;;Jr.",
    "FN:Mr.\nN:;;;Mr.;",
    "FN:c a b\nN:a,b;c;;;",
    "KIND:org\nX-ABSHOWAS:COMPANY\nORG:Acme",
    "FN:A B\nN:B;A;;;\nFN:C\nFN:C\nX-A:1",
    "FN:A B\nN:B;A;;;\nFN:A B\nFN:C\nFN:B",
    // Values.
    "NICKNAME:a\\,b,c",
    "ORG:A;R\\;D",
    "BDAY:19850412T073000Z",
    "BDAY:19850412T073000+0200",
    "BDAY:1985",
    "BDAY:1985-04",
    "BDAY:0000-01-01",
    "BDAY:99991231T235960",
    "PHOTO;MEDIATYPE=image/heic:data:image/heic;base64,AAAA",
    "PHOTO:data:image/avif;base64,AAAAHGZ0eXBhdmlmAAAA",
    "PHOTO:data:image/webp;base64,UklGRgAAAABXRUJQVlA4",
    "PHOTO;X-CROP=\"1,2\":data:image/png;base64,iVBORw0K",
    "PHOTO:data:image/png;base64,iVBORw0K\nPHOTO:data:image/png;base64,iVBORw0KGg==",
    // Accounts.
    "IMPP:xmpp:a@b?message;subject=x",
    "IMPP:sip:a@b;transport=tcp",
    "IMPP:aim:goim?screenname=J",
    "IMPP;X-SERVICE-TYPE=Skype;TYPE=home:skype:me",
    "IMPP;X-SERVICE-TYPE=JABBER;TYPE=work:xmpp:a@b",
    "IMPP;SERVICE-TYPE=Skype:me",
    // Other properties.
    "X-MESSAGING/XMPP-ALL:me",
    "X-SHOE-SIZE;TYPE=eu:44\nX-LIST:a,b\\,c\nREV:20200101T000000Z",
    "NOTE:a\nNOTE;LANGUAGE=de:b\nNOTE:c",
    "FN:A B\nN;ALTID=1;LANGUAGE=en:B;A;;;\nN;ALTID=1;LANGUAGE=ja:D;C;;;",
    "NOTE;ENCODING=b:QUFB",
    "TEL;PREF=1;TYPE=quoted-printable:1=3D\nTEL:2",
    "X-ANDROID-CUSTOM:vnd.android.cursor.item/nickname;Ben;1;;;;;;;;;;;;;",
    "X-ANDROID-CUSTOM:vnd.android.cursor.item/relation;Eva;0;neighbour;;;;;;;;;;;;",
    "X-ANDROID-CUSTOM:vnd.android.cursor.item/contact_event;2001-02-03;1;;;;;;;;;;;;;",
    "X-ANDROID-CUSTOM:vnd.android.cursor.item/unheard-of;a;b",
    // Lines that name or look like others.
    "EMAIL;KIND=group:x",
    "EMAIL;MANAGER=1:x",
    "item1.X-OTHER:bar\nitem1.X-ABLABEL:TEL",
    "item1.X-OTHER:bar\nitem1.X-ABLABEL:N",
    "item1.X-OTHER:bar\nitem1.X-ABLABEL:PHOTO",
    "item1.X-OTHER:bar\nitem1.X-ABLABEL:X-FOO",
    "item1.X-OTHER:\nitem1.X-ABLABEL:/",
    "X-OTHER;TYPE=work:",
    "item1.X-OTHER:BEGIN:VCARD\nitem1.X-ABLABEL:vCard",
    "item1.X-FOO:bar\nitem1.X-ABLABEL:TEL",
};
INSTANTIATE_TEST_SUITE_P(Cards, ThroughABlock, testing::ValuesIn(kLines));

TEST(ThroughABlock, ANameSaysNothingThatItDoesNotSay) {
  EXPECT_THAT(linesAfterBlock("FN:Anna Muster"), Not(Contains(testing::StartsWith("N:"))));
  EXPECT_THAT(linesAfterBlock("ORG:Acme"), Not(Contains(testing::StartsWith("FN:"))));
  EXPECT_THAT(linesAfterBlock("N:;;;Mr.;"), ElementsAre("FN:Mr.", "N:;;;Mr.;"));
}

TEST(ThroughABlock, ALineThatSaysNothingIsNotPreferred) {
  EXPECT_EQ(linesAfterBlock("TEL;PREF=1:a\nTEL;PREF=1:"), linesAfterBlock("TEL;PREF=1:a"));
}

TEST(ThroughABlock, ATelephoneURIKeepsItsPrefix) {
  EXPECT_THAT(linesAfterBlock("TEL:tel:tel:1"), ElementsAre("TEL;VALUE=uri:tel:tel:1"));
}

TEST(ThroughABlock, LinesOfOlderVersionsKeepTheirMeaning) {
  EXPECT_THAT(linesAfterBlock("FN:A\nTEL;TYPE=PREF,X-Boat:1\nTEL;X-P=1;TYPE=home:2", "3.0"),
              ElementsAre("FN:A", "TEL;TYPE=X-Boat;PREF=1:1", "TEL;X-P=1;TYPE=home:2"));
  EXPECT_THAT(
      linesAfterBlock("TEL;X-CUSTOM(CHARSET=UTF-8,ENCODING=QUOTED-PRINTABLE,=46=6F):1", "2.1"),
      ElementsAre("TEL;X-CUSTOM=Fo:1"));
}

TEST(ThroughABlock, AGroupWithoutItsEmptyLinesIsOneLine) {
  EXPECT_THAT(linesAfterBlock("a.TEL:\na.X-A:1\nb.TEL:\nb.X-B:2\nb.X-C:3"),
              ElementsAre("X-A:1", "b.X-B:2", "b.X-C:3"));
}

TEST(ThroughABlock, APhotoOfAnOddTypeStaysAsItIs) {
  const std::string once = "PHOTO;TYPE=\"\\\":data:application/octet-stream;base64,AA==";
  EXPECT_THAT(linesAfterBlock("PHOTO;ENCODING=b;\\:AA"), ElementsAre(once));
  EXPECT_THAT(linesAfterBlock(once), ElementsAre(once));
}

TEST(ThroughABlock, TheFirstLabelOfAGroupStaysTheFirst) {
  EXPECT_THAT(linesAfterBlock("a.X-ABLABEL:1\na.X-ABLABEL:2\na.X-A:3"),
              ElementsAre("a.X-ABLABEL:1", "a.X-ABLABEL:2", "a.X-A:3"));
}

TEST(ThroughABlock, APhotoThatIsNoneKeepsItsDigitsAndItsGroup) {
  EXPECT_THAT(linesAfterBlock("a.PHOTO;ENCODING=b:2\na.X-A:1"),
              ElementsAre("a.PHOTO:data:application/octet-stream;base64,2", "a.X-A:1"));
}

TEST(ThroughABlock, OfTwoPhotosInAGroupBothStayThere) {
  const std::string photo = "a.PHOTO:data:application/octet-stream;base64,QUJDRA==";
  EXPECT_THAT(linesAfterBlock("a.PHOTO;ENCODING=b:QUJDRA==\na.PHOTO;ENCODING=b:QUJDRA=="),
              ElementsAre(photo, photo));
}

TEST(ThroughABlock, EqualEntriesKeepWhatOnlyTheirLinesSay) {
  EXPECT_THAT(linesAfterBlock("TEL;TYPE=cell:1\nTEL;PREF=1:5\nTEL;TYPE=cell;PREF=1:1"),
              ElementsAre("TEL;TYPE=cell:1", "TEL;PREF=1:5", "TEL;TYPE=cell;PREF=1:1"));
  EXPECT_THAT(linesAfterBlock("a.X-A:1\nX-A:1\nX-A;X-B=c:1\na.X-C:2"),
              testing::UnorderedElementsAre("a.X-A:1", "X-A:1", "X-A;X-B=c:1", "a.X-C:2"));
  EXPECT_THAT(linesAfterBlock("EMAIL:a\nEMAIL;X-B=c:a"), ElementsAre("EMAIL:a", "EMAIL;X-B=c:a"));
}

TEST(ThroughABlock, OddPreferencesTakeNoLineOutOfItsGroup) {
  EXPECT_THAT(linesAfterBlock("a.X-A;PREF=:1\na.X-B;PREF=05:2\na.X-C;PREF=x;TYPE=pref:3"),
              ElementsAre("a.X-A;PREF=\"\":1", "a.X-B;PREF=05:2", "a.X-C;PREF=x;TYPE=pref:3"));
}

TEST(ThroughABlock, OddTypesTakeNoLineOutOfItsGroup) {
  EXPECT_THAT(linesAfterBlock("a.X-A;TYPE=\"\",b:1\na.X-B;TYPE=:2\na.X-C;TYPE=\"d,,e\":3"),
              ElementsAre("a.X-A;TYPE=b:1", "a.X-B:2", "a.X-C;TYPE=d,e:3"));
}

TEST(ThroughABlock, LinesThatLookEncodedSwallowNoOther) {
  const char* lines = "TEL;TYPE=QUOTED-PRINTABLE;ENCODING=QUOTED-PRINTABLE:1=3D\nTEL:2";
  for (const char* version : {"2.1", "3.0", "4.0"}) {
    EXPECT_THAT(linesAfterBlock(lines, version),
                ElementsAre(testing::EndsWith(":1="), testing::EndsWith("TEL:2")))
        << version;
  }
}

TEST(ThroughABlock, ParametersMayEndInEqualsSigns) {
  EXPECT_THAT(linesAfterBlock("EMAIL;X-A=b=;X-C=d==:e@f", "3.0"),
              ElementsAre("EMAIL;X-A=\"b=\";X-C=\"d==\":e@f"));
}

TEST(ThroughABlock, TextInOtherCharacterSetsComesBackInUTF8) {
  for (const char* version : {"2.1", "3.0", "4.0"}) {
    EXPECT_THAT(linesAfterBlock("FN:\xE4\x80\nNOTE:\xDF", version),
                ElementsAre("FN:\u00E4\u20AC", "NOTE:\u00DF"))
        << version;
  }
  EXPECT_THAT(problems(*bookOf(card("FN:x\nNOTE:\xDF", "4.0"))),
              ElementsAre("4: bytes that are not valid UTF-8 were read as Windows-1252"));
}

TEST(ThroughABlock, LinesMayEndInAnExtraReturn) {
  const auto book =
      bookOf("BEGIN:VCARD\r\r\nVERSION:3.0\r\r\nUID:1\r\r\nFN:A\r\r\n B\r\r\nEND:VCARD\r\r\n");
  EXPECT_THAT(problems(*book), IsEmpty());
  EXPECT_THAT(linesIn(throughBlock(*book)), ElementsAre("UID:1", "FN:AB"));
}

TEST(ThroughABlock, ALoneSurrogateCostsOneCharacter) {
  std::string text = "\xFF\xFE";
  for (const char c : card("UID:1\nFN:A?\nNOTE:b")) {
    text += c == '?' ? '\x01' : c;
    text += c == '?' ? '\xD8' : '\0';
  }
  const auto book = bookOf(text);
  EXPECT_EQ(problems(*book).size(), 1U);
  EXPECT_THAT(linesIn(throughBlock(*book)), ElementsAre("UID:1", "FN:A\uFFFD", "NOTE:b"));
}

TEST(ThroughABlock, ALabelOfTheUsersOwnReadsWell) {
  EXPECT_EQ(entry(*person("TEL;X-CUSTOM(CHARSET=UTF-8,ENCODING=QUOTED-PRINTABLE,=46=6F):1", "2.1"),
                  OVProPertyPhone),
            "*Fo|Fo: 1");
  EXPECT_EQ(entry(*person("X-ANDROID-CUSTOM:vnd.android.cursor.item/nickname;Ben;1;"),
                  OVProPertyNickname),
            "Ben");
  EXPECT_EQ(entry(*person("X-ANDROID-CUSTOM:vnd.android.cursor.item/relation;Eva;14;;;"),
                  OVProPertyRelatedNames),
            "*spouse|Spouse: Eva");
}

TEST(ThroughABlock, OddLinesGoWithTheirValues) {
  const auto book = bookOf(card("UID:1\nFN:x\nTEL;PID=1.1:1\nADR;LABEL=l:;;s"));
  const auto general = snapshotOf(*book);
  const auto one = general->personsDic()["1"];
  std::dynamic_pointer_cast<OVMutableMultipleValue>(one->valueByPropertyName(OVProPertyPhone))
      ->removeValueAtIndex(0);
  EXPECT_THAT(linesIn(std::string(ov::vcard::exportBook(general)->text())),
              ElementsAre("UID:1", "FN:x", "ADR;LABEL=l:;;s"));
}

TEST(ThroughABlock, APersonStaysAPerson) {
  for (const char* lines : {"EMAIL;KIND=group:x", "item1.X-OTHER:group\nitem1.X-ABLABEL:KIND",
                            "X-A;X-KIND=group:group"}) {
    const auto again = bookOf(throughBlock(*bookOf(card(lines))));
    EXPECT_EQ(again->allPersonsCount(), 1U) << lines;
    EXPECT_EQ(again->rootGroupsCount(), 0U) << lines;
  }
}

TEST(ThroughABlock, AnUnknownImageKeepsItsLine) {
  EXPECT_THAT(linesAfterBlock("PHOTO;BASE64:QUJDRA==\n", "2.1"),
              Contains("PHOTO:data:application/octet-stream;base64,QUJDRA=="));
  EXPECT_THAT(linesAfterBlock("PHOTO;X-A=b;BASE64:QUJDRA==\n", "2.1"),
              Contains("PHOTO;X-A=b:data:application/octet-stream;base64,QUJDRA=="));
  EXPECT_THAT(linesAfterBlock("PHOTO;JPEG;BASE64:QUJDRA==\n", "2.1"),
              Contains("PHOTO;TYPE=JPEG:data:image/jpeg;base64,QUJDRA=="));
}

TEST(ThroughABlock, ATypeWithoutAWordIsNothing) {
  EXPECT_THAT(linesAfterBlock("N;TYPE=:a"), ElementsAre("FN:a", "N:a;;;;"));
}

}  // namespace
