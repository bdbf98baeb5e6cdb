#include <string>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/property.h>

#include "support/fakes/fake_platform.h"
#include "support/printers.h"
#include "support/processes/own_process.h"

namespace {

constexpr const char* kSame = nullptr;

struct Row {
  std::size_t index;
  const char* name;
  const char* displayName;
  int valueType;
  int subValueType;
};

const Row kRows[] = {
    {0, "Thumbnail", kSame, 5, 0},
    {1, "Name", kSame, 8, 0},
    {2, "MaidenName", "Maiden Name", 0, 0},
    {3, "Is Organization", kSame, 0, 0},
    {4, "Company", kSame, 0, 0},
    {5, "Tags", kSame, 10, 0},
    {6, "Phone", kSame, 12, 6},
    {7, "Email", kSame, 12, 7},
    {8, "FirstNamePhonetic", "Phonetic First Name", 0, 0},
    {9, "LastNamePhonetic", "Phonetic Last Name", 0, 0},
    {10, "Prefix", kSame, 0, 0},
    {11, "Suffix", kSame, 0, 0},
    {12, "Nickname", kSame, 0, 0},
    {13, "Department", kSame, 0, 0},
    {14, "JobTitle", "Job Title", 0, 0},
    {15, "Birthday", kSame, 3, 0},
    {16, "Date", kSame, 12, 3},
    {17, "URL", kSame, 12, 0},
    {18, "InstantMessage", "Instant Message", 12, 13},
    {19, "Address", kSame, 12, 9},
    {20, "RelatedNames", "Related Names", 12, 0},
    {21, "Other", kSame, 12, 0},
    {22, "Note", kSame, 11, 0},
};

class Catalogue : public testing::TestWithParam<Row> {
 protected:
  const OVRef<OVProperty> property = OVProperty::StandardPropertyArray()[GetParam().index];
};

TEST_P(Catalogue, HasTheNameAtItsPlace) { EXPECT_EQ(property->name(), GetParam().name); }

TEST_P(Catalogue, ShowsTheDisplayName) {
  if (GetParam().displayName == kSame) {
    EXPECT_TRUE(property->displayName().isSame(property->name()));
  } else {
    EXPECT_EQ(property->displayName(), GetParam().displayName);
  }
  EXPECT_TRUE(property->description().isSame(property->displayName()));
}

TEST_P(Catalogue, HasTheTypes) {
  EXPECT_EQ(property->valueType(), GetParam().valueType);
  EXPECT_EQ(property->subValueType(), GetParam().subValueType);
}

TEST_P(Catalogue, IsFoundByAnEqualName) {
  const OVString name = std::string(GetParam().name);
  EXPECT_FALSE(name.isSame(property->name()));
  EXPECT_EQ(OVProperty::propertyWithName(name), property);
  EXPECT_EQ(OVProperty::StandardPropertyDictionary()[name], property);
}

INSTANTIATE_TEST_SUITE_P(Table, Catalogue, testing::ValuesIn(kRows), [](const auto& row) {
  std::string name = row.param.name;
  std::erase(name, ' ');
  return name;
});

TEST(StandardProperties, AreTwentyThreeFromThumbnailToNote) {
  const auto list = OVProperty::StandardPropertyArray();
  EXPECT_EQ(list.size(), 23U);
  EXPECT_EQ(list.size(), std::size(kRows));
  EXPECT_EQ(list.front()->name(), "Thumbnail");
  EXPECT_EQ(list.back()->name(), "Note");
}

TEST(StandardProperties, AreTheSameObjectsOnEveryCall) {
  static_assert(
      std::same_as<decltype(OVProperty::StandardPropertyArray()), OVList<const OVProperty>>);
  static_assert(std::same_as<decltype(OVProperty::StandardPropertyDictionary()),
                             OVDictionary<const OVProperty>>);
  EXPECT_EQ(OVProperty::StandardPropertyArray(), OVProperty::StandardPropertyArray());
  EXPECT_EQ(OVProperty::StandardPropertyDictionary(), OVProperty::StandardPropertyDictionary());
}

TEST(StandardProperties, DictionaryHoldsTheListsDescriptors) {
  const auto list = OVProperty::StandardPropertyArray();
  const auto dictionary = OVProperty::StandardPropertyDictionary();
  EXPECT_EQ(dictionary.size(), list.size());
  for (const auto property : list) EXPECT_EQ(dictionary[property->name()], property);
}

TEST(PropertyWithName, PrefixIsTheTitle) {
  EXPECT_EQ(OVProperty::propertyWithName("Prefix")->displayName(), "Prefix");
}

TEST(PropertyWithName, UnknownNamesHaveNoDescriptor) {
  for (const OVString name : {"Title", "SocialProfile", "Quorvel Other Property", "", "name",
                              "NAME", "URLs", "Maiden Name", " Name"}) {
    EXPECT_EQ(OVProperty::propertyWithName(name), nullptr) << name;
  }
}

TEST(PropertyWithName, NullHasNoDescriptor) {
  EXPECT_EQ(OVProperty::propertyWithName(nullptr), nullptr);
}

TEST(PropertyWithName, PhoneUrlAndNoteHaveTheirTypes) {
  const auto phone = OVProperty::propertyWithName("Phone");
  EXPECT_EQ(phone->valueType(), 12);
  EXPECT_EQ(phone->subValueType(), 6);
  const auto url = OVProperty::propertyWithName("URL");
  EXPECT_EQ(url->valueType(), 12);
  EXPECT_EQ(url->subValueType(), 0);
  const auto note = OVProperty::propertyWithName("Note");
  EXPECT_EQ(note->valueType(), 11);
  EXPECT_EQ(note->subValueType(), 0);
}

TEST(PropertyDescription, IsTheDisplayName) {
  EXPECT_EQ(OVProperty::propertyWithName("JobTitle")->description(), "Job Title");
}

TEST(PropertyDescriptor, IsNotArchived) {
  EXPECT_EQ(OVProperty::propertyWithName("Phone")->classForCoder(), nullptr);
}

TEST(FirstUse, OfTheDictionaryBuildsTheCatalogue) {
  expectInOwnProcess([] {
    const auto dictionary = OVProperty::StandardPropertyDictionary();
    EXPECT_EQ(dictionary.size(), 23U);
    EXPECT_EQ(dictionary["Note"], OVProperty::StandardPropertyArray().back());
  });
}

TEST(FirstUse, OfALookUpBuildsTheCatalogue) {
  expectInOwnProcess([] {
    const auto note = OVProperty::propertyWithName("Note");
    EXPECT_NE(note, nullptr);
    EXPECT_EQ(note, OVProperty::StandardPropertyArray().back());
  });
}

TEST(TestAddress, WritesOneLineToTheLog) {
  const FakePlatform platform;
  OVProperty::testAddress();
  EXPECT_EQ(platform.log->lines(), std::vector<OVString>{"aa"});
}

}  // namespace
