#include <OVAddressBookEDS/eds_book.h>
#include <OVAddressBookEDS/eds_group.h>
#include <OVAddressBookEDS/eds_session.h>
#include <OVAddressBookSDK/OVAddressBookSDK.h>

#include <cstdio>

/// Goes as far as a program can without a session bus, and would be linked with the rest.
int main(int count, char** words) {
  std::error_code error;
  const auto session = OVEDSSession::open(error, {}, {std::chrono::milliseconds(0)});
  if (session != nullptr || error != std::errc::timed_out) return 1;
  if (count > 1) {
    const auto book = session->openBook(words[1], error);
    const auto group = std::dynamic_pointer_cast<OVEDSGroup>(book->addGroupByName("Choir"));
    return book->load() || book->refresh() || book->saveWithin({}) || group == nullptr;
  }
  const auto number = OVObjectPhone::initWithPhoneNumber("555");
  std::printf("%s, %.1f, %s\n", number->phoneNumber().c_str(), OVAddressBookSDKVersionNumber,
              OVAddressBookSDKVersionString);
}
