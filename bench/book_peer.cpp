#include <OVAddressBookVCard/vcard_book.h>

#include <span>

#include "vcard_peer.h"

namespace bench {

namespace {

OVRef<OVVCardBook> held;

}  // namespace

const char* peerName() { return "OVVCardBook"; }

std::size_t readCards(const std::string& cards) {
  held = OVVCardBook::init();
  held->loadWithData(OVData::dataWithBytesNoCopy(std::as_bytes(std::span(cards)), nullptr));
  return held->allPersonsCount();
}

void forgetCards() { held = nullptr; }

}  // namespace bench
