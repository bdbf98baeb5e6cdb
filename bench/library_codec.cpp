#include "codec.h"
#include "library_book.h"

namespace bench {

Codec libraryCodec() {
  return {
      "OVAddressBookSDK", [](unsigned count) { return libraryBook(count); },
      [](const std::shared_ptr<void>& book, std::size_t& bytes) {
        auto data = static_cast<OVAddressBookGeneral*>(book.get())->saveToData();
        bytes = data->size();
        return data;
      },
      [](const std::shared_ptr<void>& block) {
        return OVAddressBookGeneral::addressBookWithData(std::static_pointer_cast<OVData>(block));
      }};
}

}  // namespace bench
