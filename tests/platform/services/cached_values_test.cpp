#include "platform/services/cached_values.h"

#include <memory>
#include <string>
#include <vector>

#include <OVAddressBookSDK/data.h>

#include "support/printers.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CachedValues : public testing::Test {
 protected:
  OVString text(const OVString& key) const { return ov::cast<OVString>(values_.get(key)); }
  std::vector<OVString> unsavedKeys() const {
    std::vector<OVString> keys;
    for (const auto& change : values_.unsaved()) keys.push_back(change.key);
    return keys;
  }

  ov::CachedValues values_;
};

TEST_F(CachedValues, AreWhatTheDatabaseHolds) {
  values_.refresh({{"a", OVString("1")}});
  EXPECT_EQ(text("a"), "1");
  values_.refresh({{"b", OVString("2")}});
  EXPECT_EQ(text("a"), nullptr);
  EXPECT_EQ(text("b"), "2");
  EXPECT_THAT(unsavedKeys(), IsEmpty());
}

TEST_F(CachedValues, AChangeIsUnsavedUntilItIsMarked) {
  values_.change("a", OVString("1"));
  EXPECT_EQ(text("a"), "1");
  EXPECT_THAT(unsavedKeys(), ElementsAre(OVString("a")));
  values_.markSaved(values_.unsaved());
  EXPECT_EQ(text("a"), "1");
  EXPECT_THAT(unsavedKeys(), IsEmpty());
}

TEST_F(CachedValues, UnsavedChangesStayOnTopOfTheDatabase) {
  values_.change("a", OVString("mine"));
  values_.change("b", nullptr);
  values_.refresh({{"a", OVString("theirs")}, {"b", OVString("theirs")}, {"c", OVString("3")}});
  EXPECT_EQ(text("a"), "mine");
  EXPECT_EQ(text("b"), nullptr);
  EXPECT_EQ(text("c"), "3");
}

TEST_F(CachedValues, WhatIsChangedWhileItIsBeingSavedStaysUnsaved) {
  values_.change("a", OVString("1"));
  values_.change("b", OVString("1"));
  values_.change("c", nullptr);
  const auto saved = values_.unsaved();
  values_.change("a", OVString("2"));
  values_.change("b", nullptr);
  values_.change("c", OVString("2"));
  values_.change("d", OVString("2"));
  values_.markSaved(saved);
  EXPECT_THAT(unsavedKeys(),
              ElementsAre(OVString("a"), OVString("b"), OVString("c"), OVString("d")));
}

TEST_F(CachedValues, MayBeAskedByWhatEndsWithAValue) {
  int asked = 0;
  const auto owner = [&] {
    return std::shared_ptr<const void>(
        "", [&](const void*) { asked += values_.get("a") == nullptr ? 1 : 2; });
  };
  values_.change("a", OVData::dataWithBytesNoCopy({}, owner()));
  values_.change("a", OVString("1"));
  EXPECT_EQ(asked, 2);
  values_.change("a", OVData::dataWithBytesNoCopy({}, owner()));
  values_.change("a", nullptr);
  EXPECT_EQ(asked, 3);
}

}  // namespace
