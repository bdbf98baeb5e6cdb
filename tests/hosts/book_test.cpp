#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/tag_manager.h>

#include "hosts/cards.h"
#include "support/printers.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string kTwoCards = card("UID:a\nFN:A\nCATEGORIES:x") + card("UID:b\nFN:B");

TEST(VCardBook, IsEmptyWhenNew) {
  const auto book = OVVCardBook::init();
  EXPECT_EQ(book->allPersonsCount(), 0U);
  EXPECT_TRUE(book->allPersons().empty());
  EXPECT_EQ(book->rootGroupsCount(), 0U);
  EXPECT_TRUE(book->rootGroups().empty());
  EXPECT_TRUE(book->problems().empty());
  EXPECT_FALSE(book->saveError());
}

TEST(VCardBook, HasAnIDAndAName) {
  const auto book = OVVCardBook::initWithPath("/some/where/../My contacts.vcf");
  EXPECT_EQ(book->ID(), "/some/My contacts.vcf");
  EXPECT_EQ(book->name(), "My contacts");
  EXPECT_EQ(OVVCardBook::initWithPath(nullptr), nullptr);
  EXPECT_EQ(OVVCardBook::initWithPath(""), nullptr);
}

TEST(VCardBook, WithoutAFileHasARandomID) {
  const auto book = OVVCardBook::init();
  EXPECT_EQ(book->ID().size(), 36U);
  EXPECT_EQ(book->ID(), book->ID());
  EXPECT_NE(book->ID(), OVVCardBook::init()->ID());
  EXPECT_EQ(book->name(), "");
}

TEST(VCardBook, MayBeChanged) {
  const auto book = OVVCardBook::init();
  EXPECT_TRUE(book->canCreateGroup());
  EXPECT_TRUE(book->canCreateSubGroup());
  EXPECT_TRUE(book->canOprate());
}

TEST(VCardBook, SupportsTheWholeCatalogue) {
  const auto supported = OVVCardBook::init()->supportProperty();
  const auto standard = OVProperty::StandardPropertyArray();
  ASSERT_EQ(supported.size(), standard.size());
  for (std::size_t i = 0; i < supported.size(); ++i) EXPECT_EQ(supported[i], standard[i]);
  supported.clear();
  EXPECT_EQ(standard.size(), 23U);
}

TEST(VCardBook, ShowsSomeOfThem) {
  std::vector<std::string> names;
  const auto common = OVVCardBook::init()->commonProperty();
  for (const OVRef<OVProperty> property : common) names.push_back(property->name().str());
  EXPECT_THAT(names, ElementsAre("Thumbnail", "Name", "Company", "Phone", "Email", "Address",
                                 "Birthday", "Note"));
}

TEST(VCardBook, LoadsData) {
  const auto book = OVVCardBook::init();
  book->loadWithData(OVData::dataWithText(kTwoCards));
  book->loadWithData(nullptr);
  EXPECT_THAT(idsOf(book->allPersons()), ElementsAre("a", "b"));
  EXPECT_EQ(book->allPersonsCount(), 2U);
  EXPECT_EQ(book->allPersons().front()->addressBookID(), book->ID());
}

TEST(VCardBook, IsAsBeforeWhenTheProgressThrows) {
  std::string text = card("UID:g\nKIND:group\nMEMBER:1");
  for (int i = 0; i < 100; ++i) text += card("UID:" + std::to_string(i) + "\nCATEGORIES:a");
  const auto book = bookOf(kTwoCards);
  const auto manager = book->tagManager();
  const std::string before = description(*book);
  EXPECT_THROW(book->loadWithDataProgressBlock(OVData::dataWithText(text),
                                               [] { throw std::runtime_error("enough"); }),
               std::runtime_error);
  EXPECT_EQ(description(*book), before);
  EXPECT_EQ(manager->count(), 1U);
  EXPECT_THAT(problems(*book), IsEmpty());
}

TEST(VCardBook, ReportsProgressWhileItLoads) {
  std::string text;
  for (int i = 0; i < 1000; ++i) text += card("UID:" + std::to_string(i));
  const auto book = OVVCardBook::init();
  int calls = 0;
  book->loadWithDataProgressBlock(OVData::dataWithText(text), [&] { ++calls; });
  EXPECT_GT(calls, 1);
  book->loadWithDataProgressBlock(OVData::dataWithText(kTwoCards), {});
  book->loadWithDataProgressBlock(nullptr, [&] { calls = -1; });
  EXPECT_GT(calls, 1);
  EXPECT_EQ(book->allPersonsCount(), 1002U);
}

TEST(VCardBook, FindsPersonsByID) {
  const auto book = bookOf(kTwoCards);
  EXPECT_THAT(idsOf(book->personsForIDs(OVList<OVString>::list({"b", "none", "a", "b"}))),
              ElementsAre("b", "a", "b"));
  EXPECT_TRUE(book->personsForIDs(nullptr).empty());
}

TEST(VCardBook, HasNoPictures) {
  const auto book = OVVCardBook::init();
  EXPECT_EQ(book->thumbnail(), nullptr);
  EXPECT_EQ(book->logo1(), nullptr);
  EXPECT_EQ(book->logo4(), nullptr);
}

}  // namespace
