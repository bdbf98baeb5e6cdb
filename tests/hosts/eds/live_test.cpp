#include "live_test.h"

#include <stdexcept>

LiveTest::LiveTest() {
  Desktop::ofThisProcess();
  std::error_code error;
  session = OVEDSSession::open(error);
  EXPECT_FALSE(error) << error.message();
  bookUID = session->addLocalBook("Study", error);
  EXPECT_FALSE(error) << error.message();
}

LiveTest::~LiveTest() {
  if (session != nullptr) (void)session->removeBook(bookUID);
}

OVRef<OVEDSBook> LiveTest::openedBook(const OVString& uid) {
  std::error_code error;
  auto book = session->openBook(uid.isNull() ? bookUID : uid, error);
  if (book == nullptr) throw std::runtime_error(error.message());
  error = book->load();
  EXPECT_FALSE(error) << error.message();
  return book;
}

Outcome LiveTest::otherProgram(const std::vector<std::string>& words, const std::string& input) {
  std::vector<std::string> command{OV_OTHER_PROGRAM};
  command.insert(command.end(), words.begin(), words.end());
  Surroundings surroundings;
  surroundings.environment = Desktop::ofThisProcess().environment();
  surroundings.input = input;
  return runProgram(command, surroundings);
}

std::string LiveTest::storedCards() const { return otherProgram({"cards", bookUID.str()}).out; }

void LiveTest::putCard(const std::string& lines) const {
  const Outcome outcome = otherProgram({"put", bookUID.str()}, liveCard(lines));
  EXPECT_EQ(outcome.status, 0) << outcome.err;
}

std::string liveCard(const std::string& lines) {
  return "BEGIN:VCARD\r\nVERSION:3.0\r\n" + lines + "END:VCARD\r\n";
}

OVRef<IOVPerson> personOf(const OVEDSBook& book, const char* id) {
  const auto ids = OVList<OVString>::list();
  ids.push_back(id);
  const auto found = book.personsForIDs(ids);
  return found.empty() ? nullptr : OVRef<IOVPerson>(found[0]);
}

OVRef<OVEDSGroup> groupOf(const OVEDSBook& book, const char* id) {
  return std::dynamic_pointer_cast<OVEDSGroup>(book.groupByID(id));
}

OVString phoneOf(const OVRef<IOVPerson>& person) {
  const auto phone = person == nullptr ? nullptr : person->mainPhone();
  return phone == nullptr ? OVString() : phone->phoneNumber();
}

void setPhone(const OVRef<IOVPerson>& person, const char* number) {
  auto phones = OVMutableMultipleValue::init();
  phones->addValue(
      ov::labelled(OVObjectPhone::initWithPhoneNumber(number), "work", OVValueTypePhone));
  person->setValueByPropertyName(phones, OVProPertyPhone);
}

void setName(const OVRef<IOVPerson>& person, const char* first, const char* last) {
  const auto name = OVObjectPersonName::initWithFirstMiddleLast(first, nullptr, last);
  person->setValueByPropertyName(ov::labelled(name, "name", OVValueTypePersonName), OVProPertyName);
}

void addPersons(OVEDSBook& book, int count) {
  for (int i = 0; i < count; ++i) {
    const auto person = OVPersonGeneral::initWithID(OVString("p" + std::to_string(i)));
    setName(person, "Person", std::to_string(i).c_str());
    book.addBatchPersonForOther(person);
  }
}

bool applied(OVEDSBook& book, const std::function<bool(const OVEDSChanges&)>& isThere) {
  return eventually([&] {
    if (!book.hasChangesWaiting()) return false;
    std::error_code error;
    const OVEDSChanges changes = book.applyChanges(error);
    EXPECT_FALSE(error) << error.message();
    return isThere(changes);
  });
}
