#include <OVAddressBookSDK/OVAddressBookSDK.h>

#include <future>
#include <iostream>
#include <utility>

OVRef<OVAddressBookGeneral> someBook() {
  auto book = OVAddressBookGeneral::init();
  for (const char* ID : {"a", "b", "c"}) book->addPerson(OVPersonGeneral::initWithID(ID));
  return book;
}

int main() {
  // A block can be read by any thread, and restoring it touches nothing that others have. The
  // finished book then belongs to the thread that takes it.
  const auto block = someBook()->saveToData();
  auto loading = std::async(std::launch::async, [block] {
    return ov::cast<OVAddressBookGeneral>(OVAddressBookGeneral::addressBookWithData(block));
  });
  auto book = loading.get();
  std::cout << book->personsDic().size() << " persons loaded\n";

  // A snapshot is cheap: it shares the values. While another thread saves it, nobody may change
  // more of those than atomic fields, so either wait, or save first and pass on the block, which
  // never changes.
  auto saving = std::async(std::launch::async, [book] { return book->saveToData()->size(); });
  std::cout << saving.get() << " bytes saved\n";

  // What is kept in an atomic field may be read while another thread sets it.
  auto label = OVLabel::init();
  auto naming = std::async(std::launch::async, [label] { label->setDisplayName("work"); });
  const OVString early = label->displayName();  // null or "work", never anything between
  naming.get();
  std::cout << (early.isNull() || early == "work") << " " << label->displayName() << "\n";
}
