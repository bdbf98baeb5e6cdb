#include <OVAddressBookSDK/locale.h>

#include <utility>

#include "platform/services/icu_locale.h"
#include "platform/services/shared_instance.h"

namespace {

OVRef<OVLocale> makeLocale() { return std::make_shared<ov::IcuLocale>(OVString()); }

ov::SharedInstance<OVLocale>& theLocale() {
  static auto& instance = *new ov::SharedInstance<OVLocale>(&makeLocale);
  return instance;
}

}  // namespace

OVLocale::~OVLocale() = default;

OVRef<OVLocale> OVLocale::currentLocale() { return theLocale().get(); }

void OVLocale::setCurrentLocale(OVRef<OVLocale> locale) { theLocale().set(std::move(locale)); }

std::string OVLocale::sortKey(const OVString& text) const { return lowercase(text).str(); }

OVString OVLocale::searchForm(const OVString& text) const { return lowercase(text); }

OVRef<OVLocale> OVLocale::withIdentifier(const OVString& identifier) {
  return std::make_shared<ov::IcuLocale>(identifier.isNull() ? OVString("en_US_POSIX")
                                                             : identifier);
}
