#include <cstdint>
#include <map>
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

using TextList = OVList<OVString>;

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
    const auto texts = TextList::list();
    for (int place = 0; place < kTexts; ++place) texts.push_back(OVString(textAt(list, place)));
    lists.push_back(texts);
  }
  return lists;
}

OVRef<OVData> blockOfLists(const OVList<OVObject>& lists) {
  return OVKeyedArchiver::archivedDataWithRootObject(lists);
}

/// How often each text is in the block.
std::map<std::string, int> textsIn(const OVRef<OVData>& data) {
  const PlistReader reader(data->bytes());
  std::map<std::string, int> texts;
  std::string storage;
  for (std::uint64_t i = 0; i < reader.objectCount(); ++i) {
    const PlistItem item = reader.item(i);
    if (PlistReader::isText(item)) ++texts[std::string(reader.text(item, storage))];
  }
  return texts;
}

TEST(ArchiveOfManyTexts, EveryTextComesBackInItsPlace) {
  const auto data = blockOfLists(manyTexts());
  const auto read = ov::cast<OVList<OVObject>>(OVKeyedUnarchiver::unarchiveObjectWithData(data));
  ASSERT_EQ(read.size(), std::size_t{kLists});
  for (int list = 0; list < kLists; ++list) {
    const auto texts = ov::cast<TextList>(read[static_cast<std::size_t>(list)]);
    ASSERT_EQ(texts.size(), std::size_t{kTexts});
    for (int place = 0; place < kTexts; ++place) {
      ASSERT_EQ(texts[static_cast<std::size_t>(place)], textAt(list, place));
    }
  }
}

TEST(ArchiveOfManyTexts, EqualTextsThatLieTogetherAreWrittenOnceInAWhile) {
  const auto lists = OVList<OVObject>::list();
  for (int list = 0; list < kLists; ++list) {
    const OVString text = std::to_string(list / 100);
    lists.push_back(TextList::list({std::string_view(text), "always", std::to_string(list)}));
  }
  const auto texts = textsIn(blockOfLists(lists));
  EXPECT_LT(texts.at("always"), kLists / 1000);
  EXPECT_LE(texts.at("50"), 2);  // once for list 50, once for those from 5000 on
  EXPECT_EQ(texts.at("11999"), 1);
}

TEST(ArchiveOfManyTexts, MostEqualTextsAreFoundEvenWhereTheyLieApart) {
  const auto texts = textsIn(blockOfLists(manyTexts()));
  int again = 0;
  for (const auto& [text, times] : texts) again += times - 1;
  EXPECT_LT(again, kLists * 4 / 20);  // four texts of each list are met again and again
}

TEST(ArchiveOfManyTexts, ASharedTextIsWrittenOnceHoweverFarApart) {
  const auto lists = OVList<OVObject>::list();
  const OVString shared = "shared";
  const OVRef<OVObject> object = OVString("shared as an object");
  for (int list = 0; list < kLists; ++list) {
    const auto texts = OVList<OVObject>::list();
    if (list % (kLists / 2) == 0) texts.push_back(shared);
    if (list % (kLists / 2) == 0) texts.push_back(object);
    for (int place = 0; place < kTexts; ++place) {
      texts.push_back(OVString(std::to_string(list) + "," + std::to_string(place)));
    }
    lists.push_back(texts);
  }
  const auto texts = textsIn(blockOfLists(lists));
  EXPECT_EQ(texts.at("shared"), 1);
  EXPECT_EQ(texts.at("shared as an object"), 1);
}

TEST(ArchiveOfManyTexts, TheSameTextsGiveTheSameBytes) {
  EXPECT_TRUE(blockOfLists(manyTexts())->text() == blockOfLists(manyTexts())->text());
}

TEST(ArchiveOfManyTexts, ABlockThatIsReadAndWrittenAgainIsUnchanged) {
  const auto data = blockOfLists(manyTexts());
  const auto read = ov::cast<OVList<OVObject>>(OVKeyedUnarchiver::unarchiveObjectWithData(data));
  EXPECT_TRUE(blockOfLists(read)->text() == data->text());
}

}  // namespace
