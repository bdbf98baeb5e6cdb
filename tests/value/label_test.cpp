#include <OVAddressBookSDK/label.h>

#include <gtest/gtest.h>

#include "support/archived_fields.h"
#include "support/printers.h"
#include "support/values.h"

namespace {

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

}  // namespace
