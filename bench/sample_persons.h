#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace bench {

/// One person of the measured book, as bare texts. The same number always gives the same person.
struct SamplePerson {
  std::string id;
  std::string first, middle, last;
  std::array<std::string, 2> phones;
  std::array<std::string, 2> emails;
  std::string street, city, province, postalCode, countryCode;
  std::string company, jobTitle;
  int birthYear;
  unsigned birthMonth, birthDay;
  std::string note;  // 60 characters
};

inline constexpr std::array<const char*, 2> kPhoneLabels{"Mobile", "Work"};
inline constexpr std::array<const char*, 2> kEmailLabels{"Home", "Work"};
inline constexpr const char* kAddressLabel = "Home";

[[nodiscard]] SamplePerson samplePerson(std::uint32_t number);

}  // namespace bench
