#pragma once

#include <string>
#include <vector>

#include <OVAddressBookSDK/locale.h>
#include <OVAddressBookSDK/person.h>

/// Finds persons of any book by the text that a user types.
///
/// The text is split into words; a person matches when each word is part of the person's names
/// (phonetic, maiden and nickname too), company, phone numbers or e-mail addresses. Case, accents
/// and width are ignored, as in `OVLocale::searchForm`. Of phone numbers only the digits count, and
/// a text of nothing but digits and punctuation is also taken as one number: "5550" and "(55) 50"
/// find "+44 (55) 50-23". A blank text matches everybody.
///
/// Any thread that may read the persons may use it. It keeps nothing of them.
///
/// \code
/// auto mira = OVPersonGeneral::initWithID("mira-1");
/// mira->setValueByPropertyName(ov::labelled("Caf\u00e9 Tampere", nullptr, OVValueTypeString),
///                              OVProPertyCompany);
/// std::cout << OVPersonMatcher("tamp cafe").matches(*mira) << "\n";  // 1
/// \endcode
class OV_EXPORT OVPersonMatcher {
 public:
  /// Null counts as "".
  explicit OVPersonMatcher(const OVString& typed);

  /// Whether it matches everybody.
  [[nodiscard]] bool matchesAll() const { return words_.empty(); }
  /// Whether the person matches.
  [[nodiscard]] bool matches(const IOVPerson& person) const;
  /// Whether everybody who matches this certainly matches `other`, as when the user types on: those
  /// who did not match `other` need not be tried again.
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
