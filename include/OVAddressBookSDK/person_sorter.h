#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <OVAddressBookSDK/locale.h>
#include <OVAddressBookSDK/person.h>

/// What persons are ordered by in a list.
enum class OVPersonOrder : std::uint8_t {
  None,     ///< the order of the book
  Name,     ///< by name
  Company,  ///< by company, and by name in one company; who has none comes last
};

/// Orders persons of any book as a reader of the current locale expects them.
///
/// The name is the last, first and middle one, or the first, middle and last one, as
/// `OVAddressBook::lastNameInFront` says; a phonetic name, where there is one, counts in place of
/// the name that it tells how to read. An organisation is ordered by its company, a person without
/// a name by what `ov::headingOf` gives. Who has none of that comes last.
///
/// Locale and name order are those of the moment when the sorter is made. Any thread may use it, as
/// far as it may read the persons.
class OV_EXPORT OVPersonSorter {
 public:
  /// Of this locale and order of names.
  explicit OVPersonSorter(OVPersonOrder order);

  /// Bytes that order as the persons do; "" for everybody in the book's order.
  [[nodiscard]] std::string keyOf(const IOVPerson& person) const;

  /// Orders the persons; those of equal keys stay as they were. Null references come last. What
  /// throws leaves them as they were.
  void sort(std::vector<OVRef<IOVPerson>>& persons) const;

 private:
  [[nodiscard]] OVString nameOf(const IOVPerson& person) const;

  OVPersonOrder order_;
  bool lastNameInFront_;
  OVRef<OVLocale> locale_;
};
