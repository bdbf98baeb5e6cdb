#include <OVAddressBookEDS/eds_book.h>
#include <OVAddressBookEDS/eds_session.h>
#include <OVAddressBookSDK/OVAddressBookSDK.h>

#include <iostream>

namespace {

const char* kPassword = "secret";  // a program would ask its user

bool failed(const std::error_code& error) {
  if (error) std::cerr << error.message() << "\n";
  return static_cast<bool>(error);
}

void showNews(OVEDSBook& book) {
  std::error_code error;
  const OVEDSChanges changes = book.applyChanges(error);
  if (failed(error)) return;
  for (const auto& person : changes.cameIn) std::cout << person->showName() << " is new\n";
  for (const auto& person : changes.changed) std::cout << person->showName() << " has changed\n";
}

}  // namespace

int main() {
  std::error_code error;
  const auto session = OVEDSSession::open(error, [](const OVEDSCredentialsRequest& request) {
    if (!request.wasRejected) request.answer({nullptr, kPassword});
  });
  if (failed(error)) return 1;

  OVString uid;
  for (const OVEDSBookInfo& info : session->books()) {
    if (info.isDefault) uid = info.uid;
  }
  const auto book = session->openBook(uid, error);
  if (failed(error) || failed(book->load())) return 1;
  for (const auto& person : book->allPersons()) std::cout << person->showName() << "\n";

  const auto mira = book->newPerson();
  if (mira == nullptr) return 1;  // the book may only be read
  const auto name = OVObjectPersonName::initWithFirstMiddleLast("Mira", nullptr, "Halonen");
  mira->setValueByPropertyName(ov::labelled(name, "name", OVValueTypePersonName), OVProPertyName);
  const auto phones = OVMutableMultipleValue::init();
  phones->addValue(ov::labelled(OVObjectPhone::initWithPhoneNumber("+44 20 7946 0018"), "work",
                                OVValueTypePhone));
  mira->setValueByPropertyName(phones, OVProPertyPhone);
  if (failed(book->saveWithin({}))) return 1;
  std::cout << "saved " << mira->showName() << "\n";

  book->setWaitingCallback([] { /* on another thread: wake the main loop, which applies it */ });
  showNews(*book);
}
