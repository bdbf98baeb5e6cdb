#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <OVAddressBookSDK/locale.h>
#include <OVAddressBookSDK/person.h>

/// How a list of persons is sorted.
enum class OVPersonOrder : std::uint8_t {
  None,     ///< the order of the book
  Name,     ///< by name
  Company,  ///< by company, then by name; persons without one come last
};

/// Sorts persons of any book the way a reader of the current locale expects.
///
/// The name is last, first and middle, or first, middle and last, as
/// `OVAddressBook::lastNameInFront` says; a phonetic name, if there is one, replaces the name that
/// it belongs to. An organisation is sorted by its company, a person without a name by the result
/// of `ov::headingOf`. Persons without any of these come last.
///
/// Locale and name order are those at the time when the sorter is made. Any thread that may read
/// the persons may use it.
class OV_EXPORT OVPersonSorter {
 public:
  /// Uses the current locale and name order.
  explicit OVPersonSorter(OVPersonOrder order);

  /// Bytes that sort as the persons do; "" for everybody in the book's order.
  [[nodiscard]] std::string keyOf(const IOVPerson& person) const;

  /// Sorts the persons; those with equal keys keep their order. Null references come last. An
  /// exception leaves them unchanged.
  void sort(std::vector<OVRef<IOVPerson>>& persons) const;

 private:
  [[nodiscard]] OVString nameOf(const IOVPerson& person) const;

  OVPersonOrder order_;
  bool lastNameInFront_;
  OVRef<OVLocale> locale_;
};
