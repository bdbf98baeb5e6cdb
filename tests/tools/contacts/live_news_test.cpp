#include <OVAddressBookSDK/notification_center.h>
#include <OVAddressBookSDK/notification_names.h>
#include <OVAddressBookSDK/person_name.h>

#include "live_window.h"

namespace {

using ovcontacts::LiveState;

class LiveNews : public LiveWindow {
 protected:
  /// As another program would.
  void renameBob(const char* name) {
    store->change([this, name](ovcontacts::LiveChanges& changes) {
      const auto bob = cards->personsForIDs(OVList<OVString>::list({OVString("b")})).front();
      bob->setValueByPropertyName(
          ov::labelled(OVObjectPersonName::initWithFirstMiddleLast(name, nullptr, nullptr), "Name",
                       OVValueTypePersonName),
          OVProPertyName);
      changes.persons.push_back(bob);
      changes.count = 1;
    });
  }
};

}  // namespace

TEST_F(LiveNews, WhatOthersChangeShowsByItselfAndIsToldQuietly) {
  renameBob("Robert");
  until([&] { return shownPersons() == QStringList{"Ann Zorn", "J\u00fcrgen", "Robert"}; });
  EXPECT_EQ(notice(), "Others have changed 1 entry.");
  pressNotice();
  EXPECT_FALSE(window_->notice().isVisible());
  EXPECT_FALSE(window_->isWindowModified());
}

TEST_F(LiveNews, WhatOthersChangeWaitsForWhoeverIsChangingTheBook) {
  change();
  renameBob("Robert");
  until([&] { return notice() == "Others have changed this book."; });
  EXPECT_TRUE(shownPersons().contains("Bob Abel"));
  pressNotice();
  until([&] { return shownPersons().contains("Robert"); });
}

TEST_F(LiveNews, WhoComesAndGoesIsFollowed) {
  store->change([this](ovcontacts::LiveChanges& changes) {
    cards->removePersons(cards->allPersons());
    changes.count = 3;
    platform_.center->postNotificationName(OVPersonChangeAllPersonNotification, cards);
  });
  until([&] { return shownPersons().isEmpty(); });
  EXPECT_TRUE(shownValues().isEmpty());
}

TEST_F(LiveNews, StatesAreToldInWords) {
  store->become(LiveState::Offline);
  until([&] { return notice().startsWith("The server cannot be reached."); });
  const int before = store->refreshes;
  pressNotice();
  settle();
  EXPECT_EQ(store->refreshes, before + 1);
  store->become(LiveState::Locked);
  until([&] { return notice().startsWith("The server asks for a password."); });
  store->become(LiveState::Gone);
  until([&] { return notice().startsWith("This book has been removed."); });
  store->become(LiveState::Connected);
  until([&] { return !window_->notice().isVisible(); });
}

TEST_F(LiveNews, PasswordsAreAskedFor) {
  QString given;
  sources->ask({"uid", "Study", "kaya", false,
                [&](const QString& user, const QString& password) { given = user + password; }});
  until([] { return QApplication::activeModalWidget() != nullptr; });
  auto& dialog = *qobject_cast<QDialog*>(QApplication::activeModalWidget());
  type(dialog, "secret");
  press(dialog, "OK");
  EXPECT_EQ(given, "kayasecret");
  until([&] { return store->refreshes == 2; });
}

TEST_F(LiveNews, ConflictsAreDecidedOneByOne) {
  const auto card = [](const char* name) {
    return OVString("BEGIN:VCARD\r\nVERSION:3.0\r\nFN:" + std::string(name) + "\r\nN:;" + name +
                    ";;;\r\nEND:VCARD\r\n");
  };
  store->open = {{"b", card("Bob"), card("Rob")}, {"c", nullptr, card("Carl")}};
  store->become(LiveState::Connected);
  until([&] { return notice() == "2 entries were changed here and elsewhere."; });
  whenAsked([this](QDialog& dialog) {
    EXPECT_EQ(dialog.findChildren<QListView*>().size(), 2);
    whenAsked([](QDialog& next) {
      EXPECT_EQ(next.findChildren<QListView*>().size(), 1);
      press(next, "Keep Theirs");
    });
    press(dialog, "Keep Ours");
  });
  pressNotice();
  EXPECT_EQ(store->choices, (std::vector<ovcontacts::LiveChoice>{ovcontacts::LiveChoice::Ours,
                                                                 ovcontacts::LiveChoice::Theirs}));
  EXPECT_FALSE(window_->notice().isVisible());
  EXPECT_TRUE(window_->isWindowModified());
}
