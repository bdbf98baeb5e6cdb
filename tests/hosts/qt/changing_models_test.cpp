#include <optional>
#include <random>
#include <set>

#include <OVAddressBookQt/groups_model.h>
#include <OVAddressBookQt/person_sheet.h>
#include <OVAddressBookSDK/notification_names.h>

#include "qt_books.h"

namespace {

/// All models at once, while everything changes.
class ChangingModels : public QtBooks {
 protected:
  std::size_t upTo(std::size_t most) { return random_() % (most + 1); }
  OVRef<IOVPerson> anybody() {
    const auto all = book_.book()->allPersons();
    return all.empty() ? nullptr : all[upTo(all.size() - 1)];
  }
  OVRef<IOVGroup> anyGroup() {
    const auto all = book_.book()->rootGroups();
    if (all.empty()) return nullptr;
    const auto group = all[upTo(all.size() - 1)];
    return group->subGroups().empty() || upTo(1) == 0 ? group : group->subGroups().front();
  }
  OVString word() {
    static constexpr const char* kWords[] = {"Ann", "bob", "\u00c9mile", "", "Zo\u00eb", "5550"};
    return kWords[upTo(5)];
  }
  void changeSomething();
  /// The filter shows what it should.
  void check() {
    const OVPersonMatcher matcher(ov::qt::ovString(filter_.text()));
    QStringList expected;
    for (int row = 0; row < persons_.rowCount(); ++row) {
      const auto person = persons_.personAt(row);
      const bool isChosen = !chosen_ || chosen_->contains(person.get());
      if (isChosen && matcher.matches(*person)) expected += persons_.index(row).data().toString();
    }
    ASSERT_EQ(shown(filter_), expected.join(", "));
    const OVPersonSorter sorter(persons_.order());
    for (int row = 1; row < persons_.rowCount(); ++row) {
      ASSERT_LE(sorter.keyOf(*persons_.personAt(row - 1)), sorter.keyOf(*persons_.personAt(row)));
    }
    ASSERT_EQ(static_cast<std::uint64_t>(persons_.rowCount()), book_.book()->allPersonsCount());
    OVGroupsModel fresh(&book_);
    ASSERT_EQ(shown(groups_), shown(fresh));
    OVPersonSheet freshSheet(&book_);
    freshSheet.setPerson(sheet_.person());
    ASSERT_EQ(shown(sheet_), shown(freshSheet));
  }

  void choose(const OVRef<IOVGroup>& group) {
    filter_.setGroup(group);
    chosen_.emplace();
    std::vector<OVRef<IOVGroup>> open{group};
    while (!open.empty()) {
      const auto each = open.back();
      open.pop_back();
      if (each == nullptr) continue;
      for (const auto& member : each->persons()) chosen_->insert(member.get());
      for (const auto& below : each->subGroups()) open.push_back(below);
    }
  }
  void changeSheet() {
    const QModelIndex row = sheet_.index(static_cast<int>(upTo(3)));
    if (!row.isValid()) return;
    switch (upTo(2)) {
      case 0:
        return static_cast<void>(sheet_.setData(row, true, OVPersonSheet::MainRole));
      case 1:
        return static_cast<void>(sheet_.setData(row, "Work", OVPersonSheet::LabelRole));
      default:
        return static_cast<void>(sheet_.setData(row, row.data(Qt::EditRole)));
    }
  }

  std::mt19937 random_{20260101};
  std::optional<std::set<const IOVPerson*>> chosen_;
  OVPersonsModel persons_{&book_};
  OVPersonsFilter filter_{&persons_};
  OVGroupsModel groups_{&book_};
  OVPersonSheet sheet_{&book_};
  Checked checked_[4]{Checked(persons_), Checked(filter_), Checked(groups_), Checked(sheet_)};
};
OV_ON_EACH_BOOK(ChangingModels);

void ChangingModels::changeSomething() {
  const auto person = anybody();
  switch (upTo(24)) {
    case 0:
      return static_cast<void>(book_.addPerson());
    case 1:
      return static_cast<void>(book_.removePersons({person, anybody()}));
    case 2:
    case 3:
      return person == nullptr ? void() : name(person, word(), word());
    case 4:
      return filter_.setText(ov::qt::qString(word()));
    case 5:
      return filter_.setText("");
    case 6:
      return static_cast<void>(book_.addGroup(word(), upTo(1) == 0 ? nullptr : anyGroup()));
    case 7:
      return static_cast<void>(book_.removeGroup(anyGroup()));
    case 8:
      return static_cast<void>(book_.renameGroup(anyGroup(), word()));
    case 9:
      return static_cast<void>(book_.addToGroup(anyGroup(), {person}));
    case 10:
      return static_cast<void>(book_.addTag(word(), {person}));
    case 11:
      return static_cast<void>(book_.removeTag(word(), {person}));
    case 12:
      return static_cast<void>(book_.renameTag(word(), word()));
    case 13:
      return book_.undoStack().undo();
    case 14:
      return book_.undoStack().redo();
    case 15:
      return sheet_.setPerson(person);
    case 16:
      return static_cast<void>(
          sheet_.addValue(upTo(1) == 0 ? "Phone" : "Nickname", "x", ov::qt::qString(word())));
    case 17:
      return persons_.setOrder(static_cast<OVPersonOrder>(upTo(2)));
    case 18:
      return static_cast<void>(book_.removeFromGroup(anyGroup(), {person, anybody()}));
    case 19:
      return static_cast<void>(book_.dropTag(word()));
    case 20:
      return changeSheet();
    case 21:
      return platform_.center->postNotificationName(OVPersonChangeAllPersonNotification);
    case 22:
      return choose(anyGroup());
    case 23:
      chosen_.reset();
      return filter_.setEverybody();
    default:
      return static_cast<void>(sheet_.removeRows(static_cast<int>(upTo(3)), 1));
  }
}

}  // namespace

TEST_P(ChangingModels, KeepTheRulesOfModelsAndShowTheBook) {
  for (int i = 0; i < 400; ++i) {
    changeSomething();
    ASSERT_NO_FATAL_FAILURE(check()) << "after change " << i;
    if (i % 50 == 49) OVAddressBook::setlastNameInFront(i % 100 == 49);
  }
}
