#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/cards.h"
#include "support/fakes/fake_platform.h"
#include "support/printers.h"

namespace {

using testing::ElementsAre;

TEST(Names, ComeFromTheirParts) {
  const auto read = person("N:Last;First;Middle;Dr.;Jr.\nFN:Dr. First Middle Last Jr.");
  EXPECT_EQ(entry(*read, OVProPertyName), "First|Middle|Last");
  EXPECT_EQ(entry(*read, OVProPertyTitle), "Dr.");
  EXPECT_EQ(entry(*read, OVProPertySuffix), "Jr.");
  EXPECT_THAT(entries(*read, OVProPertyOther), testing::IsEmpty());
}

TEST(Names, MayLackParts) {
  EXPECT_EQ(entry(*person("N:Last", "2.1"), OVProPertyName), "null|null|Last");
  EXPECT_EQ(entry(*person("N:;First;;;"), OVProPertyName), "First|null|null");
  EXPECT_THAT(entries(*person("N:;;;;\nTEL:1"), OVProPertyName), testing::IsEmpty());
}

TEST(Names, JoinSeveralNamesOfOneKind) {
  const auto read = person("N:Stevenson;John;Philip,Paul;Dr.,Prof.;Jr.,M.D.");
  EXPECT_EQ(entry(*read, OVProPertyName), "John|Philip Paul|Stevenson");
  EXPECT_EQ(entry(*read, OVProPertyTitle), "Dr. Prof.");
  EXPECT_EQ(entry(*read, OVProPertySuffix), "Jr. M.D.");
  EXPECT_EQ(entry(*person("N:a\\,b;c"), OVProPertyName), "c|null|a,b");
  EXPECT_EQ(entry(*person("N:a,b;c", "2.1"), OVProPertyName), "c|null|a,b");
}

TEST(Names, TakeTheNewerPartsIn) {
  const auto read = person("N:Garc\u00EDa;Ana;;;;L\u00F3pez;III");
  EXPECT_EQ(entry(*read, OVProPertyName), "Ana|null|Garc\u00EDa L\u00F3pez");
  EXPECT_EQ(entry(*read, OVProPertySuffix), "III");
  EXPECT_EQ(entry(*person("N:Garc\u00EDa L\u00F3pez;Ana;;;Jr.;L\u00F3pez;Jr."), OVProPertyName),
            "Ana|null|Garc\u00EDa L\u00F3pez");
  EXPECT_EQ(entry(*person("N:a;b;c;d;e;f;g;h"), OVProPertyOther), "*N|N: a;b;c;d;e;f;g;h");
}

TEST(Names, AreTheFormattedNameWithoutParts) {
  EXPECT_EQ(entry(*person("FN:Anna Muster"), OVProPertyName), "Anna Muster|null|null");
  EXPECT_EQ(entry(*person("FN:Anna\nN:;;;;"), OVProPertyName), "Anna|null|null");
}

TEST(Names, KeepAFormattedNameThatSaysMore) {
  const auto read = person("X-A:1\nFN:Muster Anna\nN:Muster;Anna;;;\nFN;LANGUAGE=de:Frau Muster");
  EXPECT_EQ(entry(*read, OVProPertyName), "Anna|null|Muster");
  EXPECT_THAT(entries(*read, OVProPertyOther),
              ElementsAre("*X-A|X-A: 1", "FN|FN: Muster Anna", "FN;LANGUAGE=de|FN: Frau Muster"));
  EXPECT_THAT(entries(*person("N:B;A;;;\nFN;LANGUAGE=de:A B"), OVProPertyOther),
              ElementsAre("*FN;LANGUAGE=de|FN: A B"));
}

TEST(Names, AreWrittenWithTheFormattedName) {
  EXPECT_THAT(writtenLines(person("N:L;F;M;Dr.;Jr.")),
              ElementsAre("FN:Dr. F M L Jr.", "N:L;F;M;Dr.;Jr."));
  EXPECT_THAT(writtenLines(person("N:L;F\nFN:F. L.")), ElementsAre("N:L;F;;;", "FN:F. L."));
  EXPECT_THAT(writtenLines(person("N:;;;Dr.;")), ElementsAre("FN:Dr.", "N:;;;Dr.;"));
  EXPECT_THAT(writtenLines(person("N:a\\;b;c\\,d\\\\e")),
              ElementsAre("FN:c\\,d\\\\e a\\;b", "N:a\\;b;c\\,d\\\\e;;;"));
}

TEST(Names, AreWrittenInOneOrderWhateverTheUserPrefersToSee) {
  const FakePlatform platform;
  OVAddressBook::setlastNameInFront(true);
  const auto read = person("N:Last;First\nFN:First Last");
  EXPECT_EQ(read->displayName(), "Last First");
  EXPECT_THAT(writtenLines(read), ElementsAre("FN:First Last", "N:Last;First;;;"));
}

TEST(Names, ASecondNameIsKept) {
  EXPECT_EQ(entry(*person("N:a;b\nN:c;d"), OVProPertyOther), "*N|N: c;d");
}

TEST(PhoneticNames, HavePropertiesOfTheirOwn) {
  const auto read = person("X-PHONETIC-FIRST-NAME:hanako\nX-PHONETIC-LAST-NAME:yamada");
  EXPECT_EQ(entry(*read, OVProPertyFirstNamePhonetic), "hanako");
  EXPECT_EQ(entry(*read, OVProPertyLastNamePhonetic), "yamada");
  EXPECT_THAT(writtenLines(read),
              ElementsAre("X-PHONETIC-FIRST-NAME:hanako", "X-PHONETIC-LAST-NAME:yamada"));
}

TEST(PhoneticNames, MayBeInASound) {
  const auto read = person("SOUND;X-IRMC-N:yamada;hanako;;;", "2.1");
  EXPECT_EQ(entry(*read, OVProPertyFirstNamePhonetic), "hanako");
  EXPECT_EQ(entry(*read, OVProPertyLastNamePhonetic), "yamada");
}

TEST(PhoneticNames, OtherSoundsAreKept) {
  EXPECT_EQ(entry(*person("SOUND;TYPE=wave:http://example.com/a"), OVProPertyOther),
            "*SOUND;TYPE=wave|SOUND: http://example.com/a");
  EXPECT_EQ(entry(*person("SOUND;X-IRMC-N:a;b;c", "2.1"), OVProPertyOther),
            "*SOUND;TYPE=X-IRMC-N|SOUND: a;b;c");
  EXPECT_EQ(entry(*person("X-PHONETIC-LAST-NAME:x\nSOUND;X-IRMC-N:a;b", "2.1"), OVProPertyOther),
            "*SOUND;TYPE=X-IRMC-N|SOUND: a;b");
}

}  // namespace
