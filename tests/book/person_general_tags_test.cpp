#include <gtest/gtest.h>

#include <OVAddressBookSDK/person_general.h>

#include "support/archive/archived_fields.h"
#include "support/printers.h"

namespace {

using Tags = std::vector<OVString>;

class PersonTags : public testing::Test {
 protected:
  const OVRef<OVPersonGeneral> person = OVPersonGeneral::initWithID("id");

  Tags tags() const {
    const auto list = person->tagArray();
    return {list.begin(), list.end()};
  }
  static OVList<OVString> listOf(std::initializer_list<OVString> tags) {
    return OVList<OVString>::list(tags);
  }
};

TEST_F(PersonTags, ListIsLive) {
  const auto list = person->tagArray();
  list.push_back("A");
  EXPECT_EQ(person->tagArray(), list);
  EXPECT_EQ(tags(), Tags{"A"});
}

TEST_F(PersonTags, ListTakenBeforeAnyChangeStaysLive) {
  const auto list = person->tagArray();
  person->setTags(listOf({"A"}));
  EXPECT_EQ(list.size(), 1U);
}

TEST_F(PersonTags, AddOfATagThatThePersonDoesNotHaveDoesNothing) {
  person->addTag("X");
  EXPECT_EQ(tags(), Tags{});
}

TEST_F(PersonTags, AddOfATagThatThePersonHasAppendsItOnceMore) {
  person->setTags(listOf({"X"}));
  person->addTag("X");
  EXPECT_EQ(tags(), (Tags{"X", "X"}));
  person->removeTag("X");
  EXPECT_EQ(tags(), Tags{});
}

TEST_F(PersonTags, AddComparesCharacters) {
  person->setTags(listOf({std::string("same tag")}));
  person->addTag("same tag");
  EXPECT_EQ(tags().size(), 2U);
  person->addTag("Same tag");
  EXPECT_EQ(tags().size(), 2U);
}

TEST_F(PersonTags, RemoveTakesEveryOccurrenceOut) {
  person->setTags(listOf({"A", "B", "A", "C"}));
  person->removeTag("A");
  EXPECT_EQ(tags(), (Tags{"B", "C"}));
}

TEST_F(PersonTags, RemoveOfAnAbsentTagDoesNothing) {
  person->setTags(listOf({"A"}));
  person->removeTag("B");
  EXPECT_EQ(tags(), Tags{"A"});
}

TEST_F(PersonTags, NullIsIgnored) {
  person->setTags(listOf({"A"}));
  person->addTag(nullptr);
  person->removeTag(nullptr);
  person->setTags(nullptr);
  EXPECT_EQ(tags(), Tags{"A"});
}

TEST_F(PersonTags, SetMergesAndMovesTheNamedOnesToTheEnd) {
  person->setTags(listOf({"A", "B", "D"}));
  person->setTags(listOf({"B"}));
  EXPECT_EQ(tags(), (Tags{"A", "D", "B"}));
}

TEST_F(PersonTags, SetAppendsInTheOrderAndNumberGiven) {
  person->setTags(listOf({"A", "B", "C"}));
  person->setTags(listOf({"C", "E", "A", "C"}));
  EXPECT_EQ(tags(), (Tags{"B", "C", "E", "A", "C"}));
}

TEST_F(PersonTags, SetOfNoTagsChangesNothing) {
  person->setTags(listOf({"A"}));
  person->setTags(listOf({}));
  EXPECT_EQ(tags(), Tags{"A"});
}

TEST_F(PersonTags, SetLeavesTheListGivenAlone) {
  const auto given = listOf({"A"});
  person->setTags(given);
  EXPECT_NE(person->tagArray(), given);
  person->tagArray().push_back("B");
  EXPECT_EQ(given.size(), 1U);
}

TEST_F(PersonTags, SetOfThePersonsOwnListKeepsIt) {
  person->setTags(listOf({"A", "B"}));
  person->setTags(person->tagArray());
  EXPECT_EQ(tags(), (Tags{"A", "B"}));
}

TEST_F(PersonTags, SetSkipsElementsThatAreNoTexts) {
  const auto strange = restored<OVList<OVString>>(
      OVList<OVObject>::list({OVString("A"), foreignObject(), OVString("B")}));
  person->setTags(strange);
  EXPECT_EQ(tags(), (Tags{"A", "B"}));
}

TEST_F(PersonTags, AreNotArchived) {
  person->setTags(listOf({"A"}));
  const auto again = restored<OVPersonGeneral>(person);
  EXPECT_TRUE(again->tagArray().empty());
  again->tagArray().push_back("B");
  EXPECT_EQ(again->tagArray().size(), 1U);
}

}  // namespace
