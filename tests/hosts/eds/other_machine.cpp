// What a user does on another machine, with a desktop of its own:
//
//   other_machine BOOK list               prints ID and phone of each person
//   other_machine BOOK add ID
//   other_machine BOOK phone ID NUMBER
//   other_machine BOOK remove ID
//
// BOOK is the URL of a book on a server, or the UID of one of the desktop, which is opened within a
// second.
#include <iostream>
#include <string>
#include <string_view>

#include <OVAddressBookEDS/eds_book.h>
#include <OVAddressBookEDS/eds_session.h>
#include <OVAddressBookSDK/OVAddressBookSDK.h>

namespace {

void require(const std::error_code& error) {
  if (!error) return;
  std::cerr << error.message() << "\n";
  std::exit(1);
}

/// The UID of the book of the server.
OVString bookAt(OVEDSSession& session, const char* url) {
  std::error_code error;
  OVString uid;
  for (const OVEDSBookInfo& info : session.books()) {
    if (info.kind == OVEDSBookKind::CardDAV) uid = info.uid;
  }
  if (uid.isNull()) uid = session.addCardDAVBook("Study", {url, "kaya"}, error);
  require(error);
  return uid;
}

OVRef<OVEDSBook> opened(OVEDSSession& session, const char* book) {
  const bool isURL = std::string_view(book).find("://") != std::string_view::npos;
  const OVString uid = isURL ? bookAt(session, book) : OVString(book);
  const ov::eds::Call call{std::chrono::seconds(isURL ? 30 : 5)};
  std::error_code error;
  auto opened = session.openBook(uid, error, call);
  require(error);
  require(opened->load({}, call));
  require(opened->refresh());
  (void)opened->applyChanges(error);
  require(error);
  return opened;
}

OVRef<IOVPerson> personOf(const OVEDSBook& book, const char* id) {
  for (const OVRef<IOVPerson> person : book.allPersons()) {
    if (person->ID() == OVString(id)) return person;
  }
  std::cerr << "no " << id << "\n";
  std::exit(1);
}

void list(const OVEDSBook& book) {
  for (const OVRef<IOVPerson> person : book.allPersons()) {
    const auto phone = person->mainPhone();
    std::cout << person->ID() << "\t" << (phone == nullptr ? OVString("") : phone->phoneNumber())
              << "\n";
  }
}

}  // namespace

int main(int count, char** words) {
  if (count < 3) return 2;
  std::error_code error;
  const auto session = OVEDSSession::open(error, [](const OVEDSCredentialsRequest& request) {
    request.answer({nullptr, "secret"});
  });
  require(error);
  const auto book = opened(*session, words[1]);
  const std::string_view command = words[2];
  if (command == "list") list(*book);
  if (command == "add") book->addOneFromOtherPerson(OVPersonGeneral::initWithID(words[3]));
  if (command == "phone") {
    auto phones = OVMutableMultipleValue::init();
    phones->addValue(
        ov::labelled(OVObjectPhone::initWithPhoneNumber(words[4]), "work", OVValueTypePhone));
    personOf(*book, words[3])->setValueByPropertyName(phones, OVProPertyPhone);
  }
  if (command == "remove") {
    const auto leaving = OVList<IOVPerson>::list();
    leaving.push_back(personOf(*book, words[3]));
    book->removePersons(leaving);
  }
  require(book->saveWithin({}));
}
