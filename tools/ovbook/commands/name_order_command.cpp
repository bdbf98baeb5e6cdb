#include <ostream>

#include <CLI/CLI.hpp>

#include <OVAddressBookSDK/address_book.h>

#include "arguments.h"
#include "commands/commands.h"
#include "preferences.h"
#include "session.h"

namespace ovbook {

namespace {

constexpr const char* kFirst = "first";
constexpr const char* kLast = "last";

}  // namespace

void addNameOrderCommand(CLI::App& ovbook, Session& session) {
  CLI::App* command =
      ovbook.add_subcommand("name-order", "Show or choose which name stands in front");
  const auto* order = addArgument(*command, "ORDER", "The name in front; shows it when left out")
                          ->check(CLI::IsMember({kFirst, kLast}));
  command->callback([=, &session] {
    if (order->count() == 0) {
      session.out() << (OVAddressBook::lastNameInFront() ? kLast : kFirst) << '\n';
    } else {
      OVAddressBook::setlastNameInFront(textOf(*order) == kLast);
      requireStoredPreferences("the name order");
    }
  });
}

}  // namespace ovbook
