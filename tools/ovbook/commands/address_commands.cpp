#include <ostream>

#include <OVAddressBookSDK/address_formater.h>

#include "commands/commands.h"
#include "field_words.h"
#include "output/escape.h"
#include "output/lines.h"
#include "parser.h"
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
    throw Failure(assignment, "an address value has the form FIELD=VALUE, such as City=Uppsala");
  }
  const OVString field = fieldOfWord(assignment.substr(0, equals));
  if (field.isNull()) {
    throw Failure(assignment.substr(0, equals),
                  "not an address field (\"ovbook layout CODE\" shows those of a country)");
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

void addAddressCommands(const Command& ovbook, Session& session) {
  const Command layout = ovbook.addCommand("layout", "Show a country's address layout");
  layout.setFooter(
      "One line for each line of an address: its fields, joined by \" + \". Codes are lower case;\n"
      "every other code gets the layout of the United States.");
  const Argument layoutCode = layout.addArgument("CODE", "A country's code").required();
  layout.setAction([=, &session] { printLayout(layoutCode.text(), session.out()); });

  const Command format = ovbook.addCommand("format", "Lay out an address");
  format.setFooter("Fields have the names that \"ovbook layout\" shows, such as City=Uppsala.");
  const Argument code =
      format.addOption("--country", "CODE", "The country whose layout is used").required();
  const Argument oneLine = format.addFlag("--one-line", "All on one line");
  const Argument values = format.addArguments("FIELD=VALUE", "The values of the address", 0);
  format.setAction([=, &session] {
    const auto formater = formaterOf(values.texts());
    const OVString country = code.text();
    if (oneLine.isGiven()) {
      session.out() << printable(formater->stringByCountryCode(country)) << '\n';
    } else {
      printLines(formater->formatStringByCountryCode(country), session.out());
    }
  });
}

}  // namespace ovbook
