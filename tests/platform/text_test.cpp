#include <cstring>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <unordered_set>
#include <utility>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/text.h>

#include "support/printers.h"

namespace {

constexpr std::string_view kBytesWithNul("a\0b", 3);

TEST(Text, IsNullUnlessGivenSomething) {
  EXPECT_TRUE(OVString().isNull());
  EXPECT_TRUE(OVString(nullptr).isNull());
  EXPECT_TRUE(OVString(static_cast<const char*>(nullptr)).isNull());
  EXPECT_FALSE(OVString("").isNull());
  EXPECT_TRUE(static_cast<bool>(OVString("")));
  EXPECT_FALSE(static_cast<bool>(OVString()));
}

TEST(Text, NullAndEmptyDiffer) {
  EXPECT_NE(OVString(), OVString(""));
  EXPECT_NE(OVString(), "");
  EXPECT_NE(OVString(""), nullptr);
  EXPECT_NE(OVString(), std::string_view());
  EXPECT_EQ(OVString(), nullptr);
  EXPECT_EQ(OVString(), OVString());
}

TEST(Text, NullReadsAsAnEmptyText) {
  const OVString null;
  EXPECT_EQ(null.view(), "");
  EXPECT_EQ(null.str(), "");
  EXPECT_STREQ(null.c_str(), "");
  EXPECT_EQ(null.size(), 0U);
  EXPECT_TRUE(null.empty());
  EXPECT_TRUE(OVString("").empty());
  EXPECT_FALSE(OVString(" ").empty());
}

TEST(Text, IsMadeOfWhateverHoldsCharacters) {
  const std::string string = "Zoë";
  EXPECT_EQ(OVString("Zoë"), "Zoë");
  EXPECT_EQ(OVString(string), "Zoë");
  EXPECT_EQ(OVString(std::string_view(string)), string);
  EXPECT_EQ(OVString(std::string("temporary")), "temporary");
  EXPECT_EQ(OVString(std::string_view()), "");
  EXPECT_EQ(OVString(string.c_str()).size(), 4U);
}

TEST(Text, MayHoldANul) {
  const OVString text(kBytesWithNul);
  EXPECT_EQ(text.size(), 3U);
  EXPECT_EQ(text.view(), kBytesWithNul);
  EXPECT_NE(text, "a");
  EXPECT_EQ(std::strlen(text.c_str()), 1U);
}

TEST(Text, EndsWithANulThatIsNotCounted) {
  for (const std::size_t length : {0U, 1U, 7U, 8U, 9U, 1000U}) {
    const OVString text(std::string(length, 'x'));
    EXPECT_EQ(std::strlen(text.c_str()), length);
  }
}

TEST(Text, OutlivesWhatItWasMadeOf) {
  auto source = std::make_unique<std::string>("a text that is long enough to be allocated");
  const OVString text(*source);
  source.reset();
  EXPECT_EQ(text, "a text that is long enough to be allocated");
}

TEST(Text, CopiesShareTheText) {
  const OVString text("shared");
  OVString copy = text;
  EXPECT_TRUE(copy.isSame(text));
  EXPECT_EQ(copy.view().data(), text.view().data());
  copy = "other";
  EXPECT_EQ(text, "shared");
}

TEST(Text, MovingLeavesNull) {
  OVString from("moved");
  const char* characters = from.c_str();
  OVString to = std::move(from);
  EXPECT_TRUE(from.isNull());  // NOLINT(bugprone-use-after-move)
  EXPECT_EQ(to.c_str(), characters);
  from = std::move(to);
  EXPECT_EQ(from.c_str(), characters);
}

TEST(Text, AssigningAStringToItselfKeepsIt) {
  OVString text("itself");
  const OVString& same = text;
  text = same;
  EXPECT_EQ(text, "itself");
}

TEST(Text, EqualTextsMadeApartAreEqualButNotTheSame) {
  const OVString a("equal");
  const OVString b("equal");
  EXPECT_EQ(a, b);
  EXPECT_FALSE(a.isSame(b));
  EXPECT_TRUE(OVString().isSame(OVString()));
  EXPECT_FALSE(OVString().isSame(OVString("")));
}

TEST(Text, ComparesWithEverythingThatHoldsCharacters) {
  const OVString text("abc");
  EXPECT_TRUE(text == "abc" && "abc" == text);
  EXPECT_TRUE(text == std::string("abc") && std::string("abc") == text);
  EXPECT_TRUE(text == std::string_view("abc"));
  EXPECT_TRUE(text != "abd" && text != "ab" && text != "abcd" && text != "");
  EXPECT_TRUE(nullptr != text && OVString() == nullptr);
}

TEST(Text, ANullPointerComparesAsNull) {
  const char* none = nullptr;
  EXPECT_TRUE(OVString() == none);
  EXPECT_FALSE(OVString("") == none);
  EXPECT_TRUE(OVString("a") != none);
  char* alsoNone = nullptr;
  EXPECT_TRUE(alsoNone == OVString());
}

TEST(Text, IsOrderedByBytesWithNullFirst) {
  EXPECT_LT(OVString(), OVString(""));
  EXPECT_LT(OVString(""), OVString("A"));
  EXPECT_LT(OVString("A"), OVString("B"));
  EXPECT_LT(OVString("A"), OVString("AA"));
  EXPECT_LT(OVString("Z"), OVString("a"));
  EXPECT_LT(OVString("z"), OVString("é"));
  // By code point, where UTF-16 units would have it the other way round.
  EXPECT_LT(OVString("\uFF5E"), OVString("\U0001F600"));
  EXPECT_EQ(OVString("a") <=> OVString("a"), std::strong_ordering::equal);
  EXPECT_EQ(OVString() <=> OVString(), std::strong_ordering::equal);
}

TEST(Text, IsAKeyOfOrderedAndHashedContainers) {
  const std::map<OVString, int> ordered{{"b", 2}, {nullptr, 0}, {"a", 1}};
  EXPECT_EQ(ordered.begin()->first, nullptr);
  EXPECT_EQ(ordered.at("b"), 2);
  const std::unordered_set<OVString> hashed{"a", OVString(), "", "a"};
  EXPECT_EQ(hashed.size(), 3U);
  EXPECT_TRUE(hashed.contains(OVString()));
}

TEST(Text, EqualTextsHashAlike) {
  const std::hash<OVString> hash;
  EXPECT_EQ(hash(OVString("same")), hash(OVString(std::string("same"))));
  EXPECT_NE(hash(OVString("same")), hash(OVString("other")));
}

TEST(Text, PrintsItsCharactersAndNothingForNull) {
  std::ostringstream stream;
  stream << '[' << OVString() << OVString("") << OVString("Zoë") << OVString(kBytesWithNul) << ']';
  EXPECT_EQ(stream.str(), std::string("[Zoëa\0b]", 9));
}

}  // namespace
