#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/multiple_value.h>

#include "hosts/cards.h"
#include "support/printers.h"
#include "support/values.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Phones, AreReadAndWritten) {
  const auto read = person("TEL;TYPE=home:+1 (555) 010\\;x\nTEL;TYPE=cell:tel:+1-555;ext=12");
  EXPECT_THAT(entries(*read, OVProPertyPhone),
              ElementsAre("*home|Home: +1 (555) 010;x", "mobile|Mobile: +1-555;ext=12"));
  EXPECT_EQ(read->mainPhone()->phoneNumber(), "+1 (555) 010;x");
  EXPECT_THAT(writtenLines(read), ElementsAre("TEL;PREF=1;TYPE=home:+1 (555) 010\\;x",
                                              "TEL;TYPE=cell:+1-555\\;ext=12"));
}

TEST(Emails, AreReadAndWritten) {
  const auto read = person("EMAIL;TYPE=work:a@example.com\nEMAIL:MAILTO:b@example.com");
  EXPECT_THAT(entries(*read, OVProPertyEmail),
              ElementsAre("*work|Work: a@example.com", "Email|Email: b@example.com"));
  EXPECT_EQ(read->mainEmail()->email(), "a@example.com");
  EXPECT_THAT(writtenLines(read),
              ElementsAre("EMAIL;PREF=1;TYPE=work:a@example.com", "EMAIL:b@example.com"));
}

TEST(URLs, AreReadAndWritten) {
  const auto read = person("URL;TYPE=home:https://example.com/?a=1;b=2,c\\,d");
  EXPECT_EQ(entry(*read, OVProPertyURLs), "*home|Home: https://example.com/?a=1;b=2,c,d");
  EXPECT_THAT(writtenLines(read), ElementsAre("URL;TYPE=home:https://example.com/?a=1;b=2,c,d"));
}

TEST(RelatedNames, AreReadAndWritten) {
  const auto read = person(
      "RELATED;TYPE=spouse;VALUE=text:Per\\, P.\nRELATED;TYPE=friend:urn:uuid:1\nRELATED:Note: x");
  EXPECT_THAT(entries(*read, OVProPertyRelatedNames),
              ElementsAre("*spouse|Spouse: Per, P.", "friend|Friend: urn:uuid:1",
                          "Related Names|Related Names: Note: x"));
  EXPECT_THAT(writtenLines(read),
              ElementsAre("RELATED;VALUE=text;PREF=1;TYPE=spouse:Per\\, P.",
                          "RELATED;TYPE=friend:urn:uuid:1", "RELATED;VALUE=text:Note: x"));
}

TEST(RelatedNames, HaveOlderSpellings) {
  const std::pair<const char*, const char*> rows[] = {
      {"X-SPOUSE:x", "*spouse|Spouse: x"},
      {"X-BOOK-SPOUSE:x", "*spouse|Spouse: x"},
      {"X-CHILD:x", "*child|Child: x"},
      {"X-MANAGER:x", "*manager|Manager: x"},
      {"X-BOOK-ASSISTANT:x", "*assistant|Assistant: x"},
      {"X-ABRELATEDNAMES;TYPE=mother:x", "*mother|Mother: x"},
      {"a.X-ABRELATEDNAMES:x\na.X-ABLabel:_$!<Brother>!$_", "*brother|Brother: x"},
  };
  for (const auto& [lines, expected] : rows) {
    EXPECT_EQ(entry(*person(lines), OVProPertyRelatedNames), expected) << lines;
  }
}

TEST(Entries, TheMostPreferredIsTheMainValue) {
  EXPECT_THAT(entries(*person("TEL:1\nTEL;PREF=2:2\nTEL;PREF=1:3\nTEL;PREF=1:4"), OVProPertyPhone),
              ElementsAre("Phone|Phone: 1", "Phone|Phone: 2", "*Phone|Phone: 3", "Phone|Phone: 4"));
  EXPECT_THAT(entries(*person("TEL;TYPE=home:1\nTEL;TYPE=pref:2", "3.0"), OVProPertyPhone),
              ElementsAre("home|Home: 1", "*Phone|Phone: 2"));
  EXPECT_THAT(entries(*person("TEL;HOME:1\nTEL;WORK;PREF:2", "2.1"), OVProPertyPhone),
              ElementsAre("home|Home: 1", "*work|Work: 2"));
}

TEST(Entries, TheFirstIsTheMainValueWhenNoneIsPreferred) {
  EXPECT_THAT(entries(*person("EMAIL:a@b\nEMAIL:c@d"), OVProPertyEmail),
              ElementsAre("*Email|Email: a@b", "Email|Email: c@d"));
}

TEST(Entries, HaveTheTypeOfTheirProperty) {
  const auto read = person(
      "TEL:1\nEMAIL:a@b\nURL:x\nRELATED:y\nANNIVERSARY:20010101\n"
      "IMPP:aim:z\nADR:;;s\nX-FOO:1");
  for (const OVString* name :
       {&OVProPertyPhone, &OVProPertyEmail, &OVProPertyURLs, &OVProPertyRelatedNames,
        &OVProPertyDate, &OVProPertyInstantMessage, &OVProPertyAddress, &OVProPertyOther}) {
    const auto value =
        std::dynamic_pointer_cast<OVMutableMultipleValue>(read->valueByPropertyName(*name));
    ASSERT_NE(value, nullptr) << *name;
    EXPECT_EQ(value->subType(), OVProperty::propertyWithName(*name)->subValueType()) << *name;
  }
}

TEST(Entries, PassEmptyOnesOver) {
  const auto read = person(
      "N:;x\nFN:x\nTEL:\nEMAIL:\nURL:\nRELATED:\nIMPP:\nADR:;;;;;;\nANNIVERSARY:\n"
      "X-AIM:\nBDAY:");
  for (const OVRef<OVProperty> property : OVProperty::StandardPropertyArray()) {
    if (property->name() == OVProPertyName) continue;
    EXPECT_EQ(read->valueByProperty(property), nullptr) << property->name();
  }
}

TEST(Entries, KeepOrderAcrossSpellings) {
  EXPECT_THAT(entries(*person("X-AIM:a\nIMPP:skype:b\nX-ICQ:c"), OVProPertyInstantMessage),
              ElementsAre("*Instant Message|Instant Message: AIMInstant:a",
                          "Instant Message|Instant Message: SkypeInstant:b",
                          "Instant Message|Instant Message: ICQInstant:c"));
}

TEST(Entries, WithNoMainValueAreWrittenWithoutPreference) {
  const auto read = person("TEL:1\nTEL;PREF=1:2");
  std::dynamic_pointer_cast<OVMutableMultipleValue>(read->valueByPropertyName(OVProPertyPhone))
      ->setMainValue(nullptr);
  EXPECT_THAT(writtenLines(read), ElementsAre("TEL:1", "TEL:2"));
}

TEST(Entries, OfAForeignClassAreLeftOut) {
  const auto read = person("TEL:1");
  const auto phones =
      std::dynamic_pointer_cast<OVMutableMultipleValue>(read->valueByPropertyName(OVProPertyPhone));
  phones->addValue(textValue("no phone", OVValueTypePhone));
  EXPECT_THAT(writtenLines(read), ElementsAre("TEL;PREF=1:1"));
}

TEST(Entries, NeedNotBeInAMultipleValue) {
  const auto read = person("TEL:1");
  read->setValueByPropertyName(valueOf(OVValueTypePhone, OVObjectPhone::initWithPhoneNumber("2")),
                               OVProPertyPhone);
  EXPECT_THAT(writtenLines(read), ElementsAre("TEL:2"));
  EXPECT_EQ(read->mainPhone(), nullptr);
}

}  // namespace
