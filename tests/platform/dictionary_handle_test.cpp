#include <gtest/gtest.h>

#include <OVAddressBookSDK/date.h>
#include <OVAddressBookSDK/dictionary.h>

#include "support/printers.h"

namespace {

using Any = OVDictionary<OVObject>;
using Texts = OVDictionary<OVString>;
using Dates = OVDictionary<OVDate>;

TEST(DictionaryHandle, SharesItsEntriesWithTheDictionary) {
  const auto any = Any::dictionary({{"a", OVString("1")}});
  const auto texts = ov::cast<Texts>(any);
  ASSERT_NE(texts, nullptr);
  texts.set("b", "2");
  any.set("a", OVString("one"));
  EXPECT_EQ(ov::cast<OVString>(any["b"]), "2");
  EXPECT_EQ(texts["a"], "one");
  texts.erase("a");
  EXPECT_FALSE(any.contains("a"));
}

TEST(DictionaryHandle, OfTheSameKindIsTheDictionaryItself) {
  const auto texts = Texts::dictionary();
  EXPECT_EQ(ov::cast<Texts>(texts), texts);
}

TEST(DictionaryHandle, OutlivesTheDictionary) {
  auto any = Any::dictionary({{"a", OVString("kept")}});
  const auto texts = ov::cast<Texts>(any);
  any = nullptr;
  EXPECT_EQ(texts["a"], "kept");
}

TEST(DictionaryHandle, ReadsValuesOfAnotherClassAsNullAndKeepsThem) {
  const auto date = OVDate::dateWithTimeIntervalSinceReferenceDate(1);
  const auto any = Any::dictionary({{"text", OVString("a")}, {"date", date}});
  const auto texts = ov::cast<Texts>(any);
  EXPECT_EQ(texts.size(), 2U);
  EXPECT_TRUE(texts.contains("date"));
  EXPECT_TRUE(texts["date"].isNull());
  EXPECT_TRUE((*texts.find("date")).second.isNull());
  EXPECT_EQ(ov::cast<Dates>(texts)["date"], date);
}

TEST(DictionaryHandle, KeepsWhetherTheDictionaryIsImmutable) {
  const auto any = Any::dictionary();
  EXPECT_FALSE(ov::cast<Texts>(any).isImmutable());
  static_cast<ov::detail::DictionaryObject&>(*any.object()).immutable = true;
  EXPECT_TRUE(ov::cast<Texts>(any).isImmutable());
}

}  // namespace
