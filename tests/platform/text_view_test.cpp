#include <OVAddressBookSDK/text_view.h>

#include <concepts>
#include <map>
#include <string>
#include <string_view>
#include <type_traits>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/dictionary.h>

#include "support/printers.h"

namespace {

template <class T>
constexpr bool isLookedAt = std::convertible_to<T, const OVStringView&>;

static_assert(isLookedAt<std::nullptr_t> && isLookedAt<const char*> &&
              isLookedAt<const char (&)[3]>);
static_assert(isLookedAt<std::string> && isLookedAt<std::string_view> && isLookedAt<OVString>);
static_assert(!isLookedAt<int> && !isLookedAt<OVRef<OVObject>>);

// Nothing keeps one by accident.
static_assert(!std::is_copy_constructible_v<OVStringView>);
static_assert(!std::is_copy_assignable_v<OVStringView>);
static_assert(!std::is_default_constructible_v<OVStringView>);
static_assert(!std::convertible_to<const OVStringView&, OVString>);
static_assert(!std::convertible_to<const OVStringView&, std::string_view>);

TEST(TextView, ShowsTheCharactersOfWhateverItIsMadeOf) {
  EXPECT_EQ(OVStringView("Ann").view(), "Ann");
  EXPECT_EQ(OVStringView(std::string("Ann")).view(), "Ann");
  EXPECT_EQ(OVStringView(std::string_view("Anna").substr(0, 3)).view(), "Ann");
  EXPECT_EQ(OVStringView(OVString("Ann")).view(), "Ann");
  EXPECT_EQ(OVStringView(std::string_view("a\0b", 3)).str(), std::string("a\0b", 3));
}

TEST(TextView, IsNullOnlyForWhatIsNull) {
  EXPECT_TRUE(OVStringView(nullptr).isNull());
  EXPECT_TRUE(OVStringView(static_cast<const char*>(nullptr)).isNull());
  EXPECT_TRUE(OVStringView(OVString()).isNull());
  EXPECT_EQ(OVStringView(nullptr).view(), "");
  EXPECT_NE(OVStringView(nullptr).view().data(), nullptr);
  EXPECT_FALSE(OVStringView("").isNull());
  EXPECT_FALSE(OVStringView(OVString("")).isNull());
  EXPECT_FALSE(OVStringView(std::string()).isNull());
  EXPECT_FALSE(OVStringView(std::string_view()).isNull());
}

TEST(TextView, ComparesWithTextsOfEveryKind) {
  const OVString string("Phone");
  const OVStringView view(string);
  EXPECT_TRUE(view == string && string == view && view == "Phone" && "Phone" == view);
  EXPECT_TRUE(view == std::string("Phone") && view == std::string_view("Phone"));
  EXPECT_TRUE(view != "Phon" && view != nullptr && view > "Phon" && view < "Phonf");
  EXPECT_TRUE(OVStringView(nullptr) == nullptr && OVStringView(nullptr) == OVString());
  EXPECT_TRUE(OVStringView(nullptr) != "" && OVStringView(nullptr) < "");
}

TEST(TextView, FindsInAMapOfStrings) {
  const std::map<OVString, int, std::less<>> map{{"a", 1}, {"b", 2}};
  const OVStringView name("b");
  EXPECT_EQ(map.find(name)->second, 2);
}

TEST(TextView, GivesTheVeryStringItIsMadeOf) {
  const OVString string("Ann");
  EXPECT_TRUE(OVString(OVStringView(string)).isSame(string));
  EXPECT_EQ(OVString(OVStringView("Ann")), "Ann");
  EXPECT_TRUE(OVString(OVStringView(nullptr)).isNull());
  EXPECT_TRUE(OVString(OVStringView(OVString())).isNull());
  EXPECT_FALSE(OVString(OVStringView("")).isNull());
}

TEST(TextView, IllFormedTextReadsAsItsString) {
  for (const std::string_view bad : {"\xFF", "caf\xC3", "a\xED\xA0\x80z"}) {
    const OVString repaired(bad);
    EXPECT_EQ(OVStringView(bad).view(), repaired.view());
    EXPECT_EQ(OVString(OVStringView(std::string(bad))), repaired);
  }
  const auto dictionary = OVDictionary<OVString>::dictionary({{"caf\xEF\xBF\xBD", "found"}});
  EXPECT_EQ(dictionary["caf\xC3"], "found");
  EXPECT_TRUE(dictionary.contains(std::string("caf\xFF")));
  EXPECT_FALSE(dictionary.contains("caf"));
  EXPECT_TRUE(dictionary.erase(std::string_view("caf\xC3")));
}

}  // namespace
