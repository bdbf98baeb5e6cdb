// The typed text is split once; a person is then searched property by property until every word has
// been found, without making texts where ASCII is compared.

#include <OVAddressBookSDK/person_matcher.h>

#include <algorithm>
#include <string_view>

#include <OVAddressBookSDK/email.h>
#include <OVAddressBookSDK/person_name.h>
#include <OVAddressBookSDK/phone.h>

#include "book/person_texts.h"
#include "platform/ascii.h"

using ov::asciiLower;
using ov::isASCIIDigit;
using ov::detail::anyDatum;
using ov::detail::listedProperties;

namespace {

bool isASCII(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// The digits of what can be a part of a number; "" for anything else.
std::string digitsOfNumber(std::string_view text) {
  constexpr std::string_view kSigns = "+-()./";
  std::string digits;
  for (const char c : text) {
    if (isASCIIDigit(c)) {
      digits.push_back(c);
    } else if (c != ' ' && kSigns.find(c) == std::string_view::npos) {
      return {};
    }
  }
  return digits;
}

/// Whether the digits follow each other in the number, whatever is between them.
bool hasDigits(std::string_view number, std::string_view digits) {
  for (std::size_t start = 0; start < number.size(); ++start) {
    if (number[start] != digits.front()) continue;
    std::size_t met = 0;
    for (std::size_t i = start; i < number.size() && met < digits.size(); ++i) {
      if (!isASCIIDigit(number[i])) continue;
      if (number[i] != digits[met]) break;
      ++met;
    }
    if (met == digits.size()) return true;
  }
  return false;
}

/// The same for a text of ASCII, in any case.
bool hasInAnyCase(std::string_view text, std::string_view lower) {
  const char small = lower.front();
  for (std::size_t start = 0; start + lower.size() <= text.size(); ++start) {
    if (asciiLower(text[start]) != small) continue;
    std::size_t i = 1;
    while (i < lower.size() && asciiLower(text[start + i]) == lower[i]) ++i;
    if (i == lower.size()) return true;
  }
  return false;
}

/// In the form of searches; blanks of every kind become " ".
std::string searchFormOf(const OVLocale& locale, const OVString& text) {
  if (isASCII(text)) return asciiLower(text.view());
  return locale.searchForm(text).str();
}

bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

}  // namespace

OVPersonMatcher::OVPersonMatcher(const OVString& typed) : locale_(OVLocale::currentLocale()) {
  const std::string text = searchFormOf(*locale_, typed);
  for (auto at = text.begin(); at != text.end();) {
    const auto start = std::find_if_not(at, text.end(), isBlank);
    at = std::find_if(start, text.end(), isBlank);
    const std::string word(start, at);
    if (!word.empty()) words_.push_back({word, digitsOfNumber(word), isASCII(word)});
  }
  if (words_.size() > 1) number_ = digitsOfNumber(text);
}

bool OVPersonMatcher::isPartOf(const Word& word, const OVString& text) const {
  if (text.size() < word.text.size() && word.isASCII) return false;
  if (isASCII(text)) return word.isASCII && hasInAnyCase(text, word.text);
  return locale_->searchForm(text).view().find(word.text) != std::string_view::npos;
}

bool OVPersonMatcher::matchesWord(const IOVPerson& person, const Word& word) const {
  const auto& properties = listedProperties();
  const auto isIn = [&](const OVRef<OVProperty>& property, const auto& test) {
    return anyDatum(person.valueByProperty(property), test);
  };
  const auto inText = [&](const OVRef<OVObject>& datum) {
    return isPartOf(word, ov::cast<OVString>(datum));
  };
  const auto inName = [&](const OVRef<OVObject>& datum) {
    const auto name = ov::cast<OVObjectPersonName>(datum);
    if (name == nullptr) return false;
    if (isPartOf(word, name->first()) || isPartOf(word, name->last())) return true;
    if (isPartOf(word, name->middle())) return true;
    // Where names are written without a blank between them.
    return !word.isASCII && isPartOf(word, name->last().str() + name->first().str());
  };
  const auto inEmail = [&](const OVRef<OVObject>& datum) {
    const auto email = ov::cast<OVObjectEmail>(datum);
    return email != nullptr && isPartOf(word, email->email());
  };
  const auto inPhone = [&](const OVRef<OVObject>& datum) {
    const auto phone = ov::cast<OVObjectPhone>(datum);
    return phone != nullptr && hasDigits(phone->phoneNumber(), word.digits);
  };
  return isIn(properties.name, inName) || isIn(properties.nickname, inText) ||
         isIn(properties.company, inText) ||
         (!word.digits.empty() && isIn(properties.phone, inPhone)) ||
         isIn(properties.email, inEmail) || isIn(properties.maidenName, inText) ||
         isIn(properties.firstPhonetic, inText) || isIn(properties.lastPhonetic, inText);
}

bool OVPersonMatcher::matches(const IOVPerson& person) const {
  const bool hasWords =
      std::ranges::all_of(words_, [&](const Word& word) { return matchesWord(person, word); });
  if (hasWords || number_.empty()) return hasWords;
  return anyDatum(person.valueByProperty(listedProperties().phone),
                  [&](const OVRef<OVObject>& datum) {
                    const auto phone = ov::cast<OVObjectPhone>(datum);
                    return phone != nullptr && hasDigits(phone->phoneNumber(), number_);
                  });
}

bool OVPersonMatcher::isWithin(const OVPersonMatcher& other) const {
  if (!number_.empty() && !other.matchesAll()) {
    // Taken as one number: the other must be satisfied by any that holds these digits.
    if (other.words_.size() != 1 || other.words_.front().digits.empty()) return false;
    if (number_.find(other.words_.front().digits) == std::string::npos) return false;
  }
  return std::ranges::all_of(other.words_, [&](const Word& wide) {
    return std::ranges::any_of(words_, [&](const Word& word) {
      const bool needsMore = word.digits.empty() || !wide.digits.empty();
      return needsMore && word.text.find(wide.text) != std::string::npos;
    });
  });
}
