#include <OVAddressBookEDS/eds_book.h>
#include <OVAddressBookEDS/eds_session.h>
#include <OVAddressBookSDK/OVAddressBookSDK.h>

#include <iostream>
#include <semaphore>

namespace {

const char* kPassword = "secret";  // a program would ask its user

/// Ends the program; one with windows would tell its user.
void require(const std::error_code& error) {
  if (!error) return;
  std::cerr << error.message() << "\n";
  std::exit(1);
}

OVRef<OVEDSBook> openedBook(OVEDSSession& session, const OVString& uid) {
  std::error_code error;
  auto book = session.openBook(uid, error);
  require(error);
  require(book->load());
  return book;
}

void addMira(OVEDSBook& book) {
  const auto mira = book.newPerson();
  if (mira == nullptr) require(OVEDSError::ReadOnly);
  const auto name = OVObjectPersonName::initWithFirstMiddleLast("Mira", nullptr, "Halonen");
  mira->setValueByPropertyName(ov::labelled(name, "name", OVValueTypePersonName), OVProPertyName);
}

void setPhone(const OVRef<IOVPerson>& person, const char* number) {
  const auto phones = OVMutableMultipleValue::init();
  phones->addValue(
      ov::labelled(OVObjectPhone::initWithPhoneNumber(number), "work", OVValueTypePhone));
  person->setValueByPropertyName(phones, OVProPertyPhone);
}

}  // namespace

int main() {
  std::error_code error;
  const auto session = OVEDSSession::open(error, [](const OVEDSCredentialsRequest& request) {
    if (!request.wasRejected) request.answer({nullptr, kPassword});
  });
  require(error);

  OVString uid;
  for (const OVEDSBookInfo& info : session->books()) {
    std::cout << info.name << (info.isDefault ? ", the default" : "") << "\n";
    if (info.isDefault) uid = info.uid;
  }
  const auto book = openedBook(*session, uid);
  if (book->allPersonsCount() == 0) addMira(*book);
  require(book->saveWithin({}));
  for (const auto& person : book->allPersons()) std::cout << person->showName() << "\n";

  // In a program with a main loop the callback, which is called on the session's thread, wakes
  // that; here it counts.
  std::counting_semaphore news(0);
  book->setWaitingCallback([&] { news.release(); });

  // Somebody else, as the book sees it.
  const auto elsewhere = openedBook(*session, uid);
  for (const OVRef<IOVPerson> person : elsewhere->allPersons()) {
    setPhone(person, "+44 20 7946 0018");
  }
  require(elsewhere->saveWithin({}));

  OVEDSChanges changes;
  while (changes.changed.empty()) {
    news.acquire();
    changes = book->applyChanges(error);
    require(error);
  }
  for (const auto& person : changes.changed) {
    std::cout << person->showName() << " has changed: " << person->mainPhone()->phoneNumber()
              << "\n";
  }
  book->setWaitingCallback({});
}
