#pragma once

#include <string>
#include <vector>

#include <OVAddressBookSDK/locale.h>
#include <OVAddressBookSDK/person.h>

/// Finds persons of any book by what somebody types.
///
/// The typed text is taken as words; a person matches when each word is a part of the person's
/// names (phonetic, maiden and nickname too), company, phone numbers or e-mail addresses. Case,
/// accents and width do not count, as `OVLocale::searchForm` says. Of phone numbers only the digits
/// count, and what holds nothing but digits and the signs around them is also taken as one number:
/// "5550" and "(55) 50" find "+44 (55) 50-23". A text of blanks matches everybody.
///
/// Any thread may use it, as far as it may read the persons. It keeps nothing of them.
class OV_EXPORT OVPersonMatcher {
 public:
  /// Null is as "".
  explicit OVPersonMatcher(const OVString& typed);

  /// Whether it matches everybody.
  [[nodiscard]] bool matchesAll() const { return words_.empty(); }
  /// Whether the person matches.
  [[nodiscard]] bool matches(const IOVPerson& person) const;
  /// Whether everybody who matches this is sure to match `other`, as when somebody types on: who
  /// did not match `other` need not be looked at.
  [[nodiscard]] bool isWithin(const OVPersonMatcher& other) const;

 private:
  struct Word {
    std::string text;    // in the form of searches
    std::string digits;  // "" when it cannot be a part of a number
    bool isASCII;
  };

  [[nodiscard]] bool matchesWord(const IOVPerson& person, const Word& word) const;
  [[nodiscard]] bool isPartOf(const Word& word, const OVString& text) const;

  std::vector<Word> words_;
  std::string number_;  // all digits, when there is nothing but a number
  OVRef<OVLocale> locale_;
};
