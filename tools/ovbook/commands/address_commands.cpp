#include <ostream>

#include <CLI/CLI.hpp>

#include <OVAddressBookSDK/address_formater.h>

#include "arguments.h"
#include "commands/commands.h"
#include "field_words.h"
#include "output/escape.h"
#include "output/lines.h"
#include "session.h"

namespace ovbook {

namespace {

void printLayout(const std::string& code, std::ostream& out) {
  const auto layout = OVAddressFormater::fieldFormaterByCountryCode(code);
  for (const auto& line : layout) {
    const char* separator = "";
    for (const auto& field : line) {
      out << separator << wordOfField(field->name());
      separator = " + ";
    }
    out << '\n';
  }
}

void setValue(OVObjectAddress& address, const std::string& assignment) {
  const std::size_t equals = assignment.find('=');
  if (equals == std::string::npos) {
    throw Failure(assignment, "an address value is given as FIELD=VALUE, such as City=Uppsala");
  }
  const OVString field = fieldOfWord(assignment.substr(0, equals));
  if (field.isNull()) {
    throw Failure(assignment.substr(0, equals),
                  "no address field (\"ovbook layout CODE\" shows those of a country)");
  }
  address.setStringValueForFieldName(assignment.substr(equals + 1), field);
}

OVRef<OVAddressFormater> formaterOf(const std::vector<std::string>& assignments) {
  const auto address = OVObjectAddress::init();
  for (const std::string& assignment : assignments) setValue(*address, assignment);
  return OVAddressFormater::initWithObject(address);
}

void printLines(const OVString& text, std::ostream& out) {
  if (text.empty()) return;
  for (const std::string& line : linesOf(text)) out << printable(line) << '\n';
}

}  // namespace

void addAddressCommands(CLI::App& ovbook, Session& session) {
  CLI::App* layout = ovbook.add_subcommand("layout", "Show a country's address layout");
  layout->footer(
      "One line for each line of an address: its fields, joined by \" + \". Codes are lower case;\n"
      "every other code has the layout of the United States.");
  const auto* layoutCode = addArgument(*layout, "CODE", "A country's code")->required();
  layout->callback([=, &session] { printLayout(textOf(*layoutCode), session.out()); });

  CLI::App* format = ovbook.add_subcommand("format", "Lay out an address");
  format->footer("Fields have the names that \"ovbook layout\" shows, such as City=Uppsala.");
  const auto* code =
      addOption(*format, "--country", "CODE", "The country whose layout is used")->required();
  const auto* oneLine = addFlag(*format, "--one-line", "All on one line");
  const auto* values = addArguments(*format, "FIELD=VALUE", "The values of the address", 0);
  format->callback([=, &session] {
    const auto formater = formaterOf(textsOf(*values));
    const OVString country = textOf(*code);
    if (oneLine->count() > 0) {
      session.out() << printable(formater->stringByCountryCode(country)) << '\n';
    } else {
      printLines(formater->formatStringByCountryCode(country), session.out());
    }
  });
}

}  // namespace ovbook
