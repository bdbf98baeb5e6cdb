#include "platform/services/icu_locale.h"

#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/uloc.h>

#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>

#include "platform/built_once.h"
#include "platform/services/environment.h"
#include "platform/services/locale_identifier.h"
#include "platform/services/search_form.h"

namespace ov {

namespace {

OVString inLowerCase(const OVString& text) {
  if (text.isNull()) return nullptr;
  if (text.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
    throw std::length_error("OVLocale: the text is too long to change its case");
  }
  std::string result;
  icu::StringByteSink<std::string> sink(&result, static_cast<std::int32_t>(text.size()));
  UErrorCode status = U_ZERO_ERROR;
  // "" is the root locale.
  icu::CaseMap::utf8ToLower("", 0, icu::StringPiece(text.view()), sink, nullptr, status);
  if (U_FAILURE(status)) throw std::length_error("OVLocale: the case of the text cannot change");
  return result == text.view() ? text : OVString(result);
}

OVList<OVString> makeCountryCodes() {
  auto codes = OVList<OVString>::list();
  for (const char* const* code = uloc_getISOCountries(); *code != nullptr; ++code) {
    codes.push_back(*code);
  }
  return codes;
}

}  // namespace

OVList<OVString> IcuLocale::isoCountryCodes() const {
  static detail::BuiltOnce<OVList<OVString>> codes;
  return codes.get(&makeCountryCodes).copy();
}

OVString IcuLocale::currentLocaleIdentifier() const {
  if (!identifier_.isNull()) return identifier_;
  return localeIdentifier(&processEnvironment);
}

OVString IcuLocale::lowercase(const OVString& text) const { return inLowerCase(text); }

std::string IcuLocale::sortKey(const OVString& text) const {
  return text.isNull() ? std::string() : collation()->keyOf(text);
}

OVString IcuLocale::searchForm(const OVString& text) const { return ov::searchForm(text); }

/// That of the current identifier, which may have changed since the last call.
std::shared_ptr<const Collation> IcuLocale::collation() const {
  const OVString identifier = currentLocaleIdentifier();
  const std::lock_guard lock(mutex_);
  if (collation_ == nullptr || identifier != collationIdentifier_) {
    collation_ = std::make_shared<const Collation>(identifier);
    collationIdentifier_ = identifier;
  }
  return collation_;
}

}  // namespace ov
