#include "mapping/labels.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/multiple_value.h>
#include <OVAddressBookSDK/person_general.h>

#include "hosts/cards.h"

namespace {

using testing::ElementsAre;

std::string labelOf(const std::string& lines, const OVString& property = OVProPertyPhone,
                    std::string_view version = "4.0") {
  const std::string text = entry(*person(lines, version), property);
  return text.substr(1, text.find(':') - 1);
}

struct TypeRow {
  const char* types;
  const char* label;
};

TEST(Labels, ComeFromTypes) {
  const TypeRow rows[] = {
      {"home", "home|Home"},
      {"WORK", "work|Work"},
      {"cell", "mobile|Mobile"},
      {"home,cell", "home mobile|Home mobile"},
      {"fax,work", "work fax|Work fax"},
      {"voice", "Phone|Phone"},
      {"home,voice", "home|Home"},
      {"pref", "Phone|Phone"},
      {"main", "main|Main"},
      {"pager", "pager|Pager"},
      {"bbs", "BBS|BBS"},
      {"isdn", "ISDN|ISDN"},
      {"msg", "message|Message"},
      {"textphone", "TTY|TTY"},
      {"other,fax", "other fax|Other fax"},
      {"x-boat", "boat|Boat"},
      {"X-Ferienhaus", "Ferienhaus|Ferienhaus"},
      {"IPHONE", "iPhone|iPhone"},
      {"home,homefax", "home home fax|Home home fax"},
  };
  for (const TypeRow& row : rows) {
    EXPECT_EQ(labelOf("TEL;TYPE=" + std::string(row.types) + ":1"), row.label) << row.types;
  }
}

TEST(Labels, AreThePropertysOwnWithoutAType) {
  EXPECT_EQ(labelOf("TEL:1"), "Phone|Phone");
  EXPECT_EQ(labelOf("X-SKYPE:me", OVProPertyInstantMessage), "Instant Message|Instant Message");
  EXPECT_EQ(labelOf("EMAIL;TYPE=internet:a@b", OVProPertyEmail), "Email|Email");
  EXPECT_EQ(labelOf("URL;TYPE=internet:a", OVProPertyURLs), "internet|Internet");
}

TEST(Labels, OfAddressesDoNotTellHowLettersTravel) {
  EXPECT_EQ(labelOf("ADR;TYPE=intl,postal,parcel:;;x", OVProPertyAddress), "Address|Address");
  EXPECT_EQ(labelOf("ADR;TYPE=dom,home,postal:;;x", OVProPertyAddress), "home|Home");
  EXPECT_THAT(writtenLines(person("ADR;TYPE=dom,home,postal:;;x")),
              ElementsAre("ADR;TYPE=dom,home,postal:;;x"));
}

TEST(Labels, MayBeTheUsersOwn) {
  EXPECT_EQ(labelOf("a.TEL:1\na.X-ABLabel:Ferienhaus"), "Ferienhaus|Ferienhaus");
  EXPECT_EQ(labelOf("a.TEL;TYPE=home:1\na.X-ABLabel:Ferienhaus"), "home|Ferienhaus");
  EXPECT_EQ(labelOf("a.TEL:1\na.X-ABLabel:a\\, b"), "a, b|a, b");
  EXPECT_EQ(labelOf("a.TEL:1\na.X-ABLabel:"), "Phone|Phone");
}

TEST(Labels, KnowTheWellKnown) {
  EXPECT_EQ(labelOf("a.URL:x\na.X-ABLabel:_$!<HomePage>!$_", OVProPertyURLs), "homepage|Home page");
  EXPECT_EQ(labelOf("a.TEL:1\na.X-ABLabel:_$!<Mobile>!$_"), "mobile|Mobile");
  EXPECT_EQ(labelOf("a.TEL:1\na.X-ABLabel:_$!<WorkFAX>!$_"), "work fax|Work fax");
  EXPECT_EQ(labelOf("a.TEL:1\na.X-ABLabel:_$!<Assistant>!$_"), "assistant|Assistant");
  EXPECT_EQ(labelOf("a.TEL:1\na.X-ABLabel:_$!<YoungerSister>!$_"), "youngersister|Younger sister");
  EXPECT_EQ(labelOf("a.TEL:1\na.X-ABLabel:_$!<>!$_"), "_$!<>!$_|_$!<>!$_");
}

TEST(Labels, BelongToOneValueEach) {
  const auto read = person("TEL;TYPE=home:1\nTEL;TYPE=home:2");
  const auto phones =
      std::dynamic_pointer_cast<OVMultipleValue>(read->valueByPropertyName(OVProPertyPhone));
  EXPECT_NE(phones->valueAtIndex(0)->label(), phones->valueAtIndex(1)->label());
}

/// The phone of a general person whose label has these texts, after a way through a card.
std::string labelAfterCard(const OVString& name, const OVString& displayName) {
  const auto label = OVLabel::init();
  label->setName(name);
  label->setDisplayName(displayName);
  const auto phones = OVMutableMultipleValue::init();
  phones->addValue(OVPersonGeneral::singleValueByMacValueLabelType(
      OVObjectPhone::initWithPhoneNumber("1"), label, OVValueTypePhone));
  const auto original = OVPersonGeneral::initWithID("p");
  original->setValueByPropertyName(phones, OVProPertyPhone);

  std::string lines;
  for (const std::string& line : writtenLines(original)) lines += line + "\n";
  return labelOf(lines);
}

TEST(Labels, ComeBackFromACard) {
  const std::pair<const char*, const char*> rows[] = {
      {"home", "Home"},
      {"home", "Zuhause"},
      {"home", "home"},
      {"mobile", "Mobile"},
      {"work fax", "Work fax"},
      {"Ferienhaus", "Ferienhaus"},
      {"Phone", "Phone"},
      {"Phone", "Telefon"},
      {"pref", "Pref"},
      {"voice", "Voice"},
      {"CELL", "CELL"},
      {"cell", "Cell"},
      {"fax work", "Fax work"},
      {"home ", "Home "},
      {"_$!<Home>!$_", "home"},
      {"a", "_$!<Home>!$_"},
      {"_$!<X>!$_", "_$!<X>!$_"},
      {"a\nb;c,d\"^", "e\nf;g,h\\"},
      {"\u00E9t\u00E9", "\u00C9t\u00E9"},
  };
  for (const auto& [name, displayName] : rows) {
    EXPECT_EQ(labelAfterCard(name, displayName), std::string(name) + "|" + displayName);
  }
}

TEST(Labels, WithoutTextsBecomeThePropertysOwn) {
  EXPECT_EQ(labelAfterCard(nullptr, nullptr), "Phone|Phone");
  EXPECT_EQ(labelAfterCard("", ""), "Phone|Phone");
  EXPECT_EQ(labelAfterCard("shop", nullptr), "shop|shop");
  EXPECT_EQ(labelAfterCard(nullptr, "shop"), "shop|shop");
}

TEST(Labels, AreWrittenTheUsualWay) {
  EXPECT_THAT(writtenLines(person("TEL;TYPE=FAX,WORK:1\na.TEL:2\na.X-ABLabel:shop")),
              ElementsAre("TEL;PREF=1;TYPE=work,fax:1", "item1.TEL:2", "item1.X-ABLABEL:shop"));
}

}  // namespace
