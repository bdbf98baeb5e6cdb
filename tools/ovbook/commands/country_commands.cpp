#include <ostream>
#include <stdexcept>

#include <OVAddressBookSDK/country.h>

#include "commands/commands.h"
#include "output/escape.h"
#include "parser.h"
#include "preferences.h"
#include "session.h"

namespace ovbook {

namespace {

void printCountry(const OVCountry& country, std::ostream& out) {
  out << tsvField(country.code()) << '\t' << tsvField(country.name()) << '\n';
}

void showDefaultCountry(Session& session) {
  OVRef<OVCountry> country;
  try {
    country = OVCountry::defaultCountry();
  } catch (const std::out_of_range&) {
    country = nullptr;  // the locale names no country
  }
  if (country != nullptr) {
    printCountry(*country, session.out());
  } else {
    session.complain("no default country has been chosen, and the locale names none");
  }
}

/// Countries are found by their own code only: no other code means one of them here.
OVRef<OVCountry> countryOf(const std::string& code) {
  auto country = OVCountry::countryWithCode(code);
  if (country == nullptr || country->code() != code) {
    throw Failure(code, "not a country code (\"ovbook countries\" lists them)");
  }
  return country;
}

}  // namespace

void addCountryCommands(const Command& ovbook, Session& session) {
  const Command countries = ovbook.addCommand("countries", "List the countries");
  countries.setFooter("One line per country, ordered by name: its code, a tab, its name.");
  countries.setAction([&session] {
    const auto all = OVCountry::allCountry();
    for (const auto& country : all) printCountry(*country, session.out());
  });

  const Command command = ovbook.addCommand("country", "Show or choose the default country");
  const Argument code =
      command.addArgument("CODE", "A lower-case code; shows the current country when omitted");
  command.setAction([=, &session] {
    if (!code.isGiven()) return showDefaultCountry(session);
    OVCountry::setDefaultCountry(countryOf(code.text()));
    requireStoredPreferences("the default country");
  });
}

}  // namespace ovbook
