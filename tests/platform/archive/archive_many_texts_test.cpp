#include <set>
#include <string>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>
#include <OVAddressBookSDK/list.h>

#include "platform/archive/plist_reader.h"
#include "support/printers.h"

using ov::detail::PlistItem;
using ov::detail::PlistReader;

namespace {

constexpr int kLists = 12000;
constexpr int kTexts = 10;

/// Every third text is met again and again.
std::string textAt(int list, int place) {
  if (place % 3 == 0) return "Rue " + std::to_string(list % 500);
  if (place == 7) return "é" + std::to_string(list);
  return std::to_string(list) + "/" + std::to_string(place);
}

OVList<OVObject> manyTexts() {
  auto lists = OVList<OVObject>::list();
  for (int list = 0; list < kLists; ++list) {
    const auto texts = OVList<OVString>::list();
    for (int place = 0; place < kTexts; ++place) texts.push_back(OVString(textAt(list, place)));
    lists.push_back(texts);
  }
  return lists;
}

TEST(ArchiveOfManyTexts, EveryTextComesBackInItsPlace) {
  const auto data = OVKeyedArchiver::archivedDataWithRootObject(manyTexts());
  const auto read = ov::cast<OVList<OVObject>>(OVKeyedUnarchiver::unarchiveObjectWithData(data));
  ASSERT_EQ(read.size(), std::size_t{kLists});
  for (int list = 0; list < kLists; ++list) {
    const auto texts = ov::cast<OVList<OVString>>(read[static_cast<std::size_t>(list)]);
    ASSERT_EQ(texts.size(), std::size_t{kTexts});
    for (int place = 0; place < kTexts; ++place) {
      ASSERT_EQ(texts[static_cast<std::size_t>(place)], textAt(list, place));
    }
  }
}

TEST(ArchiveOfManyTexts, EqualTextsAreWrittenOnce) {
  const auto data = OVKeyedArchiver::archivedDataWithRootObject(manyTexts());
  const PlistReader reader(data->bytes());
  std::set<std::string> texts;
  std::string storage;
  for (std::uint64_t i = 0; i < reader.objectCount(); ++i) {
    const PlistItem item = reader.item(i);
    if (!PlistReader::isText(item)) continue;
    const std::string text(reader.text(item, storage));
    EXPECT_TRUE(texts.insert(text).second) << text;
  }
  EXPECT_GT(texts.size(), std::size_t{kLists} * 6);
}

TEST(ArchiveOfManyTexts, TheSameTextsGiveTheSameBytes) {
  const auto first = OVKeyedArchiver::archivedDataWithRootObject(manyTexts());
  const auto second = OVKeyedArchiver::archivedDataWithRootObject(manyTexts());
  EXPECT_TRUE(first->text() == second->text());
}

}  // namespace
