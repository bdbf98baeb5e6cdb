#include "ovbook_test.h"

using testing::HasSubstr;

namespace {

class Tag : public OvbookTest {
 protected:
  Outcome tag(Arguments arguments) {
    arguments.insert(arguments.begin(), {"tag", "work"});
    return ovbook(arguments);
  }
  std::string listed() { return tag({"list"}).out; }
};

}  // namespace

TEST_F(Tag, ANewStoreIsEmpty) { EXPECT_EQ(tag({"list"}), success()); }

TEST_F(Tag, TagsAreListedInTheOrderOfFirstUseWithTheirPersons) {
  EXPECT_EQ(tag({"add", "ann", "red"}), success());
  EXPECT_EQ(tag({"add", "bob", "blue"}), success());
  EXPECT_EQ(tag({"add", "bob", "red"}), success());
  EXPECT_EQ(tag({"list"}), success("red\tann\tbob\nblue\tbob\n"));
}

TEST_F(Tag, AddingTwiceAddsOnce) {
  EXPECT_EQ(tag({"add", "ann", "red"}), success());
  EXPECT_EQ(tag({"add", "ann", "red"}), success());
  EXPECT_EQ(listed(), "red\tann\n");
}

TEST_F(Tag, ATagGoesWithItsLastPerson) {
  EXPECT_EQ(tag({"add", "ann", "red"}), success());
  EXPECT_EQ(tag({"add", "bob", "red"}), success());
  EXPECT_EQ(tag({"remove", "ann", "red"}), success());
  EXPECT_EQ(listed(), "red\tbob\n");
  EXPECT_EQ(tag({"remove", "bob", "red"}), success());
  EXPECT_EQ(listed(), "");
}

TEST_F(Tag, DropTakesATagFromEverybody) {
  EXPECT_EQ(tag({"set", "ann", "red", "blue"}), success());
  EXPECT_EQ(tag({"set", "bob", "red"}), success());
  EXPECT_EQ(tag({"drop", "red"}), success());
  EXPECT_EQ(listed(), "blue\tann\n");
}

TEST_F(Tag, ClearTakesAllTagsFromAPerson) {
  EXPECT_EQ(tag({"set", "ann", "red", "blue"}), success());
  EXPECT_EQ(tag({"set", "bob", "red"}), success());
  EXPECT_EQ(tag({"clear", "ann"}), success());
  EXPECT_EQ(listed(), "red\tbob\n");
}

TEST_F(Tag, SetReplacesThePersonsTags) {
  EXPECT_EQ(tag({"set", "ann", "red", "blue"}), success());
  EXPECT_EQ(tag({"set", "ann", "green", "blue"}), success());
  EXPECT_EQ(listed(), "green\tann\nblue\tann\n");
}

TEST_F(Tag, UnknownTagsAndPersonsAreNoFailure) {
  EXPECT_EQ(tag({"remove", "ann", "red"}), success());
  EXPECT_EQ(tag({"drop", "red"}), success());
  EXPECT_EQ(tag({"clear", "ann"}), success());
  EXPECT_EQ(listed(), "");
}

TEST_F(Tag, StoresKnowNothingOfEachOther) {
  EXPECT_EQ(tag({"add", "ann", "red"}), success());
  EXPECT_EQ(ovbook({"tag", "home", "add", "ann", "blue"}), success());
  EXPECT_EQ(ovbook({"tag", "home", "list"}), success("blue\tann\n"));
  EXPECT_EQ(listed(), "red\tann\n");
}

TEST_F(Tag, EveryTextCanBeATagAndAnID) {
  EXPECT_EQ(tag({"set", "[a,b]", "[x,y]", "", "{}", "%%", "list", "[", "a\tb\\c\nd\033"}),
            success());
  EXPECT_EQ(tag({"add", "--", "-p", "--help"}), success());
  EXPECT_EQ(listed(),
            "[x,y]\t[a,b]\n\t[a,b]\n{}\t[a,b]\n%%\t[a,b]\nlist\t[a,b]\n[\t[a,b]\n"
            "a\\tb\\\\c\\nd\\u001b\t[a,b]\n--help\t-p\n");
}

TEST_F(Tag, WhatIsNoStoreIsLeftAlone) {
  EXPECT_EQ(ovbook({"country", "fr"}), success());
  const Outcome outcome = ovbook({"tag", "Default_Country_Key", "add", "ann", "red"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.err, HasSubstr("ovbook: tag store Default_Country_Key: "));
  EXPECT_EQ(ovbook({"country"}), success("fr\tFrance\n"));
}

TEST_F(Tag, ThatCannotBeStoredIsAFailure) {
  EXPECT_EQ(ovbookIn({.environment = {"XDG_CONFIG_HOME=/dev/null"}},
                     {"tag", "work", "add", "ann", "red"}),
            failure("the tags could not be stored: the preferences cannot be written (see the "
                    "log)"));
}
