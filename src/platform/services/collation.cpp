#include "platform/services/collation.h"

#include <unicode/coll.h>
#include <unicode/unistr.h>

#include <array>
#include <cstdint>
#include <limits>
#include <new>
#include <stdexcept>

namespace ov {

namespace {

using Collator = std::unique_ptr<icu::Collator>;

/// The locale that means none, "en_US_POSIX", orders by code: nobody reads lists of persons so.
icu::Locale localeOf(const OVString& identifier) {
  return identifier == "en_US_POSIX" ? icu::Locale::getRoot() : icu::Locale(identifier.c_str());
}

Collator collatorFor(const OVString& identifier) {
  UErrorCode status = U_ZERO_ERROR;
  Collator collator(icu::Collator::createInstance(localeOf(identifier), status));
  if (U_SUCCESS(status) && collator != nullptr) return collator;
  if (status == U_MEMORY_ALLOCATION_ERROR) throw std::bad_alloc();
  return nullptr;
}

}  // namespace

struct Collation::Rules {
  Collator collator;
};

Collation::Collation(const OVString& identifier)
    : rules_(std::make_unique<const Rules>(Rules{collatorFor(identifier)})) {}

Collation::~Collation() = default;

std::string Collation::keyOf(const OVString& text) const {
  if (rules_->collator == nullptr) return text.str();  // without ICU's data: by code point
  constexpr std::size_t kMaxText = std::numeric_limits<std::int32_t>::max() / 8;
  if (text.size() > kMaxText) throw std::length_error("OVLocale: the text is too long to sort");
  const auto characters = icu::UnicodeString::fromUTF8(text.view());
  std::array<std::uint8_t, 256> buffer;  // NOLINT(cppcoreguidelines-pro-type-member-init)
  const std::int32_t size =
      rules_->collator->getSortKey(characters, buffer.data(), std::int32_t{buffer.size()});
  if (size <= 0) throw std::bad_alloc();
  std::string key;
  if (const auto length = static_cast<std::size_t>(size); length <= buffer.size()) {
    key.assign(reinterpret_cast<const char*>(buffer.data()), length);
  } else {
    key.resize(length);
    rules_->collator->getSortKey(characters, reinterpret_cast<std::uint8_t*>(key.data()), size);
  }
  key.pop_back();  // ICU ends it by a NUL
  return key;
}

}  // namespace ov
