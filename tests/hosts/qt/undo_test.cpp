#include <OVAddressBookQt/groups_model.h>

#include "qt_books.h"

namespace {

class Undo : public QtBooks {
 protected:
  /// All that is shown of the book.
  QString content() {
    OVPersonsModel persons(&book_);
    OVGroupsModel groups(&book_);
    QString text = shown(persons) + " | " + shown(groups);
    for (const auto& each : book_.book()->rootGroups()) {
      for (const auto& member : each->persons()) {
        text += " " + ov::qt::qString(member->displayName());
      }
    }
    const auto tags = book_.book()->tagManager();
    for (std::uint64_t i = 0; i < tags->count(); ++i) {
      const auto tag = tags->tagAtIndex(i);
      text += " " + ov::qt::qString(tag) + ":" + QString::number(tags->personIDsByTag(tag).size());
    }
    return text;
  }
};
OV_ON_EACH_BOOK(Undo);

}  // namespace

TEST_P(Undo, BringsEverythingBackStepByStep) {
  std::vector<QString> contents{content()};
  const auto step = [&](auto change) {
    change();
    contents.push_back(content());
    EXPECT_NE(contents.back(), contents[contents.size() - 2]) << contents.size();
  };
  OVRef<IOVPerson> added;
  OVRef<IOVGroup> made;
  step([&] { added = book_.addPerson(); });
  step([&] { name(added, "New", nullptr); });
  step([&] { made = book_.addGroup("Made", nullptr); });
  step([&] { book_.addToGroup(made, {added, person("c")}); });
  step([&] { book_.addTag("sailors", {added, person("a")}); });
  step([&] { book_.renameTag("sailors", "crew"); });
  step([&] { book_.renameGroup(made, "Remade"); });
  step([&] { book_.removeFromGroup(made, {person("c")}); });
  step([&] { book_.removePersons({added, person("a")}); });
  step([&] { book_.removeGroup(made); });
  step([&] { book_.addCopies({added}); });
  const auto last = contents.size() - 1;
  ASSERT_EQ(book_.undoStack().count(), static_cast<int>(last));
  for (int round = 0; round < 2; ++round) {
    for (std::size_t i = last; i-- > 0;) {
      book_.undoStack().undo();
      EXPECT_EQ(content(), contents[i]) << "undone to " << i;
    }
    for (std::size_t i = 1; i <= last; ++i) {
      book_.undoStack().redo();
      EXPECT_EQ(content(), contents[i]) << "redone to " << i;
    }
  }
}

TEST_P(Undo, ABookThatIsReadOnlyForAWhileRefusesChanges) {
  book_.setReadOnly(true);
  EXPECT_FALSE(book_.canChange());
  name(person("a"), "Zoe", nullptr);
  EXPECT_EQ(book_.addPerson(), nullptr);
  EXPECT_EQ(book_.addGroup("New", nullptr), nullptr);
  EXPECT_FALSE(book_.addTag("crew", {person("a")}));
  EXPECT_EQ(book_.undoStack().count(), 0);
  book_.setReadOnly(false);
  name(person("a"), "Zoe", nullptr);
  EXPECT_EQ(book_.undoStack().count(), 1);
}

TEST_P(Undo, ManyPersonsComeAndGoAtOnce) {
  constexpr int kMany = 600;
  const OVPersonsModel model(&book_);
  OVQtBook::Persons persons;
  for (int i = 0; i < kMany; ++i) {
    persons.push_back(OVPersonGeneral::initWithID("many" + std::to_string(i)));
  }
  int resets = 0;
  int tagChanges = 0;
  QObject::connect(&book_, &OVQtBook::personsReset, [&] { ++resets; });
  QObject::connect(&book_, &OVQtBook::tagsChanged, [&] { ++tagChanges; });
  const auto came = book_.addCopies(persons);
  EXPECT_EQ(came.size(), persons.size());
  EXPECT_EQ(model.rowCount(), kMany + 3);
  tagChanges = 0;
  book_.addTag("crew", came);
  EXPECT_EQ(tagChanges, 1);
  book_.addToGroup(group("h"), came);
  book_.removePersons(came);
  EXPECT_EQ(model.rowCount(), 3);
  EXPECT_EQ(group("h")->persons().size(), 1U);
  book_.undoStack().undo();
  EXPECT_EQ(resets, 4);
  EXPECT_EQ(model.rowCount(), kMany + 3);
  EXPECT_EQ(group("h")->persons().size(), kMany + 1U);
  EXPECT_EQ(book_.book()->tagManager()->personIDsByTag("crew").size(), std::uint64_t{kMany});
}

TEST_P(Undo, WhatIsRefusedIsNoStep) {
  EXPECT_FALSE(book_.addToGroup(group("g"), {person("a")}));
  EXPECT_FALSE(book_.removePersons({}));
  EXPECT_FALSE(book_.addTag("", {person("a")}));
  EXPECT_FALSE(book_.addTag("friends", {person("a")}));
  EXPECT_FALSE(book_.renameGroup(group("g"), "Tide"));
  EXPECT_EQ(book_.addGroup("Ring", nullptr) == nullptr, false);
  EXPECT_EQ(book_.undoStack().count(), 1);
}
