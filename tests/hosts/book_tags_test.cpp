#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <OVAddressBookSDK/tag_manager.h>

#include "hosts/cards.h"
#include "support/fakes/fake_platform.h"
#include "support/printers.h"
#include "support/values.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> texts(const OVList<OVString>& list) {
  std::vector<std::string> all;
  for (const OVString text : list) all.push_back(text.str());
  return all;
}

/// The same for a person alone and one whose book has made its tag manager.
class BookPersonTags : public testing::TestWithParam<bool> {
 protected:
  BookPersonTags() {
    if (GetParam()) static_cast<void>(book->tagManager());
  }
  OVRef<OVVCardBook> book = bookOf(card("UID:p\nCATEGORIES:a,b"));
  OVRef<IOVPerson> one = onlyPerson(*book);
};

TEST_P(BookPersonTags, AreAddedOnce) {
  one->addTag("c");
  one->addTag("a");
  one->addTag("");
  one->addTag(nullptr);
  EXPECT_THAT(texts(one->tagArray()), ElementsAre("a", "b", "c"));
}

TEST_P(BookPersonTags, AreRemoved) {
  one->removeTag("a");
  one->removeTag("none");
  one->removeTag(nullptr);
  EXPECT_THAT(texts(one->tagArray()), ElementsAre("b"));
}

TEST_P(BookPersonTags, AreReplaced) {
  one->setTags(OVList<OVString>::list({"b", "c", "b"}));
  EXPECT_THAT(texts(one->tagArray()), ElementsAre("b", "c"));
  one->setTags(one->tagArray());
  EXPECT_THAT(texts(one->tagArray()), ElementsAre("b", "c"));
  if (GetParam()) one->setTags(book->tagManager()->tagsByPersonID("p"));  // the live list
  EXPECT_THAT(texts(one->tagArray()), ElementsAre("b", "c"));
  one->setTags(nullptr);
  EXPECT_THAT(texts(one->tagArray()), IsEmpty());
}

TEST_P(BookPersonTags, AreTheValueOfAProperty) {
  EXPECT_EQ(entry(*one, OVProPertyTags), "#a#b");
  one->setValueByPropertyName(valueOf(OVValueTypeTags, OVList<OVString>::list({"x", "y"})),
                              OVProPertyTags);
  EXPECT_THAT(texts(one->tagArray()), ElementsAre("x", "y"));
  one->setValueByPropertyName(nullptr, OVProPertyTags);
  EXPECT_THAT(texts(one->tagArray()), IsEmpty());
  EXPECT_EQ(one->valueByPropertyName(OVProPertyTags), nullptr);
}

TEST_P(BookPersonTags, AreHandedOutAsACopy) {
  one->tagArray().push_back("c");
  EXPECT_THAT(texts(one->tagArray()), ElementsAre("a", "b"));
}

TEST_P(BookPersonTags, AgreeWithTheTagManager) {
  one->addTag("c");
  const OVRef<OVTagManager> manager = book->tagManager();
  EXPECT_EQ(book->tagManager(), manager);
  EXPECT_EQ(manager->tagID(), nullptr);
  EXPECT_THAT(texts(manager->tagsByPersonID("p")), ElementsAre("a", "b", "c"));
  one->removeTag("a");
  EXPECT_THAT(texts(manager->tagsByPersonID("p")), ElementsAre("b", "c"));
  manager->addPersonIDForTag("p", "d");
  manager->removeTag("b");
  EXPECT_THAT(texts(one->tagArray()), ElementsAre("c", "d"));
  EXPECT_EQ(entry(*one, OVProPertyTags), "#c#d");
  EXPECT_THAT(std::string(book->saveData()->text()), testing::HasSubstr("CATEGORIES:c,d\n"));
}

INSTANTIATE_TEST_SUITE_P(WithAndWithoutManager, BookPersonTags, testing::Bool(),
                         [](const auto& test) { return test.param ? "Managed" : "Alone"; });

TEST(BookTags, OfALaterFileReachTheTagManager) {
  const auto book = bookOf(card("UID:p\nCATEGORIES:a"));
  const auto manager = book->tagManager();
  book->loadWithData(OVData::dataWithText(card("UID:q\nCATEGORIES:a,b")));
  EXPECT_THAT(texts(manager->personIDsByTag("a")), ElementsAre("p", "q"));
  EXPECT_THAT(texts(book->allPersons().back()->tagArray()), ElementsAre("a", "b"));
}

TEST(BookTags, TouchNoUserDefaults) {
  const FakePlatform platform;
  const auto book = bookOf(card("UID:p\nCATEGORIES:a"));
  book->tagManager()->addPersonIDForTag("p", "b");
  EXPECT_EQ(platform.defaults->objectForKey("p"), nullptr);
  EXPECT_EQ(platform.defaults->objectForKey(book->ID()), nullptr);
}

}  // namespace
