#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>

#include <atomic>
#include <thread>

#include <OVAddressBookSDK/notification_center.h>

#include "qt_books.h"

namespace {

class BookReports : public QtBooks {
 protected:
  void post(const OVString& name, const OVRef<IOVPerson>& about,
            const OVRef<OVObject>& object = nullptr) {
    const auto info = OVDictionary<OVObject>::dictionary();
    if (about != nullptr) info.set(OVChangeNameNotification_PersonKey, about);
    platform_.center->postNotificationName(name, object, info);
  }
  /// Past the book of the windows.
  void rename(const char* id, const OVString& first) {
    person(id)->setValueByPropertyName(
        ov::labelled(OVObjectPersonName::initWithFirstMiddleLast(first, nullptr, nullptr), "Name",
                     OVValueTypePersonName),
        OVProPertyName);
  }

  OVPersonsModel model_{&book_};
  Checked checked_{model_};
};
OV_ON_EACH_BOOK(BookReports);

}  // namespace

TEST_P(BookReports, OfOthersAreFollowed) {
  rename("a", "Zoe");
  post(OVPersonChangeNameNotification, person("a"));
  EXPECT_EQ(shown(model_), "Bob Abel, J\u00fcrgen, Zoe");
  book_.book()->removePersons(OVList<IOVPerson>::list({person("b")}));
  post(OVPersonChangeAllPersonNotification, nullptr, book_.book());
  EXPECT_EQ(shown(model_), "J\u00fcrgen, Zoe");
}

TEST_P(BookReports, AboutOtherBooksArePassedOver) {
  book_.book()->removePersons(OVList<IOVPerson>::list({person("b")}));
  int resets = 0;
  QObject::connect(&book_, &OVQtBook::personsReset, [&] { ++resets; });
  post(OVPersonChangeAllPersonNotification, nullptr, OVAddressBook::init());
  EXPECT_EQ(resets, 0);
  post(OVPersonChangeAllPersonNotification, nullptr);
  EXPECT_EQ(resets, 1);
}

TEST_P(BookReports, FromAnotherThreadArriveOnOurs) {
  const std::thread::id ours = std::this_thread::get_id();
  std::thread::id heardOn;
  QObject::connect(&book_, &OVQtBook::nameOrderChanged,
                   [&] { heardOn = std::this_thread::get_id(); });
  std::thread([] { OVAddressBook::setlastNameInFront(true); }).join();
  const QDeadlineTimer deadline(10000);
  while (heardOn == std::thread::id() && !deadline.hasExpired()) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
  }
  EXPECT_EQ(heardOn, ours);
  EXPECT_EQ(shown(model_), "Abel Bob, J\u00fcrgen, Zorn Ann");
}

TEST_P(BookReports, MayComeWhileABookGoes) {
  std::atomic<bool> isOver{false};
  std::thread other([&] {
    while (!isOver) platform_.center->postNotificationName(OVPersonChangeAllPersonNotification);
  });
  for (int i = 0; i < 200; ++i) const OVQtBook goes(book_.book());
  isOver = true;
  other.join();
  QCoreApplication::processEvents();
}

TEST_P(BookReports, AreMadeOfOwnChanges) {
  int heard = 0;
  const auto observer = platform_.center->addObserver(
      OVPersonChangeNameNotification, [&](const OVNotification& notification) {
        ++heard;
        EXPECT_EQ(notification.object, book_.book());
        EXPECT_EQ(notification.userInfo[OVChangeNameNotification_PersonKey], person("a"));
      });
  name(person("a"), "Zoe", nullptr);
  book_.undoStack().undo();
  EXPECT_EQ(heard, 2);
}
