#include <ostream>

#include <OVAddressBookSDK/address_book.h>

#include "commands/commands.h"
#include "parser.h"
#include "preferences.h"
#include "session.h"

namespace ovbook {

namespace {

constexpr const char* kFirst = "first";
constexpr const char* kLast = "last";

}  // namespace

void addNameOrderCommand(const Command& ovbook, Session& session) {
  const Command command = ovbook.addCommand("name-order", "Show or choose which name comes first");
  const Argument order =
      command.addArgument("ORDER", "The name that comes first; shows it when omitted")
          .oneOf({kFirst, kLast});
  command.setAction([=, &session] {
    if (!order.isGiven()) {
      session.out() << (OVAddressBook::lastNameInFront() ? kLast : kFirst) << '\n';
    } else {
      OVAddressBook::setlastNameInFront(order.text() == kLast);
      requireStoredPreferences("the name order");
    }
  });
}

}  // namespace ovbook
