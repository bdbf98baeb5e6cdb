#include <string>

#include <gtest/gtest.h>

#include <OVAddressBookSDK/keyed_archiver.h>
#include <OVAddressBookSDK/keyed_unarchiver.h>

#include "book/archive/small_book.h"
#include "support/archive/refusal.h"
#include "support/memory/leaks_tolerated.h"

// Any damage to a block gives either some object or `OVInvalidArchive`. Nothing else can be said of
// a damaged block, but that is said of every one.

namespace {

OVRef<OVData> archiveOf(const OVRef<OVObject>& object) {
  return OVKeyedArchiver::archivedDataWithRootObject(object);
}

OVRef<OVData> rewritten(const OVRef<OVData>& data) {
  return archiveOf(OVKeyedUnarchiver::unarchiveObjectWithData(data));
}

/// What was accepted can be used, and what is written of it says the same again. (A main value that
/// was damaged to null is forgotten in the first archive and replaced in the second.)
void expectUsable(const OVRef<OVObject>& object) {
  if (const auto book = ov::cast<OVAddressBookGeneral>(object)) {
    for (const auto& [ID, person] : book->personsDic()) {
      if (person != nullptr) static_cast<void>(person->displayName());
    }
  }
  const auto settled = rewritten(archiveOf(object));
  EXPECT_TRUE(rewritten(settled)->text() == settled->text());
}

/// True when the block was accepted.
bool survives(const std::string& damaged) {
  const auto data = OVData::dataWithText(damaged);
  {
    // Damage can tie objects into a ring.
    const LeaksTolerated tolerated;
    OVRef<OVObject> object;
    try {
      object = OVKeyedUnarchiver::unarchiveObjectWithData(data);
    } catch (const OVInvalidArchive&) {
      object = nullptr;
    }
    if (object != nullptr) {
      expectUsable(object);
      return true;
    }
  }
  // A block that is refused leaves nothing allocated, rings included.
  return refusal(data) == "accepted";
}

TEST(DamagedBook, ABlockCutShortAnywhereIsRefused) {
  const std::string block(smallBook()->saveToData()->text());
  for (std::size_t length = 0; length < block.size(); ++length) {
    EXPECT_NE(refusal(OVData::dataWithText(block.substr(0, length))), "accepted") << length;
  }
}

TEST(DamagedBook, ABlockWithSomethingBehindItIsRefused) {
  const std::string block(smallBook()->saveToData()->text());
  EXPECT_NE(refusal(OVData::dataWithText(block + '\0')), "accepted");
  EXPECT_NE(refusal(OVData::dataWithText(block + block)), "accepted");
}

class DamagedBookAtBit : public testing::TestWithParam<int> {};

TEST_P(DamagedBookAtBit, IsRefusedOrGivesAnObject) {
  const std::string block(smallBook()->saveToData()->text());
  std::size_t accepted = 0;
  for (std::size_t i = 0; i < block.size(); ++i) {
    std::string damaged = block;
    damaged[i] = static_cast<char>(damaged[i] ^ (1 << GetParam()));
    SCOPED_TRACE(i);
    accepted += survives(damaged) ? 1 : 0;
  }
  // Most bits of a block are characters, which may be any.
  EXPECT_GT(accepted, 0U);
  EXPECT_LT(accepted, block.size());
}

INSTANTIATE_TEST_SUITE_P(, DamagedBookAtBit, testing::Range(0, 8),
                         testing::PrintToStringParamName());

class DamagedBookWithByte : public testing::TestWithParam<int> {};

TEST_P(DamagedBookWithByte, IsRefusedOrGivesAnObject) {
  const std::string block(smallBook()->saveToData()->text());
  for (std::size_t i = 0; i < block.size(); ++i) {
    std::string damaged = block;
    damaged[i] = static_cast<char>(GetParam());
    SCOPED_TRACE(i);
    survives(damaged);
  }
}

// Bytes that mean much where an object begins: long containers, UIDs, and the ends of the range.
INSTANTIATE_TEST_SUITE_P(, DamagedBookWithByte, testing::Values(0x00, 0x80, 0xAF, 0xDF, 0xFF),
                         testing::PrintToStringParamName());

}  // namespace
