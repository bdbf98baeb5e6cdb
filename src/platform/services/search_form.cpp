#include "platform/services/search_form.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <cstdint>
#include <limits>
#include <new>
#include <stdexcept>
#include <string>

namespace ov {

namespace {

const icu::Normalizer2& required(const icu::Normalizer2* normalizer, UErrorCode status) {
  if (U_FAILURE(status) || normalizer == nullptr) throw std::bad_alloc();
  return *normalizer;
}

const icu::Normalizer2& caseFolding() {
  UErrorCode status = U_ZERO_ERROR;
  return required(icu::Normalizer2::getNFKCCasefoldInstance(status), status);
}

const icu::Normalizer2& decomposition() {
  UErrorCode status = U_ZERO_ERROR;
  return required(icu::Normalizer2::getNFDInstance(status), status);
}

icu::UnicodeString normalized(const icu::Normalizer2& normalizer, const icu::UnicodeString& text) {
  UErrorCode status = U_ZERO_ERROR;
  icu::UnicodeString result = normalizer.normalize(text, status);
  if (U_FAILURE(status)) throw std::bad_alloc();
  return result;
}

/// The text without the marks above, below or in other characters.
icu::UnicodeString withoutMarks(const icu::UnicodeString& text) {
  icu::UnicodeString kept;
  for (std::int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
    const UChar32 character = text.char32At(i);
    if (u_charType(character) != U_NON_SPACING_MARK) kept.append(character);
  }
  return kept;
}

}  // namespace

OVString searchForm(const OVString& text) {
  if (text.isNull()) return nullptr;
  constexpr std::size_t kMaxText = std::numeric_limits<std::int32_t>::max() / 32;
  if (text.size() > kMaxText)
    throw std::length_error("OVLocale: the text is too long to search in");
  const auto given = icu::UnicodeString::fromUTF8(text.view());
  std::string form;
  withoutMarks(normalized(decomposition(), normalized(caseFolding(), given))).toUTF8String(form);
  return form;
}

}  // namespace ov
