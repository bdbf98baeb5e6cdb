// Measures single operations of the library. Prints one line of JSON: nanoseconds a call by name.

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include <OVAddressBookSDK/OVAddressBookSDK.h>

#include "library_book.h"
#include "meter.h"

namespace {

/// Keeps a result from being optimised away.
std::size_t sink = 0;

double nanoseconds(std::size_t calls, const std::function<void()>& operation, int runs = 5) {
  const bench::Cost cost = bench::measure(runs, operation, [] {});
  return cost.seconds * 1e9 / static_cast<double>(calls);
}

std::vector<OVRef<OVPersonGeneral>> personsOf(const OVRef<OVAddressBookGeneral>& book) {
  std::vector<OVRef<OVPersonGeneral>> persons;
  for (const auto& [ID, person] : book->personsDic()) persons.push_back(person);
  return persons;
}

OVRef<OVObjectAddress> addressOf(const OVRef<OVPersonGeneral>& person) {
  return ov::cast<OVObjectAddress>(person->valueOfMainValueForProPertyName(OVProPertyAddress));
}

double tagging(std::uint32_t persons) {
  OVUserDefaults::setStandardUserDefaults(OVUserDefaults::inMemory());
  const auto tag = [&] {
    const auto tags = OVTagManager::tagManagerWithID("bench");
    for (std::uint32_t i = 0; i < persons; ++i) {
      tags->addPersonIDForTag(std::to_string(i), "Friends");
    }
  };
  return nanoseconds(persons, tag, 1);
}

}  // namespace

int main(int count, char** arguments) {
  const auto size =
      static_cast<std::uint32_t>(count > 1 ? std::strtoul(arguments[1], nullptr, 10) : 10000);
  const auto tagged =
      static_cast<std::uint32_t>(count > 2 ? std::strtoul(arguments[2], nullptr, 10) : 1000);
  OVUserDefaults::setStandardUserDefaults(OVUserDefaults::inMemory());
  const auto persons = personsOf(bench::libraryBook(size));
  const auto each = [&](auto operation) {
    return nanoseconds(persons.size(), [&] {
      for (const auto& person : persons) sink += operation(person);
    });
  };
  std::printf("{\"persons\": %u, \"displayName\": %.1f", size,
              each([](const auto& person) { return person->displayName().size(); }));
  std::printf(", \"valueByPropertyName\": %.1f", each([](const auto& person) {
                return person->valueByPropertyName(OVProPertyNote) != nullptr;
              }));
  std::printf(", \"mainPhone\": %.1f",
              each([](const auto& person) { return person->mainPhone() != nullptr; }));
  std::printf(", \"formatString\": %.1f", each([](const auto& person) {
                return OVAddressFormater::initWithObject(addressOf(person))->formatString().size();
              }));
  std::printf(", \"countryWithCode\": %.1f", each([](const auto& person) {
                return OVCountry::countryWithCode(addressOf(person)->countryCode()) != nullptr;
              }));
  std::printf(", \"tagging\": %.1f, \"tagged\": %u}\n", tagging(tagged), tagged);
  return sink == 0 ? 1 : 0;
}
