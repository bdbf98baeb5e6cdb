#include <gtest/gtest.h>

#include <OVAddressBookSDK/address_book.h>
#include <OVAddressBookSDK/number.h>
#include <OVAddressBookSDK/person_name.h>
#include <OVAddressBookSDK/user_defaults.h>

#include "support/archive/archived_fields.h"
#include "support/fakes/fake_platform.h"
#include "support/printers.h"

namespace {

class DisplayString : public testing::Test {
 protected:
  static OVString firstNameFirst(const OVRef<OVObjectPersonName>& name) {
    OVAddressBook::setlastNameInFront(false);
    return name->displayString();
  }
  static OVString lastNameFirst(const OVRef<OVObjectPersonName>& name) {
    OVAddressBook::setlastNameInFront(true);
    return name->displayString();
  }
  static OVRef<OVObjectPersonName> nameOf(const OVString& first, const OVString& middle,
                                          const OVString& last) {
    return OVObjectPersonName::initWithFirstMiddleLast(first, middle, last);
  }

 private:
  const FakePlatform platform_;
};

TEST_F(DisplayString, FollowsTheNameOrder) {
  const auto name = nameOf("John", nullptr, "Smith");
  EXPECT_EQ(firstNameFirst(name), "John Smith");
  EXPECT_EQ(lastNameFirst(name), "Smith John");
}

TEST_F(DisplayString, IsFirstNameFirstUntilSomebodyAsksOtherwise) {
  EXPECT_EQ(nameOf("John", nullptr, "Smith")->displayString(), "John Smith");
}

TEST_F(DisplayString, MiddleNameIsAlwaysInTheMiddle) {
  const auto name = nameOf("John", "Paul", "Smith");
  EXPECT_EQ(firstNameFirst(name), "John Paul Smith");
  EXPECT_EQ(lastNameFirst(name), "Smith Paul John");
}

TEST_F(DisplayString, OnlyALastNameHasNoSpaces) {
  const auto name = nameOf(nullptr, nullptr, "Smith");
  EXPECT_EQ(firstNameFirst(name), "Smith");
  EXPECT_EQ(lastNameFirst(name), "Smith");
}

TEST_F(DisplayString, OnlyAMiddleNameHasNoSpaces) {
  const auto name = nameOf(nullptr, "Q", nullptr);
  EXPECT_EQ(firstNameFirst(name), "Q");
  EXPECT_EQ(lastNameFirst(name), "Q");
}

TEST_F(DisplayString, TwoOfThreePartsHaveOneSpace) {
  EXPECT_EQ(firstNameFirst(nameOf("A", "B", nullptr)), "A B");
  EXPECT_EQ(lastNameFirst(nameOf("A", "B", nullptr)), "B A");
  EXPECT_EQ(firstNameFirst(nameOf(nullptr, "B", "C")), "B C");
  EXPECT_EQ(lastNameFirst(nameOf(nullptr, "B", "C")), "C B");
}

TEST_F(DisplayString, OfNoPartsIsEmptyAndNotNull) {
  EXPECT_EQ(firstNameFirst(nameOf("\n", nullptr, nullptr)), "");
  EXPECT_EQ(lastNameFirst(nameOf("\n", nullptr, nullptr)), "");
}

TEST_F(DisplayString, EveryScriptIsJoinedWithSpaces) {
  EXPECT_EQ(lastNameFirst(nameOf("小明", nullptr, "王")), "王 小明");
  EXPECT_EQ(firstNameFirst(nameOf("小明", nullptr, "王")), "小明 王");
}

TEST_F(DisplayString, SpacesOfThePartsAreKept) {
  EXPECT_EQ(firstNameFirst(nameOf(" A ", nullptr, " C")), " A   C");
}

OVRef<OVObjectPersonName> archivedName(std::vector<ArchivedField> parts) {
  return restored<OVObjectPersonName>(archivedAs("OVObjectPersonName", std::move(parts)));
}

TEST_F(DisplayString, EmptyPartOfAnArchiveStillTakesItsSpace) {
  EXPECT_EQ(firstNameFirst(archivedName({{"first", OVString("Ann")}, {"middle", OVString("")}})),
            "Ann ");
  EXPECT_EQ(firstNameFirst(archivedName({{"middle", OVString("")}, {"last", OVString("Lee")}})),
            "Lee");
  EXPECT_EQ(firstNameFirst(archivedName({{"first", OVString("")}, {"last", OVString("")}})), "");
}

using PersonNameArchive = DisplayString;

TEST_F(PersonNameArchive, HoldsAllParts) {
  const auto name = nameOf("John", "Paul", "Smith");
  const ArchivedForm form(name);
  EXPECT_EQ(form.classes(), (std::vector<OVString>{"OVObjectPersonName", "NSObject"}));
  EXPECT_EQ(form.keys(), (std::vector<OVString>{"first", "middle", "last"}));
  const auto again = restored<OVObjectPersonName>(name);
  EXPECT_EQ(again->first(), "John");
  EXPECT_EQ(again->middle(), "Paul");
  EXPECT_EQ(again->last(), "Smith");
}

TEST_F(PersonNameArchive, NullPartWritesNoKey) {
  const auto name = nameOf("John", nullptr, "Smith");
  EXPECT_EQ(ArchivedForm(name).keys(), (std::vector<OVString>{"first", "last"}));
  EXPECT_EQ(restored<OVObjectPersonName>(name)->middle(), nullptr);
}

TEST_F(PersonNameArchive, AbsentKeysReadAsNull) {
  const auto name = archivedName({});
  ASSERT_NE(name, nullptr);
  EXPECT_EQ(name->first(), nullptr);
  EXPECT_EQ(name->middle(), nullptr);
  EXPECT_EQ(name->last(), nullptr);
  EXPECT_EQ(name->displayString(), "");
  EXPECT_TRUE(ArchivedForm(name).keys().empty());
}

TEST_F(PersonNameArchive, PartsAreReadUnchanged) {
  const auto name = archivedName({{"first", OVString("Jo\nhn")}, {"last", OVString("")}});
  EXPECT_EQ(name->first(), "Jo\nhn");
  EXPECT_EQ(name->last(), "");
  EXPECT_EQ(ArchivedForm(name).keys(), (std::vector<OVString>{"first", "last"}));
}

TEST_F(PersonNameArchive, PartThatIsNoTextReadsAsNull) {
  const auto name = archivedName({{"first", foreignObject()}, {"last", OVString("Smith")}});
  EXPECT_EQ(name->first(), nullptr);
  EXPECT_EQ(firstNameFirst(name), "Smith");
}

TEST_F(PersonNameArchive, PartThatIsNoTextIsWrittenBack) {
  const auto name = archivedName(
      {{"first", OVString("Ann")}, {"middle", foreignObject()}, {"last", foreignObject()}});
  EXPECT_EQ(firstNameFirst(name), "Ann");
  const ArchivedForm form(name);
  EXPECT_EQ(form.keys(), (std::vector<OVString>{"first", "middle", "last"}));
  EXPECT_TRUE(isForeignObject(form.object("middle")));
  EXPECT_TRUE(isForeignObject(form.object("last")));
}

TEST_F(DisplayString, EmptyPartsOfAnArchiveInTheMiddleAndAtTheEnd) {
  const auto name = archivedName(
      {{"first", OVString("Ann")}, {"middle", OVString("")}, {"last", OVString("Lee")}});
  EXPECT_EQ(firstNameFirst(name), "Ann  Lee");
  EXPECT_EQ(lastNameFirst(name), "Lee  Ann");
  const auto withoutEnd =
      archivedName({{"first", OVString("Ann")}, {"middle", OVString("B")}, {"last", OVString("")}});
  EXPECT_EQ(firstNameFirst(withoutEnd), "Ann B ");
  EXPECT_EQ(lastNameFirst(withoutEnd), "B Ann");
  const auto nameAlone = archivedName({{"first", OVString("Ann")}, {"last", OVString("")}});
  EXPECT_EQ(firstNameFirst(nameAlone), "Ann ");
  EXPECT_EQ(lastNameFirst(nameAlone), "Ann");
}

/// A host's own kind of name.
class Pseudonym : public OVObjectPersonName {
 public:
  Pseudonym(const OVString& first, const OVString& last)
      : OVObjectPersonName(first, nullptr, last) {}
};

TEST_F(DisplayString, OfADerivedNameIsThatOfItsParts) {
  const auto name = std::make_shared<Pseudonym>("An\nn", "");
  EXPECT_EQ(name->first(), "Ann");
  EXPECT_EQ(name->last(), nullptr);
  EXPECT_EQ(firstNameFirst(name), "Ann");
}

/// Counts how often somebody asks for anything.
class CountingDefaults final : public OVUserDefaults {
 public:
  mutable int asked = 0;

 private:
  OVRef<OVObject> load(const OVString& /*key*/) const override {
    ++asked;
    return OVNumber::numberWithBool(true);
  }
  void store(const OVRef<OVObject>& /*object*/, const OVString& /*key*/) override {}
  bool writeThrough() override { return true; }
};

TEST(DisplayStringDefaults, AreAskedOnceForEachDisplay) {
  const auto defaults = std::make_shared<CountingDefaults>();
  OVUserDefaults::setStandardUserDefaults(defaults);
  const auto name = OVObjectPersonName::initWithFirstMiddleLast("John", "Paul", "Smith");
  EXPECT_EQ(defaults->asked, 0);
  for (int times = 1; times <= 3; ++times) {
    EXPECT_EQ(name->displayString(), "Smith Paul John");
    EXPECT_EQ(defaults->asked, times);
  }
  OVUserDefaults::setStandardUserDefaults(nullptr);
}

}  // namespace
