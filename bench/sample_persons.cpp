#include "sample_persons.h"

#include <cstdio>

namespace bench {

namespace {

constexpr std::array kFirst{"Anna",  "Bertrand", "Chidi",    "Dorothea", "Emil",      "Fatima",
                            "Goran", "Hanako",   "Iolanthe", "Joaquín",  "Katarzyna", "Léopold"};
constexpr std::array kLast{"Almeida",  "Björklund", "Castellano", "Dubrovsky",
                           "Eriksson", "Fontaine",  "Grünwald",   "Haverford",
                           "Ivanova",  "Jablonski", "Kowalczyk"};
constexpr std::array kCity{"Springfield", "Rivertown", "Lakeside", "Northbridge", "Oakville"};
constexpr std::array kCountry{"us", "de", "fr", "jp", "gb", "br", "in"};
constexpr std::array kJob{"Engineer", "Accountant", "Head of Department", "Nurse", "Editor"};

/// A small generator whose sequence is the same everywhere.
struct Dice {
  std::uint64_t state;
  std::uint32_t roll(std::uint32_t sides) {
    state = state * 6364136223846793005ULL + 1442695040888963407ULL;
    return static_cast<std::uint32_t>(state >> 33) % sides;
  }
  template <class T, std::size_t N>
  std::string pick(const std::array<T, N>& from) {
    return from[roll(static_cast<std::uint32_t>(N))];
  }
};

template <class... Numbers>
std::string format(const char* pattern, Numbers... numbers) {
  char text[96];
  std::snprintf(text, sizeof text, pattern, numbers...);
  return text;
}

}  // namespace

SamplePerson samplePerson(std::uint32_t number) {
  Dice dice{number * 2654435761ULL + 12345};
  SamplePerson person;
  person.id = format("%08X-%04X-4%03X-8%03X-%08X%04X", number, dice.roll(65536), dice.roll(4096),
                     dice.roll(4096), dice.roll(0x7FFFFFFF), dice.roll(65536));
  person.first = dice.pick(kFirst);
  person.middle = format("M%u", number % 1000);
  person.last = dice.pick(kLast) + format("-%u", number);
  for (auto& phone : person.phones) {
    phone = format("+1 (555) %03u-%04u", dice.roll(1000), dice.roll(10000));
  }
  person.emails = {format("person.%u@example.com", number), format("work-%u@example.org", number)};
  person.street = format("%u Example Street", dice.roll(9999) + 1);
  person.city = dice.pick(kCity) + format(" %u", dice.roll(500));
  person.province = format("Province %u", dice.roll(60));
  person.postalCode = format("%05u", dice.roll(100000));
  person.countryCode = dice.pick(kCountry);
  person.company = format("Company %u Incorporated", dice.roll(5000));
  person.jobTitle = dice.pick(kJob);
  person.birthYear = static_cast<int>(1930 + dice.roll(80));
  person.birthMonth = 1 + dice.roll(12);
  person.birthDay = 1 + dice.roll(28);
  person.note = format("Note %010u: met at the fair, call back about the offer.", number);
  person.note.resize(60, '.');
  return person;
}

}  // namespace bench
