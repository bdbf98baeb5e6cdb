#include <gtest/gtest.h>

#include <OVAddressBookSDK/dictionary.h>
#include <OVAddressBookSDK/list.h>

#include "support/printers.h"

namespace {

OVList<OVString> newList() { return OVList<OVString>::list({"a", "b", "c"}); }

OVDictionary<OVString> newDictionary() {
  return OVDictionary<OVString>::dictionary({{"x", "1"}, {"y", "2"}});
}

TEST(RangeFor, KeepsATemporaryListAlive) {
  std::vector<OVString> seen;
  for (const OVString text : newList()) seen.push_back(text);
  EXPECT_EQ(seen, (std::vector<OVString>{"a", "b", "c"}));
}

TEST(RangeFor, KeepsATemporaryDictionaryAlive) {
  std::vector<OVString> seen;
  for (const auto& [key, value] : newDictionary()) {
    seen.push_back(key);
    seen.push_back(value);
  }
  EXPECT_EQ(seen, (std::vector<OVString>{"x", "1", "y", "2"}));
}

TEST(RangeFor, TakesNullAsEmpty) {
  int steps = 0;
  for (const OVString text : OVList<OVString>()) steps += text.isNull() ? 1 : 2;
  for (const auto& [key, value] : OVDictionary<OVString>()) steps += key == value ? 1 : 2;
  EXPECT_EQ(steps, 0);
}

}  // namespace
