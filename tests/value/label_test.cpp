#include <OVAddressBookSDK/label.h>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "support/archive/archived_fields.h"
#include "support/printers.h"
#include "support/values.h"

namespace {

OVList<OVString> textList() { return OVList<OVString>::list({"a"}); }

TEST(Label, NewOneHasNoTexts) {
  const auto label = OVLabel::init();
  EXPECT_EQ(label->name(), nullptr);
  EXPECT_EQ(label->displayName(), nullptr);
}

TEST(Label, KeepsTheVeryTextsGiven) {
  const auto label = OVLabel::init();
  const OVString name = "home";
  const OVString displayName = "Home";
  label->setName(name);
  label->setDisplayName(displayName);
  EXPECT_TRUE(label->name().isSame(name));
  EXPECT_TRUE(label->displayName().isSame(displayName));
}

TEST(Label, TextsCanBeTakenAway) {
  const auto label = labelOf("home");
  label->setName(nullptr);
  EXPECT_EQ(label->name(), nullptr);
  EXPECT_EQ(label->displayName(), "home");
  label->setDisplayName(nullptr);
  EXPECT_EQ(label->displayName(), nullptr);
}

TEST(LabelArchive, HoldsBothTexts) {
  const auto label = labelOf("home");
  label->setDisplayName("Home");
  const ArchivedForm form(label);
  EXPECT_EQ(form.classes(), (std::vector<OVString>{"OVLabel", "NSObject"}));
  EXPECT_EQ(form.keys(), (std::vector<OVString>{"name", "displayName"}));
  const auto again = restored<OVLabel>(label);
  EXPECT_EQ(again->name(), "home");
  EXPECT_EQ(again->displayName(), "Home");
}

TEST(LabelArchive, WithoutTextsHasNoKeys) {
  const auto label = OVLabel::init();
  EXPECT_TRUE(ArchivedForm(label).keys().empty());
  const auto again = restored<OVLabel>(label);
  EXPECT_EQ(again->name(), nullptr);
  EXPECT_EQ(again->displayName(), nullptr);
}

TEST(LabelArchive, OneTextIsOneKey) {
  const auto named = OVLabel::init();
  named->setName("home");
  EXPECT_EQ(ArchivedForm(named).keys(), std::vector<OVString>{"name"});
  const auto shown = OVLabel::init();
  shown->setDisplayName("Home");
  EXPECT_EQ(ArchivedForm(shown).keys(), std::vector<OVString>{"displayName"});
  EXPECT_EQ(restored<OVLabel>(shown)->name(), nullptr);
  EXPECT_EQ(restored<OVLabel>(shown)->displayName(), "Home");
}

TEST(LabelArchive, EmptyTextIsNotNull) {
  const auto label = labelOf("");
  EXPECT_EQ(ArchivedForm(label).keys().size(), 2U);
  EXPECT_EQ(restored<OVLabel>(label)->name(), "");
}

TEST(LabelArchive, ObjectThatIsNoTextReadsAsNull) {
  const auto label = restored<OVLabel>(
      archivedAs("OVLabel", {{"name", foreignObject()}, {"displayName", OVString("Home")}}));
  ASSERT_NE(label, nullptr);
  EXPECT_EQ(label->name(), nullptr);
  EXPECT_EQ(label->displayName(), "Home");
}

TEST(LabelArchive, UnknownKeysAreIgnored) {
  const auto label =
      restored<OVLabel>(archivedAs("OVLabel", {{"version", 2}, {"name", OVString("home")}}));
  EXPECT_EQ(label->name(), "home");
}

TEST(LabelArchive, ObjectThatIsNoTextIsWrittenBackUntilATextTakesItsPlace) {
  const auto label = restored<OVLabel>(
      archivedAs("OVLabel", {{"name", foreignObject()}, {"displayName", textList()}}));
  EXPECT_EQ(label->displayName(), nullptr);
  EXPECT_TRUE(isForeignObject(ArchivedForm(label).object("name")));
  EXPECT_EQ(ov::cast<OVList<OVString>>(ArchivedForm(label).object("displayName"))[0], "a");
  label->setName("home");
  label->setDisplayName(nullptr);
  const ArchivedForm form(label);
  EXPECT_EQ(form.keys(), std::vector<OVString>{"name"});
  EXPECT_EQ(ov::cast<OVString>(form.object("name")), "home");
}

TEST(LabelArchive, ObjectInPlaceOfSeveralTextsStaysOneObject) {
  const auto shared = foreignObject();
  const auto list = restored<OVList<OVLabel>>(
      OVList<OVObject>::list({archivedAs("OVLabel", {{"name", shared}, {"displayName", shared}}),
                              archivedAs("OVLabel", {{"name", shared}})}));
  const auto written =
      ov::cast<OVList<OVOpaqueObject>>(OVKeyedUnarchiver::unarchiveOpaqueObjectWithData(
          OVKeyedArchiver::archivedDataWithRootObject(list)));
  const auto fieldOf = [&](std::size_t index, std::size_t field) {
    return std::get<OVOpaqueValue::Reference>(written[index]->fields()[field].value.content).object;
  };
  EXPECT_EQ(fieldOf(0, 0), fieldOf(0, 1));
  EXPECT_EQ(fieldOf(0, 0), fieldOf(1, 0));
}

}  // namespace
